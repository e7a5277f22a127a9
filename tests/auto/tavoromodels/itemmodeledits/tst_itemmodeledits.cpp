#include <support/tavorobizmodel/modelrecords.h>
#include <support/tavoromodels/modelmirror.h>

#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/deviceupdate.h>
#include <tavorobizmodel/screen.h>
#include <tavoromodels/devicesmodel.h>
#include <tavoromodels/edithandler.h>
#include <tavoromodels/filesmodel.h>
#include <tavoromodels/interfacesmodel.h>
#include <tavoromodels/layersmodel.h>
#include <tavoromodels/screensmodel.h>

#include <QJsonDocument>
#include <QSignalSpy>
#include <QtTest>

using namespace ModelRecords;
using namespace Tavoro;
using namespace Tavoro::Models;

namespace {

/// Records the edits, which the test ends.
class RecordingHandler : public EditHandler {
public:
    bool canEdit(ObjectKind, const QString &key) const override { return key != refusedKey; }
    void edit(const Edit &edit, Done done) override
    {
        edits.append(edit);
        pending.append(std::move(done));
    }

    QString lastRecord() const
    {
        return QString::fromUtf8(QJsonDocument(edits.last().record).toJson(QJsonDocument::Compact));
    }

    QString refusedKey;
    QList<Edit> edits;
    QList<Done> pending;
};

QVariantMap map(const char *key, const QVariant &value)
{
    return {{QString::fromLatin1(key), value}};
}

} // namespace

/// Edits of item models, which a handler carries out.
class tst_ItemModelEdits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void editSendsTheWholeRecordOfItsKey();
    void recordsOfAllKindsContainTheIdentity();
    void newValueIsShownUntilTheEditEnds();
    void failedEditShowsTheOldValueAgain();
    void valueOfTheDeviceIsShownAfterASuccess();
    void onlyTheLatestEditOfAKeyDecides();
    void editThatFailsAtOnceIsReported();
    void editOfARemovedObjectEndsSilently();
    void editMayEndAfterTheModel();
    void anotherHandlerEndsThePendingEdits();
    void whatCannotBeEditedIsRefused();
    void rowIsEditableIfItsNameIs();
};

void tst_ItemModelEdits::editSendsTheWholeRecordOfItsKey()
{
    const auto device = ModelRecords::device();
    RecordingHandler handler;
    ScreensModel model;
    model.setDevice(device);
    model.setEditHandler(&handler);
    QVERIFY(model.setData(model.index(0), map("time", 7), model.role("FTB")));
    QCOMPARE(handler.edits.size(), 1);
    QCOMPARE(handler.edits[0].device.lock().get(), device.get());
    QCOMPARE(handler.edits[0].kind, ObjectKind::Screen);
    QCOMPARE(handler.edits[0].key, QStringLiteral("FTB"));
    QCOMPARE(handler.lastRecord(),
             QStringLiteral(R"({"FTB":{"enable":0,"time":7},"screenId":0,"screenType":1})"));
    QVERIFY(model.setData(model.index(0), 1, model.role("freeze")));
    QCOMPARE(handler.lastRecord(), QStringLiteral(R"({"freeze":1,"screenId":0,"screenType":1})"));
    QVERIFY(model.setData(model.index(0), QStringLiteral("wall")));
    QCOMPARE(handler.lastRecord(),
             QStringLiteral(R"({"general":{"index":0,"name":"wall","nameGB2312":"N/A"},)"
                            R"("screenId":0,"screenType":1})"));
}

void tst_ItemModelEdits::recordsOfAllKindsContainTheIdentity()
{
    const auto device = ModelRecords::device();
    auto *const list = BizModel::DeviceList::instance();
    list->append(device);
    RecordingHandler handler;
    DevicesModel devices;
    InterfacesModel interfaces;
    LayersModel layers;
    FilesModel files;
    interfaces.setDevice(device);
    layers.setDevice(device);
    layers.setScene({0, 1}, 4);
    files.setDevice(device);
    for (ObjectModel *const model :
         std::initializer_list<ObjectModel *>{&devices, &interfaces, &layers, &files})
        model->setEditHandler(&handler);
    QVERIFY(devices.setData(devices.index(0), 1, devices.role("swap")));
    QCOMPARE(handler.lastRecord(), QStringLiteral(R"({"swap":1})"));
    QVERIFY(interfaces.setData(interfaces.index(0), 3, interfaces.role("formatMapping")));
    QCOMPARE(handler.lastRecord(),
             QStringLiteral(R"({"connectorId":2,"formatMapping":3,"slotId":1,"splitId":3})"));
    QVERIFY(layers.setData(layers.index(1), 50, layers.role("opacity")));
    QCOMPARE(handler.lastRecord(),
             QStringLiteral(R"({"layerIdenti":{"layerId":1,"layerType":1,"sceneType":4,)"
                            R"("screenId":0,"screenType":1},"opacity":50})"));
    QVERIFY(files.setData(files.index(0), QStringLiteral("a.png")));
    QCOMPARE(handler.lastRecord(),
             QStringLiteral(R"({"desFileId":5,"desFileType":2,"fileId":5,"fileType":2,)"
                            R"("general":{"name":"a.png"}})"));
    QCOMPARE(handler.edits[0].kind, ObjectKind::Device);
    QCOMPARE(handler.edits[1].kind, ObjectKind::Interface);
    QCOMPARE(handler.edits[2].kind, ObjectKind::Layer);
    QCOMPARE(handler.edits[3].kind, ObjectKind::File);
    list->remove(device);
}

