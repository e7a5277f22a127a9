// Sources are dropped onto layers of the canvas.
#include <support/tavoropanel/canvasbench.h>

#include <tavoropanel/sources/layersources.h>

#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_CanvasDrop : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_bench.reset(); }

    void droppedInputIsTheSourceOfTheLayer();
    void dropSelectsTheLayerAndCanBeUndone();
    void dropBesideTheLayersIsRefused();
    void otherDataIsRefused();
    void dropOnALostDeviceSaysWhy();

private:
    CanvasBench &bench() { return *m_bench; }
    /// Drags data to a place of the canvas. Returns whether the place accepts it.
    bool dragTo(const QPoint &place, const QMimeData &data);
    bool drop(const QPoint &place, const QMimeData &data);
    static std::unique_ptr<QMimeData> input(int slot, int connector);

    std::unique_ptr<CanvasBench> m_bench;
};

void tst_CanvasDrop::init()
{
    m_bench = std::make_unique<CanvasBench>();
    QVERIFY(m_bench->openSelected());
    QTRY_COMPARE(m_bench->shown(2), QRect(1280, 0, 1280, 1080));
}

bool tst_CanvasDrop::dragTo(const QPoint &place, const QMimeData &data)
{
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(bench().view.viewport(), &enter);
    if (!enter.isAccepted())
        return false;
    QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    move.ignore();
    QApplication::sendEvent(bench().view.viewport(), &move);
    return move.isAccepted();
}

bool tst_CanvasDrop::drop(const QPoint &place, const QMimeData &data)
{
    if (!dragTo(place, data))
        return false;
    QDropEvent dropped(QPointF(place), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    dropped.ignore();
    QApplication::sendEvent(bench().view.viewport(), &dropped);
    return dropped.isAccepted();
}

std::unique_ptr<QMimeData> tst_CanvasDrop::input(int slot, int connector)
{
    auto data = std::make_unique<QMimeData>();
    setSource(*data, sourceOf({slot, connector, 0}));
    return data;
}

void tst_CanvasDrop::droppedInputIsTheSourceOfTheLayer()
{
    QVERIFY(drop(bench().pointOf(2), *input(2, 1)));
    QTRY_COMPARE(bench().held(2).source.general.id, quint32(2 << 16 | 1 << 8));
    QCOMPARE(bench().held(2).source.general.type, 1);
    QCOMPARE(bench().held(2).source.crop.size(), std::size_t(1));
    QTRY_COMPARE(bench().item(2).face().source, QStringLiteral("Input 5"));
}

void tst_CanvasDrop::dropSelectsTheLayerAndCanBeUndone()
{
    const quint32 before = bench().held(3).source.general.id;
    QVERIFY(drop(bench().pointOf(3), *input(1, 1)));
    QVERIFY(bench().selection.layer());
    QVERIFY(isSame(*bench().selection.layer(), CanvasBench::id(3)));
    QTRY_VERIFY(bench().changes.canUndo());
    QCOMPARE(bench().held(3).source.general.id, quint32(1 << 16 | 1 << 8));
    bench().changes.undo();
    QTRY_COMPARE(bench().held(3).source.general.id, before);
}

void tst_CanvasDrop::dropBesideTheLayersIsRefused()
{
    const auto data = input(2, 1);
    QVERIFY(!dragTo({1, 1}, *data));
    QVERIFY(dragTo(bench().pointOf(2), *data));
}

void tst_CanvasDrop::otherDataIsRefused()
{
    QMimeData text;
    text.setText(QStringLiteral("1 66048"));
    QVERIFY(!dragTo(bench().pointOf(2), text));
    QMimeData damaged;
    damaged.setData(sourceMimeType(), "1");
    QVERIFY(!dragTo(bench().pointOf(2), damaged));
}

void tst_CanvasDrop::dropOnALostDeviceSaysWhy()
{
    const auto source = bench().held(2).source.general;
    QVERIFY(bench().execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!bench().selection.canWrite());
    QVERIFY(drop(bench().pointOf(2), *input(2, 1)));
    QCOMPARE(
        bench().complaints(),
        QStringList{QStringLiteral("Layer 2 cannot be changed: the device is not connected.")});
    QVERIFY(isSame(bench().item(2).face().sourceId, source));
}

QTEST_MAIN(tst_CanvasDrop)
#include "tst_canvasdrop.moc"
