// The canvas for screen readers.
#include <support/tavoropanel/canvasbench.h>

#include <QAccessible>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_CanvasAccess : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_bench.reset(); }

    void canvasIsAListOfItsLayers();
    void layerHasItsDescriptionAsName();
    void selectedLayerHasTheFocus();
    void layerIsWhereItIsShown();
    void removedLayerLeavesTheList();

private:
    CanvasBench &bench() { return *m_bench; }
    QAccessibleInterface *canvas() { return QAccessible::queryAccessibleInterface(&bench().view); }
    /// The third layer of the first preview.
    QAccessibleInterface *layer() { return canvas()->child(2); }

    std::unique_ptr<CanvasBench> m_bench;
};

void tst_CanvasAccess::init()
{
    m_bench = std::make_unique<CanvasBench>();
    QVERIFY(m_bench->openSelected());
    QTRY_COMPARE(m_bench->shown(2), QRect(1280, 0, 1280, 1080));
}

void tst_CanvasAccess::canvasIsAListOfItsLayers()
{
    QVERIFY(canvas());
    QCOMPARE(canvas()->role(), QAccessible::List);
    QCOMPARE(canvas()->text(QAccessible::Name), QStringLiteral("Canvas"));
    QCOMPARE(canvas()->childCount(), 16); // two screens with two scenes of four layers
    for (int index = 0; index < 16; ++index) {
        QAccessibleInterface *const child = canvas()->child(index);
        QVERIFY(child);
        QCOMPARE(child->role(), QAccessible::ListItem);
        QCOMPARE(canvas()->indexOfChild(child), index);
        QCOMPARE(child->parent()->object(), static_cast<QObject *>(&bench().view));
        QVERIFY(!child->text(QAccessible::Name).isEmpty());
    }
    QVERIFY(!canvas()->child(16));
}

void tst_CanvasAccess::layerHasItsDescriptionAsName()
{
    QCOMPARE(layer()->text(QAccessible::Name),
             QStringLiteral("Preview, Main, Layer 2: Input 6, 1920×1080p60, 1280 × 1080 at 1280, "
                            "0"));
}

void tst_CanvasAccess::selectedLayerHasTheFocus()
{
    QVERIFY(!canvas()->focusChild());
    QVERIFY(!layer()->state().selected);
    bench().selection.setLayer(CanvasBench::id(2));
    QVERIFY(layer()->state().selected);
    QCOMPARE(canvas()->focusChild(), layer());
}

void tst_CanvasAccess::layerIsWhereItIsShown()
{
    const QPoint middle = bench().view.viewport()->mapToGlobal(bench().pointOf(2, 0.5, 0.5));
    QVERIFY(layer()->rect().contains(middle));
    QVERIFY(!canvas()->child(1)->rect().contains(middle));
}

void tst_CanvasAccess::removedLayerLeavesTheList()
{
    QVERIFY(layer());
    QVERIFY(resultOf(bench().wall->call(&Control::Layer::writeRemoved,
                                        {ProtoModel::Layer::s_LayerRemoved{CanvasBench::id(2)}})));
    QTRY_COMPARE(canvas()->childCount(), 15);
    QVERIFY(layer()->text(QAccessible::Name).contains(QStringLiteral("Layer 3")));
}

QTEST_MAIN(tst_CanvasAccess)
#include "tst_canvasaccess.moc"
