#include <support/tavorobizmodel/modelrecords.h>

#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>

#include <QtTest>

using namespace ModelRecords;
using namespace Tavoro;

/// How a device is built from its records, which data are reported as wrong, and how crops follow
/// the timings.
class tst_BizModelBuild : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void validDataLeaveTheErrorUnchanged();
    void duplicateIdentityIsReportedAndTheFirstIsUsed();
    void missingOutputIsReportedAndTheScreenIsCreated();
    void layerOnAMissingScreenIsReportedAndLeftOut();
    void manyFaultsAreCounted();
    void reportedSlotsAreTakenFromTheDetail();
    void missingSlotIsReported();

    void cropFollowsTheTimingOfTheInterface();
    void cropStaysWithoutASignal();
    void cropStaysWhenTheDeviceIsReadAgainWithoutASignal();
    void cropIsRoundedToTheNearestPixel();
    void ownCropOfTheInterfaceFollowsToo();
};

void tst_BizModelBuild::validDataLeaveTheErrorUnchanged()
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

void tst_BizModelBuild::duplicateIdentityIsReportedAndTheFirstIsUsed()
{
    const auto device = ModelRecords::device();
    QString error;
    QVERIFY(!device->initModelData(
        std::vector{interface({1, 0, 0}, "first"), interface({1, 0, 0}, "second")}, error));
    QCOMPARE(error, QStringLiteral("Interface 1/0/0 occurs twice."));
    QCOMPARE(device->interfaces().size(), 1);
    QCOMPARE(device->findInterface({1, 0, 0}).lock()->detail().general.name, std::string("first"));

    QVERIFY(!device->initModelData(std::vector{file(2, 5), file(2, 5)}, error));
    QCOMPARE(error, QStringLiteral("File 5 of type 2 occurs twice."));
    QVERIFY(!device->initModelData(std::vector{screen(1, 0), screen(1, 0)}, error));
    QCOMPARE(error, QStringLiteral("Screen 0 of type 1 occurs twice."));
    QVERIFY(!device->initModelData(std::vector{layer(1, 0, 9), layer(1, 0, 9)}, error));
    QCOMPARE(error,
             QStringLiteral("Layer 9 of type 1 in scene 4 on screen 0 of type 1 occurs twice."));

    s_DeviceDetail detail;
    detail.subcards.resize(2);
    detail.powers = {{3, 0, 0}, {3, 0, 1}};
    detail.groupInfos = {{"a", "g"}, {"b", "g"}};
    QVERIFY(!device->initModelData(detail, error));
    QCOMPARE(error,
             QStringLiteral("Subcard 0 occurs twice. Power supply 3 occurs twice. "
                            "Device group g occurs twice."));
    QCOMPARE(device->findGroup("g")->groupName, std::string("a"));
}

void tst_BizModelBuild::missingOutputIsReportedAndTheScreenIsCreated()
{
    const auto device = ModelRecords::device();
    QString error;
    QVERIFY(!device->initModelData(std::vector{screen(1, 7, {{9, 8, 7}, {2, 0, 0}})}, error));
    QCOMPARE(
        error,
        QStringLiteral(
            "Screen 7 of type 1 has the output Interface 9/8/7, which the device does not have."));
    QCOMPARE(device->findScreen(1, 7).lock()->outputs().size(), 1);
}

void tst_BizModelBuild::layerOnAMissingScreenIsReportedAndLeftOut()
{
    const auto device = ModelRecords::device();
    QString error;
    QVERIFY(!device->initModelData(std::vector{layer(1, 9, 2), layer(1, 0, 2)}, error));
    QCOMPARE(error,
             QStringLiteral("Layer 2 of type 1 in scene 4 on screen 9 of type 1: "
                            "the device does not have the screen."));
    QCOMPARE(device->layers().size(), 1);
    QCOMPARE(int(device->layers().first().lock()->identity().screenId), 0);
}

void tst_BizModelBuild::manyFaultsAreCounted()
{
    const auto device = ModelRecords::device();
    const std::vector<s_FileDetail> files(8, file(2, 5));
    QString error;
    QVERIFY(!device->initModelData(files, error));
    QCOMPARE(error.count(QStringLiteral("occurs twice.")), 5);
    QVERIFY(error.endsWith(QStringLiteral(" And 2 more.")));
}

