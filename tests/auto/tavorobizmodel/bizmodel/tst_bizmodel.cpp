#include <support/tavorobizmodel/modelrecords.h>

#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/mvrscreen.h>
#include <tavorobizmodel/screen.h>

#include <QtTest>

using namespace ModelRecords;
using namespace Tavoro;

namespace {

constexpr auto logo = BizModel::Enum::File::Logo;

std::shared_ptr<BizModel::MVRScreen> multiviewer(const BizModel::Device &device, quint8 id)
{
    return std::dynamic_pointer_cast<BizModel::MVRScreen>(device.findScreen(3, id).lock());
}

} // namespace

/// The objects of a device, how they are found, and what they know of each other.
class tst_BizModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void objectsAreFoundByEachPartOfTheirIdentity();
    void missingObjectsGiveEmptyPointers();
    void recordsOfTheDeviceAreFoundByNumber();
    void powersAndGenlocksAreReplacedAsAWhole();
    void slowCommandsHaveTheirOwnTimeout();
    void screensAreChosenByTheBitsOfTheirTypes();
    void onlyMultiviewerScreensCastToIt();
    void layerKnowsItsScreenAndItsSource();
    void screenKnowsItsLayersAndItsOutputs();
    void interfaceKnowsItsScreenAndTheLayersThatShowIt();
    void objectsThatOutliveTheirDeviceHaveNoRelations();

    void clearingTheDeviceClearsTheActiveScreen();
    void activeScreenIsAlwaysOneOfTheDevice();
    void multiviewerScreenBecomesTheActiveMultiviewer();
    void layoutOfMultiviewerOutlivesClearing();
    void layoutOfNewMultiviewerIsTheDefault();
    void clearingEverythingForgetsLayouts();
    void clearingEmptiesTheObjects();
};

void tst_BizModel::objectsAreFoundByEachPartOfTheirIdentity()
{
    const auto device = ModelRecords::device();
    QVERIFY(device->findInterface({1, 2, 3}).lock());
    QVERIFY(device->findScreen(4, 1).lock());
    QVERIFY(device->findFile(logo, 5).lock());
    const auto layer = device->findLayer(ModelRecords::layer(1, 0, 1).layerIdenti).lock();
    QVERIFY(layer);
    QCOMPARE(int(layer->identity().layerId), 1);
    QCOMPARE(device->interfaces().size(), 2);
    QCOMPARE(device->layers().size(), 2);
    QCOMPARE(device->files().first().lock()->detail().binary, std::string("a\0b", 3));
}

void tst_BizModel::missingObjectsGiveEmptyPointers()
{
    const auto device = ModelRecords::device();
    for (const s_InterfaceID &id : {s_InterfaceID{0, 2, 3}, {1, 0, 3}, {1, 2, 0}})
        QVERIFY(device->findInterface(id).expired());
    QVERIFY(device->findScreen(1, 1).expired());
    QVERIFY(device->findScreen(2, 0).expired());
    QVERIFY(device->findFile(logo, 4).expired());
    QVERIFY(device->findFile(BizModel::Enum::File::Background, 5).expired());
    auto identity = ModelRecords::layer(1, 0, 1).layerIdenti;
    identity.sceneType = 2;
    QVERIFY(device->findLayer(identity).expired());
    QVERIFY(!device->findSubcard(1));
    QVERIFY(!device->findPower(0));
    QVERIFY(!device->findGroup("g"));
}

void tst_BizModel::recordsOfTheDeviceAreFoundByNumber()
{
    const auto device = ModelRecords::device();
    device->setPower({{7, 1, 2}});
    device->updateDeviceGroupInfo({"left", "g"});
    device->updateDeviceGroupInfo({"right", "g"});
    QCOMPARE(device->findSubcard(2)->slotId, 2);
    QCOMPARE(device->findPower(7)->status, 2);
    QCOMPARE(device->findGroup("g")->groupName, std::string("right"));
    QCOMPARE(device->deviceDetail().groupInfos.size(), std::size_t(1));
    QCOMPARE(device->deviceDetail().subcards.size(), std::size_t(2));
}

