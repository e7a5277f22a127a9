// The model follows the writes of a session, without another reading of the whole device, and keeps
// its objects.

#include <support/tavorosession/devicelog.h>
#include <support/tavorosession/sessionbench.h>

#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/interface.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/screen.h>

#include <QSignalSpy>
#include <QThread>

using namespace Tavoro;
using namespace std::chrono_literals;

class tst_ModelFollows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bench = std::make_unique<SessionBench>();
        QVERIFY(m_bench->openReady());
    }
    void cleanup() { m_bench.reset(); }

    void nameOfTheDeviceFollows();
    void interfaceFollowsAndStaysTheSameObject();
    void screenFollowsAndStaysTheSameObject();
    void movedWindowFollows();
    void removedLayersLeaveTheModel();
    void takeSwapsTheLayersInTheModel();
    void createdFileIsInTheModel();
    void writesInQuickSuccessionAreReadOnce();
    void refusedWriteReadsNothing();
    void writeWithALostAnswerFollowsToo();
    void failedReadIsFollowedByAReadingOfTheDevice();
    void onlyWhatDiffersIsSignalled();
    void reportDuringAReadingIsNotLost();
    void reportDuringAReadAfterAWriteIsNotLost();

private:
    DeviceSession &wall() { return *m_bench->wall; }
    std::shared_ptr<BizModel::Device> model() { return wall().device(); }
    std::shared_ptr<BizModel::Layer> layer(int scene = 2)
    {
        for (const auto &each : model()->layers()) {
            const auto found = each.lock();
            if (found->identity().sceneType == scene && found->identity().screenId == 1
                && found->identity().layerType == 1)
                return found;
        }
        return nullptr;
    }
    PendingCall<Outcome> moveTo(qint32 x)
    {
        ProtoModel::Layer::s_LayerWindow moved;
        moved.layerIdenti = layer()->identity();
        moved.window = layer()->detail().window;
        moved.window.x = x;
        return wall().call(&Control::Layer::writeWindow, {moved});
    }

    std::unique_ptr<SessionBench> m_bench;
};

void tst_ModelFollows::nameOfTheDeviceFollows()
{
    QSignalSpy changed(&wall(), &DeviceSession::deviceChanged);
    ProtoModel::Device::s_General general;
    general.general.name = "stage";
    QVERIFY(resultOf(wall().call(&Control::Device::writeDeviceGeneral, general)));
    QTRY_COMPARE(model()->name(), QStringLiteral("stage"));
    QCOMPARE(wall().name(), QStringLiteral("stage"));
    QCOMPARE(changed.size(), 1);
}

void tst_ModelFollows::interfaceFollowsAndStaysTheSameObject()
{
    const auto before = model()->interfaces().first().lock();
    ProtoModel::Interface::s_HDCP hdcp;
    static_cast<ProtoModel::s_InterfaceID &>(hdcp) = before->interfaceId();
    hdcp.hdcp.enable = true;
    QVERIFY(resultOf(wall().call(&Control::Interface::writeHDCP, {hdcp})));
    QTRY_VERIFY(before->detail().HDCP.enable);
    QCOMPARE(model()->interfaces().first().lock(), before);
}

void tst_ModelFollows::screenFollowsAndStaysTheSameObject()
{
    const auto before = model()->findScreen(1, 1).lock();
    ProtoModel::Screen::s_Freeze freeze;
    freeze.screenId = 1;
    freeze.screenType = 1;
    freeze.freeze = 1;
    QVERIFY(resultOf(wall().call(&Control::Screen::writeFreeze, {freeze})));
    QTRY_COMPARE(int(before->detail().freeze), 1);
    QCOMPARE(model()->findScreen(1, 1).lock(), before);
}

void tst_ModelFollows::movedWindowFollows()
{
    const auto before = layer();
    QSignalSpy changed(before.get(), &BizModel::Layer::layerChanged);
    QVERIFY(resultOf(moveTo(77)));
    QTRY_COMPARE(int(before->detail().window.x), 77);
    QCOMPARE(layer(), before);
    QCOMPARE(changed.size(), 1);
}

void tst_ModelFollows::removedLayersLeaveTheModel()
{
    const auto count = model()->layers().size();
    QVERIFY(resultOf(wall().call(&Control::Layer::writeRemovedAll, 1, 1)));
    QTRY_VERIFY(model()->layers().size() < count);
    QVERIFY(!layer());
    QVERIFY(!model()->layers().isEmpty()); // those of the other screen
}

void tst_ModelFollows::takeSwapsTheLayersInTheModel()
{
    QVERIFY(resultOf(moveTo(123)));
    QTRY_COMPARE(int(layer()->detail().window.x), 123);
    ProtoModel::Screen::s_SwitchEffect effect;
    effect.screenId = 1;
    effect.screenType = 1;
    QVERIFY(resultOf(wall().call(&Control::Screen::writeTake, {effect})));
    QTRY_COMPARE(int(layer(4)->detail().window.x), 123);
}

