#include <support/tavorobizmodel/modelrecords.h>
#include <support/tavoromodels/modelmirror.h>

#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/deviceupdate.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/mvrscreen.h>
#include <tavorobizmodel/screen.h>
#include <tavoromodels/devicesmodel.h>
#include <tavoromodels/filesmodel.h>
#include <tavoromodels/interfacesmodel.h>
#include <tavoromodels/layersmodel.h>
#include <tavoromodels/screensmodel.h>

#include <QAbstractItemModelTester>
#include <QtTest>

using namespace ModelRecords;
using namespace Tavoro;
using namespace Tavoro::Models;

namespace {

/// Returns the value of a role by its name, as QML reads it.
QVariant value(const ObjectModel &model, int row, const char *role)
{
    return model.data(model.index(row), model.role(role));
}

QStringList displays(const QAbstractItemModel &model)
{
    QStringList texts;
    for (int i = 0; i < model.rowCount(); ++i)
        texts << model.index(i, 0).data().toString();
    return texts;
}

s_LayerFullDetail namedLayer(quint8 id, int zorder, int scene = 4)
{
    auto detail = layer(1, 0, id);
    detail.layerIdenti.sceneType = scene;
    detail.zorder = zorder;
    detail.general.name = std::string(1, static_cast<char>('a' + id));
    return detail;
}

} // namespace

/// The rows and the values of the item models.
class tst_ItemModels : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void rolesAreTheKeysOfTheRecord();
    void recordsAreMapsAndListsOfValues();
    void devicesAreThoseOfTheList();
    void interfacesShowTheirSignal();
    void interfaceOfABrokenCardIsOffline();
    void interfacesAreRestrictedToOneKind();
    void screensShowWhichOnesAreActive();
    void layersAreInStackingOrder();
    void raisedLayerIsMovedOnce();
    void layerShowsTheSignalOfItsSource();
    void fileShowsTheProgressOfItsTransfer();
    void onlyChangedRolesAreSignalled();
    void nameFallsBackToNumbers();
    void decorationsAreMadeFromNames();
    void modelIsEmptyWithoutItsDevice();
    void anotherDeviceReplacesTheRows();
    void silentSynchronisationIsShownByRefresh();
    void slotThatChangesTheModelAgainLeavesItUpToDate();
};

void tst_ItemModels::rolesAreTheKeysOfTheRecord()
{
    const ScreensModel model;
    QStringList names;
    for (const QByteArray &name : model.roleNames())
        names << QString::fromLatin1(name);
    names.sort();
    QCOMPARE(names.join(QLatin1Char(' ')),
             QStringLiteral("FTB HDR PGMEdit active backgroundColor decoration display edit freeze "
                            "general genlockStatus imageQuality layout mosaic online physicalSize "
                            "screenId screenType screenZeLK selected signal switchEffect tbar "
                            "testPattern"));
    QCOMPARE(model.role("display"), int(Qt::DisplayRole));
    QCOMPARE(model.role("decoration"), int(Qt::DecorationRole));
    QVERIFY(model.role("tbar") > Qt::UserRole);
    QCOMPARE(model.role("binary"), -1);
}

void tst_ItemModels::recordsAreMapsAndListsOfValues()
{
    const auto device = ModelRecords::device();
    ScreensModel model;
    model.setDevice(device);
    QCOMPARE(model.rowCount(), 3);
    QCOMPARE(value(model, 0, "screenType").toInt(), 1);
    QCOMPARE(value(model, 0, "FTB"),
             QVariant(QVariantMap{{QStringLiteral("enable"), 0}, {QStringLiteral("time"), 0}}));
    const QVariantList outputs =
        value(model, 0, "mosaic").toMap().value(QStringLiteral("outputs")).toList();
    QCOMPARE(outputs.size(), 1);
    const QVariantMap id = outputs[0].toMap().value(QStringLiteral("interfaceId")).toMap();
    QCOMPARE(id.value(QStringLiteral("slotId")).toInt(), 2);
    QCOMPARE(model.screen(model.index(2)).get(), device->findScreen(4, 1).lock().get());
    QVERIFY(!model.screen({}));
}

