// Edits of item models that a session sends to a simulated device.

#include <support/tavorosession/devicelog.h>
#include <support/tavorosession/sessionbench.h>

#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/file.h>
#include <tavoromodels/devicesmodel.h>
#include <tavoromodels/filesmodel.h>
#include <tavoromodels/interfacesmodel.h>
#include <tavoromodels/layersmodel.h>
#include <tavoromodels/screensmodel.h>
#include <tavoromodels/sessionedithandler.h>
#include <tavorooperations/jsontext.h>
#include <tavorooperations/scope.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QSignalSpy>

using namespace Tavoro;
using namespace Tavoro::Models;

namespace {

constexpr int previewScene = 2;

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

QString asText(const QVariant &value)
{
    return Operations::jsonText(QJsonValue::fromVariant(value));
}

/// The part of a value that an edit changes: the only key of \a edit, or all.
QString changedPart(const QVariant &value, const QVariant &edit)
{
    const QVariantMap fields = edit.toMap();
    return asText(fields.isEmpty() ? value : value.toMap().value(fields.firstKey()));
}

QVariantMap map(const char *key, const QVariant &value)
{
    return {{QString::fromLatin1(key), value}};
}

} // namespace

class tst_SessionEdits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void editedValueIsOnTheDeviceAndInTheView_data();
    void editedValueIsOnTheDeviceAndInTheView();
    void refusedEditShowsTheOldValueAndTheReason_data();
    void refusedEditShowsTheOldValueAndTheReason();
    void everyEditableKeyAcceptsItsOwnValue();
    void viewShowsTheEditUntilTheDeviceWasReadAgain();
    void lostAnswerOfTheReadIsFollowedByTheValue();
    void quickEditsSendTheLastValue();
    void deviceThatIsNotOpenIsNotEdited();
    void closedDeviceEndsItsEdits();
    void handlerMayEndBeforeItsEdits();
    void handlerThatEndsShowsTheValuesOfTheDevice();

private:
    std::vector<ObjectModel *> models()
    {
        return {m_devices.get(), m_interfaces.get(), m_screens.get(), m_layers.get(),
                m_files.get()};
    }
    /// The value of a key of the first object of a model, as the device sends it.
    QVariant onDevice(int model, const QString &key)
    {
        using Operations::Scope;
        const Scope reads[] = {Scope::device(), Scope::interfaces(), Scope::screens(),
                               Scope::layersOf({1, 1}, previewScene), Scope::files()};
        const Scope &read = reads[model];
        const auto answer =
            resultOf(m_bench->wall->callByName(read.readOperation(), read.readArguments()));
        const QJsonValue value = Operations::jsonValue(answer.record());
        const QJsonArray objects = value.isArray() ? value.toArray() : QJsonArray{value};
        const QVariant layer = m_layers->index(0).data(m_layers->role("layerIdenti"));
        for (const QJsonValue object : objects) {
            const QVariantMap record = object.toObject().toVariantMap();
            if (read.kind != Operations::ScopeKind::Layers
                || asText(record.value(text("layerIdenti"))) == asText(layer))
                return record.value(key);
        }
        return {};
    }

    std::unique_ptr<SessionBench> m_bench;
    std::unique_ptr<SessionEditHandler> m_editor;
    std::unique_ptr<DevicesModel> m_devices;
    std::unique_ptr<InterfacesModel> m_interfaces;
    std::unique_ptr<ScreensModel> m_screens;
    std::unique_ptr<LayersModel> m_layers;
    std::unique_ptr<FilesModel> m_files;
};

void tst_SessionEdits::init()
{
    m_bench = std::make_unique<SessionBench>();
    QVERIFY(m_bench->openReady());
    ProtoModel::File::s_CreatePresetFile preset;
    preset.fileId = 3;
    preset.fileType = 6;
    preset.general.name = "preset";
    QVERIFY(resultOf(m_bench->wall->call(&Control::File::writeCreatePresetFile, {preset})));
    QVERIFY(resultOf(m_bench->wall->modelUpdate()));
    const auto device = m_bench->wall->device();
    m_editor = std::make_unique<SessionEditHandler>(*m_bench->session);
    m_devices = std::make_unique<DevicesModel>();
    m_interfaces = std::make_unique<InterfacesModel>();
    m_screens = std::make_unique<ScreensModel>();
    m_layers = std::make_unique<LayersModel>();
    m_files = std::make_unique<FilesModel>();
    m_interfaces->setDevice(device);
    m_screens->setDevice(device);
    m_layers->setDevice(device);
    m_layers->setScene({1, 1}, previewScene);
    m_files->setDevice(device);
    for (ObjectModel *const model : models()) {
        QVERIFY(model->rowCount() > 0);
        model->setEditHandler(m_editor.get());
    }
}