void tst_BizModel::powersAndGenlocksAreReplacedAsAWhole()
{
    const auto device = ModelRecords::device();
    device->setPower({{7, 1, 2}, {8, 1, 2}});
    device->setPower({{8, 0, 0}});
    QVERIFY(!device->findPower(7));
    QCOMPARE(device->deviceDetail().powers.size(), std::size_t(1));
    QCOMPARE(device->findPower(8)->status, 0);

    ProtoModel::Screen::s_ScreenGenlockBody genlock;
    genlock.screenType = 1;
    genlock.genlockSignal.status = 5;
    device->setScreenGenlocks({genlock});
    QCOMPARE(device->findScreen(1, 0).lock()->genlockStatus(), 5);
    device->setScreenGenlocks({});
    QCOMPARE(device->findScreen(1, 0).lock()->genlockStatus(), 0);
    QVERIFY(device->screenGenlocks().empty());
}

void tst_BizModel::slowCommandsHaveTheirOwnTimeout()
{
    const auto device = ModelRecords::device();
    QStringList table;
    const auto &timeouts = device->deviceConfig().timeouts;
    for (const auto &row : timeouts)
        table << QStringLiteral("%1 %2: %3")
                     .arg(row->BC, 0, 16)
                     .arg(row->FC, 0, 16)
                     .arg(row->timeout);
    QCOMPARE(table.join(QStringLiteral(", ")),
             QStringLiteral("11 2: 20000, 12 0: 100000, 13 e: 15000, fc 3: 200000"));
    QCOMPARE(device->deviceConfig().defaultTimeout, 5000u);
}

void tst_BizModel::screensAreChosenByTheBitsOfTheirTypes()
{
    const auto device = ModelRecords::device();
    const auto types = [&](int mask) {
        QList<int> list;
        const auto screens = device->screens(mask);
        for (const auto &screen : screens)
            list.append(screen.lock()->screenType());
        return list;
    };
    QCOMPARE(types(6), QList<int>{1});
    QCOMPARE(types(8), QList<int>{3});
    QCOMPARE(types(30), (QList<int>{1, 3, 4}));
    QCOMPARE(types(0), QList<int>());
}

void tst_BizModel::onlyMultiviewerScreensCastToIt()
{
    const auto device = ModelRecords::device();
    QVERIFY(multiviewer(*device, 0));
    QVERIFY(!std::dynamic_pointer_cast<BizModel::MVRScreen>(device->findScreen(1, 0).lock()));
}

void tst_BizModel::layerKnowsItsScreenAndItsSource()
{
    const auto device = ModelRecords::device();
    const auto layers = device->layers();
    QCOMPARE(layers[1].lock()->screen().lock(), device->findScreen(1, 0).lock());
    QCOMPARE(layers[1].lock()->source().lock(), device->findInterface({1, 2, 3}).lock());
    QVERIFY(layers[0].lock()->source().expired());
    QCOMPARE(layers[0].lock()->device().lock(), device);
}

void tst_BizModel::screenKnowsItsLayersAndItsOutputs()
{
    const auto device = ModelRecords::device();
    const auto screen = device->findScreen(1, 0).lock();
    QCOMPARE(screen->layers().size(), 2);
    QCOMPARE(screen->layers().last().lock(), device->layers().last().lock());
    QCOMPARE(screen->outputs().size(), 1);
    QCOMPARE(screen->outputs().first().lock(), device->findInterface({2, 0, 0}).lock());
    QVERIFY(device->findScreen(4, 1).lock()->layers().isEmpty());
}

void tst_BizModel::interfaceKnowsItsScreenAndTheLayersThatShowIt()
{
    const auto device = ModelRecords::device();
    const auto input = device->findInterface({1, 2, 3}).lock();
    const auto output = device->findInterface({2, 0, 0}).lock();
    QCOMPARE(output->screen().lock(), device->findScreen(1, 0).lock());
    QVERIFY(input->screen().expired());
    QCOMPARE(input->layers().size(), 1);
    QVERIFY(output->layers().isEmpty());
}