void tst_ModelFollows::createdFileIsInTheModel()
{
    QVERIFY(model()->findFile(BizModel::Enum::File::ScreenPreset, 3).expired());
    ProtoModel::File::s_CreatePresetFile preset;
    preset.fileId = 3;
    preset.fileType = 6;
    QVERIFY(resultOf(wall().call(&Control::File::writeCreatePresetFile, {preset})));
    QTRY_VERIFY(!model()->findFile(BizModel::Enum::File::ScreenPreset, 3).expired());
}

void tst_ModelFollows::writesInQuickSuccessionAreReadOnce()
{
    constexpr int writes = 10;
    DeviceLog log;
    for (int x = 1; x <= writes; ++x)
        moveTo(x);
    // Without an event loop until the last one has arrived: the others end together.
    while (log.codes().count(QStringLiteral("1405")) < writes)
        QThread::yieldCurrentThread();
    QTRY_COMPARE(int(layer()->detail().window.x), writes);
    QVERIFY(resultOf(wall().modelUpdate()));
    const auto reads = log.codes().count(QStringLiteral("1400"));
    QVERIFY2(reads >= 1 && reads <= 2, qPrintable(QString::number(reads)));
    QCOMPARE(log.codes().count(QStringLiteral("1200")), 0);
}

void tst_ModelFollows::refusedWriteReadsNothing()
{
    DeviceLog log;
    ProtoModel::Device::s_swap swap;
    swap.swap = 7;
    QCOMPARE(int(resultOf(wall().call(&Control::Device::writeSwap, swap)).kind()),
             int(Outcome::Refused));
    QVERIFY(resultOf(moveTo(5)));
    QTRY_COMPARE(int(layer()->detail().window.x), 5);
    QVERIFY(!log.codes().contains(QStringLiteral("1100")));
}

void tst_ModelFollows::writeWithALostAnswerFollowsToo()
{
    m_bench->setTimeout(0x1405, 300ms);
    QVERIFY(m_bench->addFault("silent,code=0x1405,count=1"));
    QVERIFY(resultOf(moveTo(55)));
    QTRY_COMPARE(int(layer()->detail().window.x), 55);
}

void tst_ModelFollows::failedReadIsFollowedByAReadingOfTheDevice()
{
    QVERIFY(m_bench->addFault("status=8,code=0x1400,count=1"));
    QVERIFY(resultOf(moveTo(66)));
    QTRY_COMPARE(int(layer()->detail().window.x), 66);
    QTRY_VERIFY(wall().isReady());
}

void tst_ModelFollows::onlyWhatDiffersIsSignalled()
{
    QSignalSpy device(model().get(), &BizModel::Device::deviceDataChanged);
    QSignalSpy screen(model()->findScreen(1, 1).lock().get(), &BizModel::Screen::screenChanged);
    QSignalSpy moved(layer().get(), &BizModel::Layer::layerChanged);
    QVERIFY(resultOf(moveTo(88)));
    QTRY_COMPARE(moved.size(), 1);
    QCOMPARE(device.size(), 0);
    QCOMPARE(screen.size(), 0);
}

/// The interfaces have been read before the report, and are applied after it.
void tst_ModelFollows::reportDuringAReadingIsNotLost()
{
    const auto depth = [input = model()->interfaces().first().lock()] {
        return input->detail().colorDepths.actualColorDepth;
    };
    QVERIFY(m_bench->addFault("hold,code=0x1300,count=1"));
    wall().readAgain();
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(m_bench->execute(QStringLiteral("depth 1 1 10")));
    QTRY_COMPARE(depth(), 10);
    QVERIFY(!wall().isReady());
    QVERIFY(m_bench->releaseAnswers());
    QTRY_VERIFY(wall().isReady());
    QTRY_COMPARE(depth(), 10);
}

/// The device has made its answer before the report, and it arrives after it.
void tst_ModelFollows::reportDuringAReadAfterAWriteIsNotLost()
{
    const auto power = [this] {
        return model()->deviceDetail().powers.front().status;
    };
    QVERIFY(m_bench->addFault("hold,code=0x1100,count=1"));
    ProtoModel::Device::s_General general;
    general.general.name = "stage";
    QVERIFY(resultOf(wall().call(&Control::Device::writeDeviceGeneral, general)));
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(m_bench->execute(QStringLiteral("power 1 0")));
    QTRY_COMPARE(power(), 0);
    QCOMPARE(model()->name(), QStringLiteral("wall 1"));
    QVERIFY(m_bench->releaseAnswers());
    QTRY_COMPARE(model()->name(), QStringLiteral("stage"));
    QTRY_COMPARE(power(), 0);
}

QTEST_GUILESS_MAIN(tst_ModelFollows)
#include "tst_modelfollows.moc"