void tst_SessionEdits::cleanup()
{
    m_devices.reset();
    m_interfaces.reset();
    m_screens.reset();
    m_layers.reset();
    m_files.reset();
    m_editor.reset();
    m_bench.reset();
}

void tst_SessionEdits::editedValueIsOnTheDeviceAndInTheView_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    // clang-format off
    QTest::newRow("device")                << 0 << "general"              << QVariant(map("name", text("stage")));
    QTest::newRow("whole record of a key") << 0 << "dynamicRangConversion" << QVariant(map("enable", 1));
    QTest::newRow("interface")             << 1 << "formatMapping"        << QVariant(3);
    QTest::newRow("key with another case") << 1 << "HDCP"                 << QVariant(map("presetType", 2));
    QTest::newRow("screen")                << 2 << "freeze"               << QVariant(1);
    QTest::newRow("layer")                 << 3 << "window"               << QVariant(map("x", 77));
    QTest::newRow("file")                  << 4 << "general"              << QVariant(map("name", text("new name")));
    // clang-format on
}

void tst_SessionEdits::editedValueIsOnTheDeviceAndInTheView()
{
    QFETCH(int, model);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    ObjectModel &edited = *models()[std::size_t(model)];
    const QModelIndex row = edited.index(0);
    const int role = edited.role(key.toLatin1());
    const QString wanted = changedPart(value, value);
    QVERIFY(changedPart(row.data(role), value) != wanted);

    const QSignalSpy failed(&edited, &ObjectModel::editFailed);
    QVERIFY(edited.setData(row, value, role));
    QTRY_COMPARE(changedPart(onDevice(model, key), value), wanted);
    QVERIFY(resultOf(m_bench->wall->modelUpdate()));
    QCoreApplication::processEvents(); // the edit ends
    edited.setEditHandler(nullptr);
    QCOMPARE(changedPart(row.data(role), value), wanted);
    QCOMPARE(failed.size(), 0);
}

void tst_SessionEdits::refusedEditShowsTheOldValueAndTheReason_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("label");
    // clang-format off
    QTest::newRow("device")    << 0 << "swap"          << QVariant(0)           << "0x1107" << "device swap status information";
    QTest::newRow("interface") << 1 << "formatMapping" << QVariant(3)           << "0x120C" << "interface formatMapping information";
    QTest::newRow("screen")    << 2 << "freeze"        << QVariant(1)           << "0x1309" << "screen freeze information";
    QTest::newRow("layer")     << 3 << "window"        << QVariant(map("x", 5)) << "0x1405" << "layer window information";
    QTest::newRow("file")      << 4 << "general"       << QVariant(map("name", text("b"))) << "0xFA02" << "file general information";
    // clang-format on
}

void tst_SessionEdits::refusedEditShowsTheOldValueAndTheReason()
{
    QFETCH(int, model);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(QString, code);
    QFETCH(QString, label);
    QVERIFY(m_bench->addFault(qPrintable(QStringLiteral("status=8,count=1,code=") + code)));
    ObjectModel &edited = *models()[std::size_t(model)];
    const QModelIndex row = edited.index(0);
    const int role = edited.role(key.toLatin1());
    const QVariant before = row.data(role);

    QSignalSpy failed(&edited, &ObjectModel::editFailed);
    QVERIFY(edited.setData(row, value, role));
    QVERIFY(row.data(role) != before);
    QTRY_COMPARE(failed.size(), 1);
    QCOMPARE(failed[0][1].toString(), key);
    QCOMPARE(failed[0][2].toString(),
             QStringLiteral("wall 1: %1 was refused: the device is busy, or the object is in use.")
                 .arg(label));
    QCOMPARE(row.data(role), before);
    QCOMPARE(asText(onDevice(model, key)), asText(before));
}

/// The value that the device reported is a valid argument of the write that the handler uses.
void tst_SessionEdits::everyEditableKeyAcceptsItsOwnValue()
{
    int count = 0;
    for (ObjectModel *const model : models()) {
        QSignalSpy failed(model, &ObjectModel::editFailed);
        const auto names = model->roleNames();
        for (auto role = names.begin(); role != names.end(); ++role) {
            const QModelIndex row = model->index(0);
            if (role.key() != Qt::EditRole && model->setData(row, row.data(role.key()), role.key()))
                ++count;
        }
        QVERIFY(resultOf(m_bench->wall->callByName(text("Device.readDetails"))));
        QVERIFY(resultOf(m_bench->wall->modelUpdate()));
        for (const auto &failure : qAsConst(failed))
            QVERIFY2(!failure[2].toString().contains(QLatin1String("argument")),
                     qPrintable(failure[2].toString()));
    }
    QCOMPARE(count, 10 + 12 + 1 + 14 + 13);
}

