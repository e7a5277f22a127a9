// What happens on the canvas when the device fails while a layer is dragged.
#include <support/tavoropanel/canvasbench.h>
#include <support/tavorosession/devicelog.h>
#include <support/tavorossproxy/tcpconnection.h>

#include <tavorocontrol/screen.h>

#include <QAction>

using namespace Tavoro;
using namespace Tavoro::Panel;
using namespace std::chrono_literals;

namespace {

const QRect start(1280, 0, 1280, 1080); ///< Where layer 2 is.

} // namespace

class tst_CanvasFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { openDevice(CanvasBench::patientOptions()); }
    void cleanup() { m_bench.reset(); }

    void refusedMoveReturnsTheLayer();
    void refusedMoveEndsTheDrag();
    void silentDeviceDoesNotBlockTheDrag();
    void lostAnswerEndsWithWhatTheDeviceHolds();
    void disconnectedDeviceReturnsTheLayer();
    void disconnectedDeviceIsNotEdited();
    void removedLayerEndsTheDrag();
    void removedScreenIsRemovedFromTheCanvas();
    void otherClientsControlPreventsDrags();
    void refusedOpacityReturns();

private:
    void openDevice(const CanvasBench::Options &options);
    CanvasBench &bench() { return *m_bench; }
    DeviceSession &device() { return *m_bench->wall; }

    std::unique_ptr<CanvasBench> m_bench;
};

void tst_CanvasFaults::openDevice(const CanvasBench::Options &options)
{
    m_bench.reset();
    m_bench = std::make_unique<CanvasBench>(options);
    QVERIFY(m_bench->openSelected());
    QTRY_COMPARE(m_bench->shown(2), start);
}

void tst_CanvasFaults::refusedMoveReturnsTheLayer()
{
    QVERIFY(bench().addFault("status=4,code=0x1405"));
    const QPoint from = bench().pointOf(2);
    bench().drag(from, from + QPoint(-30, 14));
    QVERIFY(bench().shown(2) != start);
    QTRY_COMPARE(bench().shown(2), start);
    QCOMPARE(bench().heldWindow(2), start);
    // The value that waited meanwhile may be refused as well.
    QStringList complaints = bench().complaints();
    complaints.removeDuplicates();
    QCOMPARE(complaints,
             QStringList{QStringLiteral(
                 "wall 1: layer window information was refused: a value is out of range.")});
}

void tst_CanvasFaults::refusedMoveEndsTheDrag()
{
    DeviceLog log;
    QVERIFY(bench().addFault("status=4,code=0x1405"));
    const QPoint from = bench().pointOf(2);
    bench().press(from);
    bench().moveTo(from + QPoint(-30, 14));
    QTRY_COMPARE(bench().complaints().size(), 1);
    bench().moveTo(from + QPoint(-50, 14));
    bench().release(from + QPoint(-60, 14));
    QCOMPARE(bench().shown(2), start);
    QCOMPARE(bench().heldWindow(2), start);
    QCOMPARE(log.writes(0x1405).size(), 1);
}

void tst_CanvasFaults::silentDeviceDoesNotBlockTheDrag()
{
    CanvasBench::Options options = CanvasBench::fastOptions();
    options.outcomeTime = 1s;
    openDevice(options);
    bench().setTimeout(0x1405, 900ms);
    QVERIFY(bench().addFault("ignore,code=0x1405,count=1"));
    const QPoint from = bench().pointOf(2);
    bench().press(from);
    for (int step = 1; step <= 50; ++step) {
        const QPoint to = from + QPoint(-step, step / 2);
        bench().moveTo(to, Qt::ControlModifier);
        if (step > 4)
            QCOMPARE(bench().shown(2), start.translated(bench().inScreen(from, to)));
        if (step == 10) // The request that stays without an answer is not the last one.
            QTRY_VERIFY(!bench().hasFaults());
    }
    bench().release(from + QPoint(-50, 25), Qt::ControlModifier);
    const QRect last = bench().shown(2);
    // The outcome of the first write stays unknown; the last one follows when it is given up.
    QTRY_VERIFY(!bench().complaints().isEmpty());
    QTRY_COMPARE(bench().heldWindow(2), last);
    QTRY_COMPARE(bench().item(2).face().window, last);
    QCOMPARE(bench().shown(2), last);
}