void tst_BizModel::objectsThatOutliveTheirDeviceHaveNoRelations()
{
    auto device = ModelRecords::device();
    const auto screen = device->findScreen(1, 0).lock();
    const auto layer = device->layers().last().lock();
    const auto interface = device->findInterface({2, 0, 0}).lock();
    device.reset();
    QVERIFY(screen->layers().isEmpty());
    QVERIFY(screen->outputs().isEmpty());
    QCOMPARE(screen->genlockStatus(), 0);
    QVERIFY(layer->source().expired());
    QVERIFY(layer->screen().expired());
    QVERIFY(interface->screen().expired());
    screen->setScreenZelk({1, 1});
    interface->updateLayerInputCrop();
    QCOMPARE(screen->detail().screenZeLK.enable, 1);
}

void tst_BizModel::clearingTheDeviceClearsTheActiveScreen()
{
    const auto device = ModelRecords::device();
    QVERIFY(device->activedScreen().expired());
    device->setActivedScreen(device->findScreen(1, 0));
    QCOMPARE(device->activedScreen().lock(), device->findScreen(1, 0).lock());
    device->clearAll(true);
    QVERIFY(device->activedScreen().expired());
}

void tst_BizModel::activeScreenIsAlwaysOneOfTheDevice()
{
    const auto device = ModelRecords::device();
    const auto held = device->findScreen(1, 0).lock();
    const auto heldMultiviewer = multiviewer(*device, 0);
    device->setActivedScreen(held);
    device->setActivedScreen(heldMultiviewer);
    device->clearAll(true);
    QVERIFY(device->activedScreen().expired());
    QVERIFY(device->activedMVRScreen().expired());

    QString error;
    device->initModelData(std::vector{screen(1, 0), screen(3, 0)}, error);
    device->setActivedScreen(held); // an object from before
    QVERIFY(device->activedScreen().expired());
    const auto current = device->findScreen(1, 0).lock();
    device->setActivedScreen(current);
    device->initModelData(std::vector{screen(1, 0), screen(3, 0)}, error);
    QVERIFY(device->activedScreen().expired());
}

void tst_BizModel::multiviewerScreenBecomesTheActiveMultiviewer()
{
    const auto device = ModelRecords::device();
    device->setActivedScreen(device->findScreen(1, 0));
    device->setActivedScreen(device->findScreen(3, 0));
    QCOMPARE(device->activedMVRScreen().lock(), multiviewer(*device, 0));
    QCOMPARE(device->activedScreen().lock(), device->findScreen(1, 0).lock());
}

void tst_BizModel::layoutOfMultiviewerOutlivesClearing()
{
    const auto device = ModelRecords::device();
    multiviewer(*device, 0)->setRowColSpan({6, 3});
    device->clearAll(true);
    QString error;
    QVERIFY(device->initModelData(std::vector{screen(3, 0)}, error));
    QCOMPARE(multiviewer(*device, 0)->rowColSpan(), QSize(6, 3));
}

void tst_BizModel::layoutOfNewMultiviewerIsTheDefault()
{
    const auto device = ModelRecords::device();
    multiviewer(*device, 0)->setRowColSpan({6, 3});
    QString error;
    QVERIFY(device->initModelData(std::vector{screen(3, 0), screen(3, 1)}, error));
    QCOMPARE(multiviewer(*device, 1)->rowColSpan(), QSize(4, 4));
}

void tst_BizModel::clearingEverythingForgetsLayouts()
{
    const auto device = ModelRecords::device();
    multiviewer(*device, 0)->setRowColSpan({6, 3});
    device->clearAll(false);
    QString error;
    QVERIFY(device->initModelData(std::vector{screen(3, 0)}, error));
    QCOMPARE(multiviewer(*device, 0)->rowColSpan(), QSize(4, 4));
}

void tst_BizModel::clearingEmptiesTheObjects()
{
    const auto device = ModelRecords::device();
    const auto screen = device->findScreen(1, 0);
    device->clearAll(true);
    QVERIFY(screen.expired());
    QVERIFY(device->interfaces().isEmpty());
    QVERIFY(device->screens(30).isEmpty());
    QVERIFY(device->layers().isEmpty());
    QVERIFY(device->files().isEmpty());
    QCOMPARE(device->name(), QStringLiteral("box"));
}

QTEST_GUILESS_MAIN(tst_BizModel)
#include "tst_bizmodel.moc"
