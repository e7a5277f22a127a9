#include <support/common/datatable.h>
#include <support/tavorobizmodel/modeltext.h>
#include <support/tavorobizmodel/storedmodel.h>

#include <QTemporaryDir>
#include <QtTest>

using namespace Tavoro;

/// Passes records in which no field has its default through the model and its store.
class tst_BizModelRecords : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFieldThatWasReadIsKept();
    void everyFieldIsRestoredInTheNextRun();
    void reportedStateIsRestoredInTheNextRun();
};

namespace {

/// The text of a record from the table of values, except that screens get a type that a mask of
/// types can name.
QString valueOf(const char *record)
{
    const auto rows = dataTable(QStringLiteral("recordvalues.tsv"));
    for (const QStringList &row : rows) {
        if (row.at(0) == QLatin1String("Tavoro::ProtoModel::") + QLatin1String(record))
            return QString(row.at(2)).replace(QStringLiteral(R"("screenType":-2)"),
                                              QStringLiteral(R"("screenType":2)"));
    }
    return {};
}

template <class Record>
Record decoded(const QString &text)
{
    Record record;
    std::string error;
    ajson::decodeRecord(text.toStdString(), record, error);
    return record;
}

const char *const detail = "Device::s_DeviceDetail";
const char *const interface = "Interface::s_InterfaceDetail";
const char *const screen = "Screen::s_ScreenFullDetail";
const char *const layer = "Layer::s_LayerFullDetail";
const char *const file = "File::s_FileDetail";

template <class Record>
void build(BizModel::Device &device, const char *record)
{
    QString error;
    device.initModelData(std::vector{decoded<Record>(valueOf(record))}, error);
}

/// A device with one object of each kind.
std::shared_ptr<BizModel::Device> fullDevice()
{
    auto device = ModelRecords::device();
    QString error;
    device->initModelData(decoded<ProtoModel::Device::s_DeviceDetail>(valueOf(detail)), error);
    build<ProtoModel::Interface::s_InterfaceDetail>(*device, interface);
    build<ProtoModel::File::s_FileDetail>(*device, file);
    build<ProtoModel::Screen::s_ScreenFullDetail>(*device, screen);
    build<ProtoModel::Layer::s_LayerFullDetail>(*device, layer);
    return device;
}

} // namespace

void tst_BizModelRecords::everyFieldThatWasReadIsKept()
{
    const ModelText held(*fullDevice());
    QVERIFY(!held.detail.isEmpty());
    QCOMPARE(held.detail, valueOf(detail));
    QCOMPARE(held.interfaces, QStringList(valueOf(interface)));
    QCOMPARE(held.screens, QStringList(valueOf(screen)));
    QCOMPARE(held.layers, QStringList(valueOf(layer)));
    QCOMPARE(held.files, QStringList(valueOf(file)));
}

void tst_BizModelRecords::everyFieldIsRestoredInTheNextRun()
{
    const QTemporaryDir folder;
    const QString store = folder.filePath(QStringLiteral("devices.sqlite"));
    const auto device = fullDevice();
    {
        const StoredModel model(store);
        model.save(device);
    }
    const StoredModel model(store);
    QVERIFY(model.onlyDevice());
    QCOMPARE(ModelText(*model.onlyDevice()).all(), ModelText(*device).all());
}

void tst_BizModelRecords::reportedStateIsRestoredInTheNextRun()
{
    const QTemporaryDir folder;
    const QString store = folder.filePath(QStringLiteral("devices.sqlite"));
    const auto device = fullDevice();
    device->setGenlockOnStatus({5, 6});
    device->updateInterfaceRelation({{1, 2, 3, 4}});
    device->updateDeviceGroupInfo({"hall", "h"});
    device->setPower({{7, 8, 9}});
    device->updateSubCard(
        {decoded<ProtoModel::Device::s_subcardBody>(valueOf("Device::s_subcardBody"))});
    device->interfaces().first().lock()->setColorDepth({8, 9});
    {
        const StoredModel model(store);
        model.save(device);
    }
    const StoredModel model(store);
    QCOMPARE(ModelText(*model.onlyDevice()).all(), ModelText(*device).all());
    QCOMPARE(model.onlyDevice()->findPower(7)->status, 9);
    QCOMPARE(model.onlyDevice()->findGroup("h")->groupName, std::string("hall"));
    QCOMPARE(model.onlyDevice()->deviceDetail().genlockSignal.status, 6);
}

QTEST_GUILESS_MAIN(tst_BizModelRecords)
#include "tst_bizmodelrecords.moc"