void tst_SessionEdits::viewShowsTheEditUntilTheDeviceWasReadAgain()
{
    const QModelIndex row = m_layers->index(0);
    const int role = m_layers->role("window");
    QStringList shown;
    connect(m_layers.get(), &ObjectModel::dataChanged, this,
            [&] { shown << row.data(role).toMap().value(text("x")).toString(); });
    QVERIFY(m_layers->setData(row, map("x", 123), role));
    QVERIFY(resultOf(m_bench->wall->callByName(text("Device.readDetails"))));
    QVERIFY(resultOf(m_bench->wall->modelUpdate()));
    QCoreApplication::processEvents();
    QCOMPARE(row.data(role).toMap().value(text("x")).toInt(), 123);
    QVERIFY2(shown.count(text("123")) == shown.size(), qPrintable(shown.join(QLatin1Char(' '))));
}

void tst_SessionEdits::lostAnswerOfTheReadIsFollowedByTheValue()
{
    QVERIFY(m_bench->addFault("drop-request,code=0x1400,count=1"));
    QSignalSpy failed(m_layers.get(), &ObjectModel::editFailed);
    const QModelIndex row = m_layers->index(0);
    const int role = m_layers->role("window");
    QVERIFY(m_layers->setData(row, map("x", 66), role));
    QTRY_COMPARE(m_layers->layer(row)->detail().window.x, 66);
    QCOMPARE(row.data(role).toMap().value(text("x")).toInt(), 66);
    QTRY_VERIFY(m_bench->wall->isReady());
    QCOMPARE(failed.size(), 0);
}

void tst_SessionEdits::quickEditsSendTheLastValue()
{
    DeviceLog log;
    QSignalSpy failed(m_screens.get(), &ObjectModel::editFailed);
    const QModelIndex row = m_screens->index(0);
    const int role = m_screens->role("tbar");
    for (int percent = 1; percent <= 100; ++percent)
        QVERIFY(m_screens->setData(row, map("percent", percent), role));
    QTRY_COMPARE(int(m_screens->screen(row)->detail().tbar.percent), 100);
    QVERIFY(log.writes(0x130D).size() < 100);
    QVERIFY(log.writes(0x130D).last().contains(QLatin1String("\"percent\":100")));
    QCOMPARE(failed.size(), 0);
}

void tst_SessionEdits::deviceThatIsNotOpenIsNotEdited()
{
    QSignalSpy failed(m_screens.get(), &ObjectModel::editFailed);
    delete m_bench->wall;
    QVERIFY(m_screens->setData(m_screens->index(0), 1, m_screens->role("freeze")));
    QTRY_COMPARE(failed.size(), 1);
    QCOMPARE(failed[0][2].toString(), QStringLiteral("The device is not open."));
    QCOMPARE(m_screens->index(0).data(m_screens->role("freeze")).toInt(), 0);
}

void tst_SessionEdits::closedDeviceEndsItsEdits()
{
    QSignalSpy failed(m_screens.get(), &ObjectModel::editFailed);
    QVERIFY(m_bench->addFault("silent,code=0x1309,count=1"));
    QVERIFY(m_screens->setData(m_screens->index(0), 1, m_screens->role("freeze")));
    delete m_bench->wall;
    QTRY_COMPARE(failed.size(), 1);
    QCOMPARE(m_screens->index(0).data(m_screens->role("freeze")).toInt(), 0);
}

void tst_SessionEdits::handlerMayEndBeforeItsEdits()
{
    QVERIFY(m_screens->setData(m_screens->index(0), 1, m_screens->role("freeze")));
    m_screens->setEditHandler(nullptr);
    m_editor.reset();
    QTRY_COMPARE(int(m_screens->screen(m_screens->index(0))->detail().freeze), 1);
}

/// The model outlives its handler, as when both are destroyed one after the other.
void tst_SessionEdits::handlerThatEndsShowsTheValuesOfTheDevice()
{
    const QSignalSpy failed(m_screens.get(), &ObjectModel::editFailed);
    const int freeze = m_screens->role("freeze");
    QVERIFY(m_screens->setData(m_screens->index(0), 1, freeze));
    QCOMPARE(m_screens->index(0).data(freeze).toInt(), 1);
    m_editor.reset();
    QCOMPARE(m_screens->index(0).data(freeze).toInt(), 0);
    QCOMPARE(failed.size(), 0);
}

QTEST_GUILESS_MAIN(tst_SessionEdits)
#include "tst_sessionedits.moc"