void tst_ItemModels::devicesAreThoseOfTheList()
{
    auto *const list = BizModel::DeviceList::instance();
    DevicesModel model;
    const QAbstractItemModelTester tester(&model);
    const ModelMirror mirror(model);
    const auto first = ModelRecords::device(1);
    const auto second = ModelRecords::device(2);
    list->append(first);
    list->append(second);
    second->setName(QString());
    QCOMPARE(displays(model), (QStringList{QStringLiteral("box"), QStringLiteral("192.0.2.2")}));
    QCOMPARE(value(model, 0, "mac").toString(), QStringLiteral("000000000001"));
    QCOMPARE(value(model, 0, "online").toBool(), false);
    first->setDeviceOnlineFlag(true);
    QCOMPARE(mirror.changes.last(), QStringLiteral("online"));
    QCOMPARE(value(model, 0, "online").toBool(), true);
    QCOMPARE(model.device(model.index(1)).get(), second.get());
    list->remove(first);
    list->remove(second);
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(mirror.isUpToDate());
    QCOMPARE(mirror.faults, QStringList());
}

void tst_ItemModels::interfacesShowTheirSignal()
{
    const auto device = ModelRecords::device();
    InterfacesModel model;
    model.setDevice(device);
    const ModelMirror mirror(model);
    QCOMPARE(value(model, 0, "signal").toBool(), false);
    device->findInterface({1, 2, 3}).lock()->setActualTiming(timing(1280, 720));
    QCOMPARE(value(model, 0, "signal").toBool(), true);
    QCOMPARE(mirror.changes, (QStringList{QStringLiteral("actualTiming signal")}));
    QCOMPARE(mirror.faults, QStringList());
}

void tst_ItemModels::interfaceOfABrokenCardIsOffline()
{
    const auto device = ModelRecords::device();
    device->setDeviceOnlineFlag(true);
    InterfacesModel model;
    model.setDevice(device);
    QCOMPARE(value(model, 0, "online").toBool(), true); // there is no record of its card
    QCOMPARE(value(model, 1, "online").toBool(), false);
    const ModelMirror mirror(model);
    device->updateSubCard({{2, 0, 0, 0, 1, {}}});
    QCOMPARE(value(model, 1, "online").toBool(), true);
    QCOMPARE(mirror.changes, (QStringList{QStringLiteral("online")}));
}

void tst_ItemModels::interfacesAreRestrictedToOneKind()
{
    const auto device = ModelRecords::device();
    InterfacesModel model;
    model.setInterfaceType(1);
    model.setDevice(device);
    const QAbstractItemModelTester tester(&model);
    QCOMPARE(model.rowCount(), 0);
    device->findInterface({2, 0, 0}).lock()->setGeneral({1, "camera", "N/A"});
    QCOMPARE(displays(model), (QStringList{QStringLiteral("camera")}));
    QCOMPARE(value(model, 0, "decoration").toString(), QStringLiteral("input"));
    model.setInterfaceType(0);
    QCOMPARE(model.rowCount(), 2);
}

void tst_ItemModels::screensShowWhichOnesAreActive()
{
    const auto device = ModelRecords::device();
    ScreensModel model;
    model.setDevice(device);
    const ModelMirror mirror(model);
    device->setActivedScreen(device->findScreen(3, 0));
    QCOMPARE(value(model, 1, "active").toBool(), true);
    QCOMPARE(value(model, 1, "decoration").toString(), QStringLiteral("multiviewer"));
    QCOMPARE(mirror.changes, (QStringList{QStringLiteral("active")}));
    model.setScreenTypes(6);
    QCOMPARE(model.rowCount(), 1);
    QVERIFY(mirror.isUpToDate());
}

