#include <support/tavorobizmodel/modelrecords.h>

#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/mvrscreen.h>
#include <tavorobizmodel/screen.h>

#include <QSignalSpy>
#include <QtTest>

using namespace ModelRecords;
using namespace Tavoro;
using Part = BizModel::Enum::Device::DataPart;

Q_DECLARE_METATYPE(std::function<void(BizModel::Device &)>)

/// Which call emits which signal.
class tst_BizModelSignals : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachChangeOfTheDeviceEmitsItsPart_data();
    void eachChangeOfTheDeviceEmitsItsPart();
    void unchangedIdentityEmitsNothing();
    void clearingEmitsEachKind();
    void eachChangeOfAnInterfaceEmits_data();
    void eachChangeOfAnInterfaceEmits();
    void screenEmitsItsChanges();
    void eachScreenWhoseGenlockChangesEmits();
    void fileEmitsItsProgress();
    void layerEmitsWhenItsCropFollows();
    void blockedDeviceKeepsItsObjectsSilent();
    void objectsEmitAgainAfterBlocking();
    void slotMayCallTheModel();
};

void tst_BizModelSignals::eachChangeOfTheDeviceEmitsItsPart_data()
{
    using D = BizModel::Device;
    QTest::addColumn<std::function<void(D &)>>("change");
    QTest::addColumn<int>("part");
    const auto row = [](const char *name, int part, std::function<void(D &)> change) {
        QTest::newRow(name) << change << part;
    };
    QString error;
    // clang-format off
    row("address",         0,  [](D &d) { d.setIPAddress(QStringLiteral("198.51.100.1")); });
    row("name",            0,  [](D &d) { d.setName(QStringLiteral("other")); });
    row("model",           0,  [](D &d) { d.setModelId(0x7701); });
    row("online",          1,  [](D &d) { d.setDeviceOnlineFlag(true); });
    row("sync success",    2,  [](D &d) { d.setSyncDataSuccess(true); });
    row("detail",          3,  [](D &d) { QString e; d.initModelData(s_DeviceDetail(), e); });
    row("subcards",        4,  [](D &d) { d.updateSubCard({}); });
    row("powers",          5,  [](D &d) { d.setPower({}); });
    row("genlock signal",  6,  [](D &d) { d.setGenlockOnStatus({}); });
    row("groups",          7,  [](D &d) { d.updateDeviceGroupInfo({}); });
    row("relations",       8,  [](D &d) { d.updateInterfaceRelation({}); });
    row("screen genlocks", 9,  [](D &d) { d.setScreenGenlocks({}); });
    row("process",         10, [](D &d) { d.setDeviceProcess({}); });
    row("cutout",          11, [](D &d) { QString e; d.updateCutoutRGB({}, e); });
    row("interfaces",      12, [](D &d) { QString e; d.initModelData(std::vector<s_InterfaceDetail>(), e); });
    row("screens",         13, [](D &d) { QString e; d.initModelData(std::vector<s_ScreenFullDetail>(), e); });
    row("layers",          14, [](D &d) { QString e; d.initModelData(std::vector<s_LayerFullDetail>(), e); });
    row("files",           15, [](D &d) { QString e; d.initModelData(std::vector<s_FileDetail>(), e); });
    row("active screen",   16, [](D &d) { d.setActivedScreen(d.findScreen(1, 0)); });
    // clang-format on
}

void tst_BizModelSignals::eachChangeOfTheDeviceEmitsItsPart()
{
    QFETCH(std::function<void(BizModel::Device &)>, change);
    QFETCH(int, part);
    const auto device = ModelRecords::device();
    const QSignalSpy spy(device.get(), &BizModel::Device::deviceDataChanged);
    change(*device);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(int(spy[0][0].value<Part>()), part);

    device->blockSignals(true);
    change(*device);
    QCOMPARE(spy.size(), 1);
}

