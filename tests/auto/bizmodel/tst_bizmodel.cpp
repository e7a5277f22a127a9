#include "modelrecords.h"

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

/// What a device is built of, how its objects are found, and what is wrong in its data.
class tst_BizModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void objectsAreFoundByEachPartOfTheirIdentity();
    void objectsThatAreNotThereGiveEmptyPointers();
    void recordsOfTheDeviceAreFoundByNumber();
    void screensAreChosenByTheBitsOfTheirTypes();
    void onlyMultiviewerScreensCastToIt();
    void layerKnowsItsScreenAndItsSource();
    void screenKnowsItsLayersAndItsOutputs();
    void interfaceKnowsItsScreenAndTheLayersThatShowIt();
    void objectsThatOutliveTheirDeviceKnowNothingMore();

    void activeScreenGoesWithItsScreen();
    void multiviewerScreenBecomesTheActiveMultiviewer();
    void layoutOfMultiviewerOutlivesClearing();
    void layoutOfNewMultiviewerIsTheDefault();
    void clearingEverythingForgetsLayouts();
    void clearingEmptiesTheObjects();

    void soundDataLeaveTheErrorAlone();
    void identityThatIsThereTwiceIsToldAndTheFirstTaken();
    void outputThatIsNotThereIsToldAndTheScreenTaken();
    void layerOnAbsentScreenIsToldAndLeftOut();
    void manyFaultsAreCounted();
    void reportedSlotsAreTakenFromTheDetail();
    void slotThatIsNotThereIsTold();

    void cropFollowsTheTimingOfTheInterface();
    void cropStaysWithoutASignal();
    void cropIsRoundedToTheNearestPixel();
    void ownCropOfTheInterfaceFollowsToo();
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

void tst_BizModel::objectsThatAreNotThereGiveEmptyPointers()
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

void tst_BizModel::objectsThatOutliveTheirDeviceKnowNothingMore()
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