void tst_CanvasFaults::lostAnswerEndsWithWhatTheDeviceHolds()
{
    QVERIFY(bench().addFault("drop-before,code=0x1405,count=1"));
    const QPoint from = bench().pointOf(2);
    const QPoint to = from + QPoint(-30, 14);
    const QRect expected = start.translated(bench().inScreen(from, to));
    bench().press(from);
    bench().moveTo(to, Qt::ControlModifier);
    bench().release(to, Qt::ControlModifier);
    QTRY_VERIFY(device().state().kind == DeviceState::Lost || device().isReady());
    QTRY_VERIFY(device().isReady() && bench().item(2).face().window == expected);
    QCOMPARE(bench().heldWindow(2), expected);
    QTRY_COMPARE(bench().shown(2), expected);
}

void tst_CanvasFaults::disconnectedDeviceReturnsTheLayer()
{
    const QPoint from = bench().pointOf(2);
    bench().press(from);
    QVERIFY(bench().execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!bench().selection.canWrite());
    bench().moveTo(from + QPoint(-30, 14));
    bench().release(from + QPoint(-30, 14));
    QCOMPARE(bench().shown(2), start);
    QCOMPARE(
        bench().complaints(),
        QStringList{QStringLiteral("Layer 2 cannot be changed: the device is not connected.")});

    QVERIFY(bench().execute(QStringLiteral("switch 1")));
    QTRY_VERIFY(device().isReady());
    QCOMPARE(bench().shown(2), start);
    QCOMPARE(bench().heldWindow(2), start);
}

void tst_CanvasFaults::disconnectedDeviceIsNotEdited()
{
    const QPoint from = bench().pointOf(2);
    bench().press(from);
    bench().moveTo(from + QPoint(-30, 14));
    const QRect moved = bench().shown(2);
    QTRY_COMPARE(bench().item(2).face().window, moved);
    QVERIFY(bench().execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!bench().selection.canWrite());
    // The connection was lost during the drag: the write fails, and the layer returns to what the
    // device held last.
    bench().moveTo(from + QPoint(-50, 14));
    QTRY_COMPARE(bench().shown(2), moved);
    bench().moveTo(from + QPoint(-60, 14));
    bench().release(from + QPoint(-60, 14));
    QCOMPARE(bench().shown(2), moved);
    QCOMPARE(bench().complaints().size(), 1);
}

void tst_CanvasFaults::removedLayerEndsTheDrag()
{
    bench().selection.setLayer(CanvasBench::id(2));
    const QPoint from = bench().pointOf(2);
    bench().press(from);
    bench().moveTo(from + QPoint(-30, 14));
    QVERIFY(resultOf(device().call(&Control::Layer::writeRemoved,
                                   {ProtoModel::Layer::s_LayerRemoved{CanvasBench::id(2)}})));
    QTRY_VERIFY(!bench().view.canvas().findLayer(CanvasBench::id(2)));
    bench().moveTo(from + QPoint(-50, 14));
    bench().release(from + QPoint(-50, 14));
    QVERIFY(!bench().selection.layer());
    bench().view.grab();
}

void tst_CanvasFaults::removedScreenIsRemovedFromTheCanvas()
{
    bench().selection.setLayer(CanvasBench::id(2));
    bench().press(bench().pointOf(2));
    QVERIFY(resultOf(device().call(&Control::Screen::writeScreenDeleted, {{1, 1}})));
    QTRY_COMPARE(bench().view.canvas().screens().size(), 2);
    bench().moveTo({10, 10});
    bench().release({10, 10});
    bench().view.grab();
}

void tst_CanvasFaults::otherClientsControlPreventsDrags()
{
    TcpConnection other(bench().running->simulator->port());
    QString error;
    QVERIFY(other.channel->requestControl(SSProxy::ControlAction::Take, error));
    QTRY_VERIFY(!bench().selection.canWrite());
    const QPoint from = bench().pointOf(2);
    bench().drag(from, from + QPoint(-30, 14));
    QCOMPARE(bench().shown(2), start);
    QCOMPARE(bench().complaints(),
             QStringList{
                 QStringLiteral("Layer 2 cannot be changed: another client controls the device.")});
}

void tst_CanvasFaults::refusedOpacityReturns()
{
    QVERIFY(bench().addFault("status=4,code=0x1408"));
    bench().selection.setLayer(CanvasBench::id(2));
    bench().actions.action(ActionId::LessOpaque).trigger();
    QCOMPARE(bench().item(2).opacityPercent(), 95);
    QTRY_COMPARE(bench().item(2).opacityPercent(), 100);
    QCOMPARE(bench().held(2).opacity, 100);
    QCOMPARE(bench().complaints().size(), 1);
}

QTEST_MAIN(tst_CanvasFaults)
#include "tst_canvasfaults.moc"