void tst_ItemModelEdits::newValueIsShownUntilTheEditEnds()
{
    const auto device = ModelRecords::device();
    RecordingHandler handler;
    ScreensModel model;
    model.setDevice(device);
    model.setEditHandler(&handler);
    const ModelMirror mirror(model);
    QVERIFY(model.setData(model.index(0), QStringLiteral("wall")));
    QCOMPARE(model.index(0).data().toString(), QStringLiteral("wall"));
    QCOMPARE(model.index(0).data(Qt::EditRole).toString(), QStringLiteral("wall"));
    QCOMPARE(mirror.changes, (QStringList{QStringLiteral("display edit general")}));
    device->findScreen(1, 0).lock()->setScreenZelk({1, 0}); // a report meanwhile
    QCOMPARE(mirror.changes.last(), QStringLiteral("screenZeLK"));
    QCOMPARE(model.index(0).data().toString(), QStringLiteral("wall"));
    QVERIFY(mirror.isUpToDate());
}

void tst_ItemModelEdits::failedEditShowsTheOldValueAgain()
{
    const auto device = ModelRecords::device();
    RecordingHandler handler;
    ScreensModel model;
    model.setDevice(device);
    model.setEditHandler(&handler);
    const ModelMirror mirror(model);
    const QSignalSpy spy(&model, &ObjectModel::editFailed);
    QVERIFY(model.setData(model.index(0), 1, model.role("freeze")));
    QCOMPARE(model.index(0).data(model.role("freeze")).toInt(), 1);
    handler.pending.takeFirst()(QStringLiteral("The device is busy."));
    QCOMPARE(model.index(0).data(model.role("freeze")).toInt(), 0);
    QCOMPARE(mirror.changes, (QStringList{QStringLiteral("freeze"), QStringLiteral("freeze")}));
    QCOMPARE(mirror.faults, QStringList());
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy[0][0].toModelIndex().row(), 0);
    QCOMPARE(spy[0][1].toString(), QStringLiteral("freeze"));
    QCOMPARE(spy[0][2].toString(), QStringLiteral("The device is busy."));
}

void tst_ItemModelEdits::valueOfTheDeviceIsShownAfterASuccess()
{
    const auto device = ModelRecords::device();
    RecordingHandler handler;
    ScreensModel model;
    model.setDevice(device);
    model.setEditHandler(&handler);
    const ModelMirror mirror(model);
    const QSignalSpy spy(&model, &ObjectModel::editFailed);
    QVERIFY(model.setData(model.index(0), 60, model.role("freeze")));
    auto read = screen(1, 0, {{2, 0, 0}});
    read.freeze = 1; // the device limits the value
    QString error;
    QVERIFY(BizModel::updateScreens(*device, {read}, {0, 1}, error));
    QCOMPARE(model.index(0).data(model.role("freeze")).toInt(), 60);
    handler.pending.takeFirst()(QString());
    QCOMPARE(model.index(0).data(model.role("freeze")).toInt(), 1);
    QVERIFY(mirror.isUpToDate());
    QCOMPARE(spy.size(), 0);
}

void tst_ItemModelEdits::onlyTheLatestEditOfAKeyDecides()
{
    const auto device = ModelRecords::device();
    RecordingHandler handler;
    ScreensModel model;
    model.setDevice(device);
    model.setEditHandler(&handler);
    const int tbar = model.role("tbar");
    QVERIFY(model.setData(model.index(0), map("percent", 10), tbar));
    QVERIFY(model.setData(model.index(0), map("percent", 20), tbar));
    handler.pending.takeFirst()(QStringLiteral("replaced"));
    QCOMPARE(model.index(0).data(tbar).toMap(), map("percent", 20));
    handler.pending.takeFirst()(QString());
    QCOMPARE(model.index(0).data(tbar).toMap(), map("percent", 0));
}