void tst_BizModelBuild::reportedSlotsAreTakenFromTheDetail()
{
    const auto device = ModelRecords::device();
    s_DeviceDetail detail;
    detail.subcards = {{2, 7, 0, 0, 0, {}}, {3, 8, 0, 0, 0, {}}};
    ProtoModel::Device::s_subcards reported;
    reported.subcards = {{2, 99, 0, 0, 0, {}}}; // only the slot of the report counts
    QString error;
    QVERIFY(device->updateSlotModelData(reported, detail, error));
    QCOMPARE(device->findSubcard(2)->modelId, 7);
    QVERIFY(!device->findSubcard(3));
    QCOMPARE(error, QString());
}

void tst_BizModelBuild::missingSlotIsReported()
{
    const auto device = ModelRecords::device();
    s_DeviceDetail detail;
    detail.subcards = {{2, 7, 0, 0, 0, {}}};
    ProtoModel::Device::s_subcards reported;
    reported.subcards = {{2, 0, 0, 0, 0, {}}, {4, 0, 0, 0, 0, {}}};
    QString error;
    QVERIFY(!device->updateSlotModelData(reported, detail, error));
    QCOMPARE(error, QStringLiteral("The device has no slot 4"));
    QCOMPARE(device->findSubcard(2)->modelId, 0); // nothing was changed
}

void tst_BizModelBuild::cropFollowsTheTimingOfTheInterface()
{
    const auto device = ModelRecords::device();
    const auto input = device->findInterface({1, 2, 3}).lock();
    const auto layer = device->layers().last().lock();
    input->setActualTiming(timing(1280, 720));
    QCOMPARE(layer->detail().source.crop[0].rect.width, 1920); // the crop has not been updated yet
    input->updateLayerInputCrop();
    const auto rect = layer->detail().source.crop[0].rect;
    QCOMPARE(rect.x, 0);
    QCOMPARE(rect.width, 640);
    QCOMPARE(rect.height, 720);
}

void tst_BizModelBuild::cropStaysWithoutASignal()
{
    const auto device = ModelRecords::device();
    const auto input = device->findInterface({1, 2, 3}).lock();
    input->setActualTiming(timing(1280, 720));
    input->updateLayerInputCrop();
    input->setActualTiming(timing(0, 0));
    input->updateLayerInputCrop();
    QCOMPARE(device->layers().last().lock()->detail().source.crop[0].rect.width, 640);
}

void tst_BizModelBuild::cropStaysWhenTheDeviceIsReadAgainWithoutASignal()
{
    const auto device = ModelRecords::device();
    const auto input = device->findInterface({1, 2, 3}).lock();
    input->setActualTiming(timing(1280, 720));
    input->updateLayerInputCrop();
    QString error;
    auto cropped = layer(1, 0, 1, 0x010203);
    cropped.source.crop.resize(1);
    cropped.source.crop[0].widthRatio = 50000;
    const auto readAgain = [&] {
        device->initModelData(std::vector{interface({1, 2, 3}), interface({2, 0, 0})}, error);
        device->initModelData(std::vector{screen(1, 0, {{2, 0, 0}})}, error);
        device->initModelData(std::vector{cropped}, error);
    };
    device->clearAll(true);
    readAgain();
    QCOMPARE(device->layers().last().lock()->detail().source.crop[0].rect.width, 640);
    QCOMPARE(device->findInterface({1, 2, 3}).lock()->detail().crop.rect.width, 1280);

    cropped.source.crop[0].widthRatio = 25000; // not the previous crop
    readAgain();
    QCOMPARE(device->layers().last().lock()->detail().source.crop[0].rect.width, 1920);

    device->clearAll(false);
    readAgain();
    QCOMPARE(device->findInterface({1, 2, 3}).lock()->detail().crop.rect.width, 1920);
}

void tst_BizModelBuild::cropIsRoundedToTheNearestPixel()
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

void tst_BizModelBuild::ownCropOfTheInterfaceFollowsToo()
{
    const auto device = ModelRecords::device();
    const auto input = device->findInterface({1, 2, 3}).lock();
    input->setActualTiming(timing(3840, 2160));
    QCOMPARE(input->detail().crop.rect.width, 3840);
}

QTEST_GUILESS_MAIN(tst_BizModelBuild)
#include "tst_bizmodelbuild.moc"