void tst_BizModelSignals::unchangedIdentityEmitsNothing()
{
    const auto device = ModelRecords::device();
    const QSignalSpy spy(device.get(), &BizModel::Device::deviceDataChanged);
    device->setName(device->name());
    device->setIPAddress(device->IPAddress());
    device->updateDeviceBaseInfo(device->deviceBaseInfo());
    QCOMPARE(spy.size(), 0);
}

void tst_BizModelSignals::clearingEmitsEachKind()
{
    const auto device = ModelRecords::device();
    const QSignalSpy spy(device.get(), &BizModel::Device::deviceDataChanged);
    device->clearAll(true);
    QList<int> parts;
    for (const auto &arguments : spy)
        parts.append(arguments[0].value<Part>());
    QCOMPARE(parts, (QList<int>{12, 13, 14, 15}));
}

Q_DECLARE_METATYPE(std::function<void(BizModel::Interface &)>)

void tst_BizModelSignals::eachChangeOfAnInterfaceEmits_data()
{
    using I = BizModel::Interface;
    QTest::addColumn<std::function<void(I &)>>("change");
    const auto row = [](const char *name, std::function<void(I &)> change) {
        QTest::newRow(name) << change;
    };
    // clang-format off
    row("general", [](I &i) { i.setGeneral({}); });
    row("timing",  [](I &i) { i.setActualTiming({}); });
    row("depth",   [](I &i) { i.setColorDepth({}); });
    row("space",   [](I &i) { i.setColorSpace({}); });
    row("range",   [](I &i) { i.setColorRange({}); });
    row("HDR",     [](I &i) { i.setHDR({}); });
    // clang-format on
}

void tst_BizModelSignals::eachChangeOfAnInterfaceEmits()
{
    QFETCH(std::function<void(BizModel::Interface &)>, change);
    const auto device = ModelRecords::device();
    const auto interface = device->findInterface({1, 2, 3}).lock();
    const QSignalSpy spy(interface.get(), &BizModel::Interface::interfaceChanged);
    change(*interface);
    QCOMPARE(spy.size(), 1);
    device->blockSignals(true);
    change(*interface);
    QCOMPARE(spy.size(), 1);
}

void tst_BizModelSignals::screenEmitsItsChanges()
{
    const auto device = ModelRecords::device();
    const auto screen = device->findScreen(3, 0).lock();
    const auto other = device->findScreen(1, 0).lock();
    const QSignalSpy spy(screen.get(), &BizModel::Screen::screenChanged);
    const QSignalSpy silent(other.get(), &BizModel::Screen::screenChanged);
    screen->setScreenZelk({1, 2});
    QCOMPARE(spy.size(), 1);
    std::dynamic_pointer_cast<BizModel::MVRScreen>(screen)->setRowColSpan({2, 2});
    QCOMPARE(spy.size(), 2);
    ProtoModel::Screen::s_ScreenGenlockBody genlock;
    genlock.screenType = 3;
    genlock.genlockSignal.status = 5;
    device->setScreenGenlocks({genlock});
    QCOMPARE(spy.size(), 3);
    QCOMPARE(screen->genlockStatus(), 5);
    QCOMPARE(silent.size(), 0);
}

// A screen that is missing from a report no longer has a genlock.
void tst_BizModelSignals::eachScreenWhoseGenlockChangesEmits()
{
    const auto genlock = [](int screenType, quint8 screenId, int status) {
        ProtoModel::Screen::s_ScreenGenlockBody body;
        body.screenType = screenType;
        body.screenId = screenId;
        body.genlockSignal.status = status;
        return body;
    };
    const auto device = ModelRecords::device();
    device->setScreenGenlocks({genlock(1, 0, 5), genlock(3, 0, 5), genlock(4, 1, 5)});
    const auto missing = device->findScreen(1, 0).lock();
    const QSignalSpy missingSpy(missing.get(), &BizModel::Screen::screenChanged);
    const QSignalSpy changed(device->findScreen(3, 0).lock().get(),
                             &BizModel::Screen::screenChanged);
    const QSignalSpy same(device->findScreen(4, 1).lock().get(), &BizModel::Screen::screenChanged);
    device->setScreenGenlocks({genlock(3, 0, 6), genlock(4, 1, 5)});
    QCOMPARE(missingSpy.size(), 1);
    QCOMPARE(missing->genlockStatus(), 0);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(same.size(), 0);
    device->setScreenGenlocks({});
    QCOMPARE(missingSpy.size(), 1);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(same.size(), 1);
}