void tst_ItemModelEdits::editThatFailsAtOnceIsReported()
{
    class RefusingHandler : public EditHandler {
    public:
        bool canEdit(ObjectKind, const QString &) const override { return true; }
        void edit(const Edit &, Done done) override { done(QStringLiteral("not connected")); }
    };
    const auto device = ModelRecords::device();
    RefusingHandler handler;
    ScreensModel model;
    model.setDevice(device);
    model.setEditHandler(&handler);
    const QSignalSpy spy(&model, &ObjectModel::editFailed);
    QVERIFY(model.setData(model.index(0), 1, model.role("freeze")));
    QCOMPARE(model.index(0).data(model.role("freeze")).toInt(), 0);
    QCOMPARE(spy.size(), 1);
}

void tst_ItemModelEdits::editOfARemovedObjectEndsSilently()
{
    const auto device = ModelRecords::device();
    RecordingHandler handler;
    ScreensModel model;
    model.setDevice(device);
    model.setEditHandler(&handler);
    const QSignalSpy spy(&model, &ObjectModel::editFailed);
    QVERIFY(model.setData(model.index(0), 1, model.role("freeze")));
    device->clearAll(true);
    QCOMPARE(model.rowCount(), 0);
    handler.pending.takeFirst()(QStringLiteral("gone"));
    QCOMPARE(spy.size(), 0);
}

void tst_ItemModelEdits::editMayEndAfterTheModel()
{
    const auto device = ModelRecords::device();
    RecordingHandler handler;
    {
        ScreensModel model;
        model.setDevice(device);
        model.setEditHandler(&handler);
        QVERIFY(model.setData(model.index(0), 1, model.role("freeze")));
    }
    handler.pending.takeFirst()(QStringLiteral("late"));
}

void tst_ItemModelEdits::anotherHandlerEndsThePendingEdits()
{
    const auto device = ModelRecords::device();
    RecordingHandler handler;
    ScreensModel model;
    model.setDevice(device);
    model.setEditHandler(&handler);
    const ModelMirror mirror(model);
    QVERIFY(model.setData(model.index(0), 1, model.role("freeze")));
    QVERIFY(model.setData(model.index(1), 1, model.role("freeze")));
    model.setEditHandler(&handler);
    QCOMPARE(model.index(0).data(model.role("freeze")).toInt(), 1);
    model.setEditHandler(nullptr);
    QCOMPARE(model.index(0).data(model.role("freeze")).toInt(), 0);
    QCOMPARE(model.index(1).data(model.role("freeze")).toInt(), 0);
    QVERIFY(mirror.isUpToDate());
    handler.pending.takeFirst()(QString());
    QCOMPARE(model.index(0).data(model.role("freeze")).toInt(), 0);
}

void tst_ItemModelEdits::whatCannotBeEditedIsRefused()
{
    const auto device = ModelRecords::device();
    ScreensModel model;
    model.setDevice(device);
    QVERIFY(!model.setData(model.index(0), 1, model.role("freeze"))); // no handler
    RecordingHandler handler;
    handler.refusedKey = QStringLiteral("mosaic");
    model.setEditHandler(&handler);
    QVERIFY(!model.setData(model.index(0), QVariantMap(), model.role("mosaic")));
    QVERIFY(!model.setData(model.index(0), true, model.role("online")));
    QVERIFY(!model.setData(model.index(0), map("colour", 1), model.role("FTB")));
    QVERIFY(!model.setData(model.index(0), 1, model.role("FTB")));
    QVERIFY(!model.setData(model.index(0), QStringLiteral("on"), model.role("freeze")));
    QVERIFY(!model.setData({}, 1, model.role("freeze")));
    QCOMPARE(handler.edits.size(), 0);
}

void tst_ItemModelEdits::rowIsEditableIfItsNameIs()
{
    const auto device = ModelRecords::device();
    RecordingHandler handler;
    ScreensModel model;
    model.setDevice(device);
    QVERIFY(!model.flags(model.index(0)).testFlag(Qt::ItemIsEditable));
    model.setEditHandler(&handler);
    QVERIFY(model.flags(model.index(0)).testFlag(Qt::ItemIsEditable));
    handler.refusedKey = QStringLiteral("general");
    QVERIFY(!model.flags(model.index(0)).testFlag(Qt::ItemIsEditable));
    QVERIFY(!model.setData(model.index(0), QStringLiteral("wall")));
}

QTEST_GUILESS_MAIN(tst_ItemModelEdits)
#include "tst_itemmodeledits.moc"