void tst_ItemModels::layersAreInStackingOrder()
{
    const auto device = ModelRecords::device();
    LayersModel model;
    model.setDevice(device);
    model.setScene({0, 1}, 4);
    QString error;
    const std::vector layers{namedLayer(0, 5), namedLayer(1, 2), namedLayer(2, 3, 2),
                             namedLayer(3, 2)};
    QVERIFY(BizModel::updateLayers(*device, layers, {}, error));
    QCOMPARE(displays(model),
             (QStringList{QStringLiteral("b"), QStringLiteral("d"), QStringLiteral("a")}));
    model.setScene({0, 1}, 2);
    QCOMPARE(displays(model), (QStringList{QStringLiteral("c")}));
    QCOMPARE(int(model.layer(model.index(0))->identity().layerId), 2);
}

void tst_ItemModels::raisedLayerIsMovedOnce()
{
    const auto device = ModelRecords::device();
    LayersModel model;
    model.setDevice(device);
    model.setScene({0, 1}, 4);
    QString error;
    std::vector layers{namedLayer(0, 0), namedLayer(1, 1), namedLayer(2, 2), namedLayer(3, 3)};
    QVERIFY(BizModel::updateLayers(*device, layers, {}, error));
    const QAbstractItemModelTester tester(&model);
    const ModelMirror mirror(model);
    const QPersistentModelIndex selected = model.index(0);
    layers[0].zorder = 9;
    QVERIFY(BizModel::updateLayers(*device, layers, {}, error));
    QCOMPARE(displays(model).join(QString()), QStringLiteral("bcda"));
    QCOMPARE(selected.row(), 3);
    QCOMPARE(mirror.moves, 1);
    QCOMPARE(mirror.insertions + mirror.removals, 0);
    QCOMPARE(mirror.changes, (QStringList{QStringLiteral("zorder")}));
}

void tst_ItemModels::layerShowsTheSignalOfItsSource()
{
    const auto device = ModelRecords::device();
    LayersModel model;
    model.setDevice(device);
    model.setScene({0, 1}, 4);
    const ModelMirror mirror(model);
    QCOMPARE(value(model, 1, "signal").toBool(), false);
    QCOMPARE(value(model, 1, "sourceName").toString(), QStringLiteral("1/2/3"));
    const auto input = device->findInterface({1, 2, 3}).lock();
    input->setActualTiming(timing(1280, 720));
    QCOMPARE(value(model, 0, "signal").toBool(), false);
    QCOMPARE(value(model, 1, "signal").toBool(), true);
    input->setGeneral({1, "camera", "N/A"});
    QCOMPARE(mirror.changes, (QStringList{QStringLiteral("signal"), QStringLiteral("sourceName")}));
    QString error;
    QVERIFY(BizModel::updateInterfaces(*device, {}, {}, error));
    QCOMPARE(mirror.changes.last(), QStringLiteral("signal sourceName"));
    QCOMPARE(value(model, 1, "signal").toBool(), false);
}

void tst_ItemModels::fileShowsTheProgressOfItsTransfer()
{
    const auto device = ModelRecords::device();
    FilesModel model;
    model.setDevice(device);
    const ModelMirror mirror(model);
    ProtoModel::File::s_FileTransPercent progress;
    progress.percent = 40;
    device->files().first().lock()->setTransferProgress(progress);
    QCOMPARE(value(model, 0, "transfer").toMap().value(QStringLiteral("percent")).toInt(), 40);
    QCOMPARE(value(model, 0, "decoration").toString(), QStringLiteral("logo"));
    QCOMPARE(mirror.changes, (QStringList{QStringLiteral("transfer")}));
    model.setFileType(0);
    QCOMPARE(model.rowCount(), 0);
}

void tst_ItemModels::onlyChangedRolesAreSignalled()
{
    const auto device = ModelRecords::device();
    device->setActivedScreen(device->findScreen(1, 0));
    device->setActivedScreen(device->findScreen(3, 0));
    ScreensModel model;
    model.setDevice(device);
    const ModelMirror mirror(model);
    auto changed = screen(1, 0, {{2, 0, 0}});
    changed.freeze = 1;
    changed.tbar.percent = 50;
    QString error;
    QVERIFY(BizModel::updateScreens(*device, {changed}, {0, 1}, error));
    changed.general.name = "wall";
    QVERIFY(BizModel::updateScreens(*device, {changed}, {0, 1}, error));
    device->findScreen(1, 0).lock()->setScreenZelk({0, 0}); // as before
    QCOMPARE(mirror.changes,
             (QStringList{QStringLiteral("freeze tbar"), QStringLiteral("display edit general")}));
    QCOMPARE(mirror.faults, QStringList());
}