void tst_BizModelSignals::fileEmitsItsProgress()
{
    const auto device = ModelRecords::device();
    const auto file = device->files().first().lock();
    const QSignalSpy spy(file.get(), &BizModel::File::fileChanged);
    ProtoModel::File::s_FileTransPercent progress;
    progress.percent = 40;
    file->setTransferProgress(progress);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(file->transferProgress().percent, 40);
}

void tst_BizModelSignals::layerEmitsWhenItsCropFollows()
{
    const auto device = ModelRecords::device();
    const auto input = device->findInterface({1, 2, 3}).lock();
    const QSignalSpy shown(device->layers().last().lock().get(), &BizModel::Layer::layerChanged);
    const QSignalSpy other(device->layers().first().lock().get(), &BizModel::Layer::layerChanged);
    input->setActualTiming(timing(1280, 720));
    input->updateLayerInputCrop();
    QCOMPARE(shown.size(), 1);
    input->updateLayerInputCrop(); // nothing new
    QCOMPARE(shown.size(), 1);
    QCOMPARE(other.size(), 0);
}

void tst_BizModelSignals::blockedDeviceKeepsItsObjectsSilent()
{
    const auto device = ModelRecords::device();
    const auto screen = device->findScreen(1, 0).lock();
    const auto layer = device->layers().last().lock();
    const auto input = device->findInterface({1, 2, 3}).lock();
    const auto file = device->files().first().lock();
    const QSignalSpy screens(screen.get(), &BizModel::Screen::screenChanged);
    const QSignalSpy layers(layer.get(), &BizModel::Layer::layerChanged);
    const QSignalSpy interfaces(input.get(), &BizModel::Interface::interfaceChanged);
    const QSignalSpy crops(input.get(), &BizModel::Interface::layerInputCropOutdated);
    const QSignalSpy files(file.get(), &BizModel::File::fileChanged);
    device->blockSignals(true);
    screen->setScreenZelk({1, 1});
    ProtoModel::Screen::s_ScreenGenlockBody genlock;
    genlock.screenType = 1;
    device->setScreenGenlocks({genlock});
    input->setActualTiming(timing(1280, 720));
    input->updateLayerInputCrop();
    file->setTransferProgress({});
    QCOMPARE(screens.size() + layers.size() + interfaces.size() + crops.size() + files.size(), 0);
    QCOMPARE(layer->detail().source.crop[0].rect.width, 640);
}

void tst_BizModelSignals::objectsEmitAgainAfterBlocking()
{
    const auto device = ModelRecords::device();
    const auto screen = device->findScreen(1, 0).lock();
    const QSignalSpy spy(screen.get(), &BizModel::Screen::screenChanged);
    device->blockSignals(true);
    screen->setScreenZelk({1, 1});
    device->blockSignals(false);
    QCOMPARE(spy.size(), 0);
    screen->setScreenZelk({1, 1});
    QCOMPARE(spy.size(), 1);
}

void tst_BizModelSignals::slotMayCallTheModel()
{
    const auto device = ModelRecords::device();
    const auto screen = device->findScreen(1, 0).lock();
    int seen = 0;
    connect(screen.get(), &BizModel::Screen::screenChanged, this, [&] {
        seen = screen->detail().screenZeLK.status;
        device->clearAll(true);
    });
    screen->setScreenZelk({1, 7});
    QCOMPARE(seen, 7);
    QVERIFY(device->screens(30).isEmpty());
}

QTEST_GUILESS_MAIN(tst_BizModelSignals)
#include "tst_bizmodelsignals.moc"