void tst_BizModel::activeScreenGoesWithItsScreen()
{
    const auto device = ModelRecords::device();
    QVERIFY(device->activedScreen().expired());
    device->setActivedScreen(device->findScreen(1, 0));
    QCOMPARE(device->activedScreen().lock(), device->findScreen(1, 0).lock());
    device->clearAll(true);
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

void tst_BizModel::soundDataLeaveTheErrorAlone()
{
    const auto device = ModelRecords::device();
    QString error = QStringLiteral("from before");
    QVERIFY(device->initModelData(s_DeviceDetail(), error));
    QVERIFY(device->initModelData(std::vector{interface({2, 0, 0})}, error));
    QVERIFY(device->initModelData(std::vector{screen(1, 0, {{2, 0, 0}})}, error));
    QVERIFY(device->initModelData(std::vector{layer(1, 0, 0, 0x090909)}, error));
    QVERIFY(device->initModelData(std::vector<s_FileDetail>(), error));
    QCOMPARE(error, QStringLiteral("from before"));
}

void tst_BizModel::identityThatIsThereTwiceIsToldAndTheFirstTaken()
{
    const auto device = ModelRecords::device();
    QString error;
    QVERIFY(!device->initModelData(
        std::vector{interface({1, 0, 0}, "first"), interface({1, 0, 0}, "second")}, error));
    QCOMPARE(error, QStringLiteral("Interface 1/0/0 is there twice."));
    QCOMPARE(device->interfaces().size(), 1);
    QCOMPARE(device->findInterface({1, 0, 0}).lock()->detail().general.name, std::string("first"));

    QVERIFY(!device->initModelData(std::vector{file(2, 5), file(2, 5)}, error));
    QCOMPARE(error, QStringLiteral("File 5 of type 2 is there twice."));
    QVERIFY(!device->initModelData(std::vector{screen(1, 0), screen(1, 0)}, error));
    QCOMPARE(error, QStringLiteral("Screen 0 of type 1 is there twice."));
    QVERIFY(!device->initModelData(std::vector{layer(1, 0, 9), layer(1, 0, 9)}, error));
    QCOMPARE(error,
             QStringLiteral("Layer 9 of type 1 in scene 4 on screen 0 of type 1 is there twice."));

    s_DeviceDetail detail;
    detail.subcards.resize(2);
    detail.powers = {{3, 0, 0}, {3, 0, 1}};
    detail.groupInfos = {{"a", "g"}, {"b", "g"}};
    QVERIFY(!device->initModelData(detail, error));
    QCOMPARE(error,
             QStringLiteral("Subcard 0 is there twice. Power supply 3 is there twice. "
                            "Device group g is there twice."));
    QCOMPARE(device->findGroup("g")->groupName, std::string("a"));
}

void tst_BizModel::outputThatIsNotThereIsToldAndTheScreenTaken()
{
    const auto device = ModelRecords::device();
    QString error;
    QVERIFY(!device->initModelData(std::vector{screen(1, 7, {{9, 8, 7}, {2, 0, 0}})}, error));
    QCOMPARE(
        error,
        QStringLiteral("Screen 7 of type 1 has the output Interface 9/8/7, which is not there."));
    QCOMPARE(device->findScreen(1, 7).lock()->outputs().size(), 1);
}

void tst_BizModel::layerOnAbsentScreenIsToldAndLeftOut()
{
    const auto device = ModelRecords::device();
    QString error;
    QVERIFY(!device->initModelData(std::vector{layer(1, 9, 2), layer(1, 0, 2)}, error));
    QCOMPARE(error,
             QStringLiteral("Layer 2 of type 1 in scene 4 on screen 9 of type 1: "
                            "the screen is not there."));
    QCOMPARE(device->layers().size(), 1);
    QCOMPARE(int(device->layers().first().lock()->identity().screenId), 0);
}

void tst_BizModel::manyFaultsAreCounted()
{
    const auto device = ModelRecords::device();
    const std::vector<s_FileDetail> files(8, file(2, 5));
    QString error;
    QVERIFY(!device->initModelData(files, error));
    QCOMPARE(error.count(QStringLiteral("is there twice.")), 5);
    QVERIFY(error.endsWith(QStringLiteral(" And 2 more.")));
}

void tst_BizModel::reportedSlotsAreTakenFromTheDetail()
{
    const auto device = ModelRecords::device();
    s_DeviceDetail detail;
    detail.subcards = {{2, 7, 0, 0, 0, {}}, {3, 8, 0, 0, 0, {}}};
    ProtoModel::Device::s_subcards reported;
    reported.subcards = {{2, 99, 0, 0, 0, {}}}; // of the report only the slot counts
    QString error;
    QVERIFY(device->updateSlotModelData(reported, detail, error));
    QCOMPARE(device->findSubcard(2)->modelId, 7);
    QVERIFY(!device->findSubcard(3));
    QCOMPARE(error, QString());
}

void tst_BizModel::slotThatIsNotThereIsTold()
{
    const auto device = ModelRecords::device();
    s_DeviceDetail detail;
    detail.subcards = {{2, 7, 0, 0, 0, {}}};
    ProtoModel::Device::s_subcards reported;
    reported.subcards = {{2, 0, 0, 0, 0, {}}, {4, 0, 0, 0, 0, {}}};
    QString error;
    QVERIFY(!device->updateSlotModelData(reported, detail, error));
    QCOMPARE(error, QStringLiteral("The device has no slot 4"));
    QCOMPARE(device->findSubcard(2)->modelId, 0); // and nothing was changed
}

void tst_BizModel::cropFollowsTheTimingOfTheInterface()
{
    const auto device = ModelRecords::device();
    const auto input = device->findInterface({1, 2, 3}).lock();
    const auto layer = device->layers().last().lock();
    input->setActualTiming(timing(1280, 720));
    QCOMPARE(layer->detail().source.crop[0].rect.width, 1920); // not asked for yet
    input->updateLayerInputCrop();
    const auto rect = layer->detail().source.crop[0].rect;
    QCOMPARE(rect.x, 0);
    QCOMPARE(rect.width, 640);
    QCOMPARE(rect.height, 720);
}

void tst_BizModel::cropStaysWithoutASignal()
{
    const auto device = ModelRecords::device();
    const auto input = device->findInterface({1, 2, 3}).lock();
    input->setActualTiming(timing(1280, 720));
    input->updateLayerInputCrop();
    input->setActualTiming(timing(0, 0));
    input->updateLayerInputCrop();
    QCOMPARE(device->layers().last().lock()->detail().source.crop[0].rect.width, 640);
}

void tst_BizModel::cropIsRoundedToTheNearestPixel()
{
    const auto device = ModelRecords::device();
    auto cropped = layer(1, 0, 0, 0x010203);
    cropped.source.crop.resize(1);
    cropped.source.crop[0].xRatio = 33333; // 426.66 pixels
    cropped.source.crop[0].yRatio = 33333; // 239.998 pixels
    const auto input = device->findInterface({1, 2, 3}).lock();
    input->setActualTiming(timing(1280, 720));
    QString error;
    QVERIFY(device->initModelData(std::vector{cropped}, error));
    QCOMPARE(device->layers().first().lock()->detail().source.crop[0].rect.x, 427);
    QCOMPARE(device->layers().first().lock()->detail().source.crop[0].rect.y, 240);
}

void tst_BizModel::ownCropOfTheInterfaceFollowsToo()
{
    const auto device = ModelRecords::device();
    const auto input = device->findInterface({1, 2, 3}).lock();
    input->setActualTiming(timing(3840, 2160));
    QCOMPARE(input->detail().crop.rect.width, 3840);
}

QTEST_GUILESS_MAIN(tst_BizModel)
#include "tst_bizmodel.moc"