void tst_ItemModels::nameFallsBackToNumbers()
{
    const auto device = ModelRecords::device();
    InterfacesModel interfaces;
    interfaces.setDevice(device);
    QCOMPARE(displays(interfaces), (QStringList{QStringLiteral("1/2/3"), QStringLiteral("2/0/0")}));
    QCOMPARE(interfaces.index(0).data(Qt::EditRole).toString(), QStringLiteral("N/A"));
    ScreensModel screens;
    screens.setDevice(device);
    QCOMPARE(displays(screens),
             (QStringList{QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("1")}));
}

void tst_ItemModels::decorationsAreMadeFromNames()
{
    const auto device = ModelRecords::device();
    ScreensModel model;
    model.setDevice(device);
    const ModelMirror mirror(model);
    model.setDecorations([](const QString &name) { return QVariant(name.toUpper()); });
    QCOMPARE(model.index(0).data(Qt::DecorationRole).toString(), QStringLiteral("SCREEN"));
    QVERIFY(mirror.isUpToDate());
}

void tst_ItemModels::modelIsEmptyWithoutItsDevice()
{
    auto device = ModelRecords::device();
    ScreensModel model;
    const QAbstractItemModelTester tester(&model);
    model.setDevice(device);
    QCOMPARE(model.rowCount(), 3);
    device.reset();
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(model.device().expired());
}

void tst_ItemModels::anotherDeviceReplacesTheRows()
{
    const auto first = ModelRecords::device(1);
    const auto second = ModelRecords::device(2);
    ScreensModel model;
    model.setDevice(first);
    const ModelMirror mirror(model);
    model.setDevice(second);
    QVERIFY(mirror.isUpToDate());
    QCOMPARE(model.screen(model.index(0)).get(), second->findScreen(1, 0).lock().get());
    first->findScreen(1, 0).lock()->setScreenZelk({1, 1});
    first->clearAll(true);
    QCOMPARE(mirror.changes, QStringList());
    QCOMPARE(model.rowCount(), 3);
    QCOMPARE(mirror.faults, QStringList());
}

void tst_ItemModels::silentSynchronisationIsShownByRefresh()
{
    const auto device = ModelRecords::device();
    ScreensModel model;
    model.setDevice(device);
    const QAbstractItemModelTester tester(&model);
    const ModelMirror mirror(model);
    device->blockSignals(true);
    QString error;
    QVERIFY(device->initModelData(std::vector{screen(1, 4)}, error));
    device->blockSignals(false);
    QCOMPARE(model.rowCount(), 3);
    model.refresh();
    QCOMPARE(displays(model), (QStringList{QStringLiteral("4")}));
    QVERIFY(mirror.isUpToDate());
}

void tst_ItemModels::slotThatChangesTheModelAgainLeavesItUpToDate()
{
    const auto first = ModelRecords::device(1);
    const auto second = ModelRecords::device(2);
    const auto third = ModelRecords::device(3);
    ScreensModel model;
    model.setDevice(first);
    const QAbstractItemModelTester tester(&model);
    const ModelMirror mirror(model);
    connect(&model, &QAbstractItemModel::rowsRemoved, &model, [&] { model.setDevice(third); });
    model.setDevice(second);
    QCOMPARE(model.rowCount(), 3);
    QCOMPARE(model.screen(model.index(0)).get(), third->findScreen(1, 0).lock().get());
    QVERIFY(mirror.isUpToDate());
}

QTEST_GUILESS_MAIN(tst_ItemModels)
#include "tst_itemmodels.moc"
