// The context menu of a layer: source and opacity.
#include <support/tavoropanel/canvasbench.h>

#include <QAction>
#include <QMenu>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_CanvasMenu : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_bench.reset(); }

    void sourceChangesByTheMenu();
    void sourceIsRemovedByTheMenu();
    void opacityChangesByTheMenu();
    void menuMarksWhatTheLayerHas();
    void rightClickSelectsTheLayer();
    void menuOfARemovedLayerDoesNothing();

private:
    CanvasBench &bench() { return *m_bench; }
    /// Opens the context menu by the keyboard, and returns one of its menus.
    QMenu *openMenu(int index);

    std::unique_ptr<CanvasBench> m_bench;
};

void tst_CanvasMenu::init()
{
    m_bench = std::make_unique<CanvasBench>();
    QVERIFY(m_bench->openSelected());
    QTRY_COMPARE(m_bench->shown(2), QRect(1280, 0, 1280, 1080));
}

QMenu *tst_CanvasMenu::openMenu(int index)
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&bench().view, &event);
    auto *const menu = bench().view.findChild<QMenu *>();
    return menu ? menu->findChildren<QMenu *>(QString(), Qt::FindDirectChildrenOnly).value(index)
                : nullptr;
}

void tst_CanvasMenu::sourceChangesByTheMenu()
{
    bench().selection.setLayer(CanvasBench::id(2));
    QMenu *const sources = openMenu(0);
    QVERIFY(sources);
    QCOMPARE(sources->actions().at(4)->text(), QStringLiteral("Input 5  (1920×1080p60)"));
    sources->actions().at(4)->trigger();
    const auto source = [&] {
        return bench().held(2).source.general;
    };
    QTRY_COMPARE(source().id, quint32(2 << 16 | 1 << 8));
    QCOMPARE(source().type, 1);
    QCOMPARE(bench().held(2).source.crop.size(), std::size_t(1));
    QTRY_COMPARE(bench().item(2).face().source, QStringLiteral("Input 5"));
}

void tst_CanvasMenu::sourceIsRemovedByTheMenu()
{
    bench().selection.setLayer(CanvasBench::id(2));
    QMenu *const sources = openMenu(0);
    QVERIFY(sources);
    sources->actions().last()->trigger();
    QTRY_COMPARE(bench().held(2).source.general.type, 0);
    QTRY_COMPARE(bench().item(2).face().lines().first(), QStringLiteral("No source"));
}

void tst_CanvasMenu::opacityChangesByTheMenu()
{
    bench().selection.setLayer(CanvasBench::id(2));
    QMenu *const opacities = openMenu(1);
    QVERIFY(opacities);
    QCOMPARE(opacities->actions().at(2)->text(), QStringLiteral("50 %"));
    opacities->actions().at(2)->trigger();
    QTRY_COMPARE(bench().held(2).opacity, 50);
}

void tst_CanvasMenu::menuMarksWhatTheLayerHas()
{
    bench().selection.setLayer(CanvasBench::id(2));
    QMenu *const sources = openMenu(0);
    QVERIFY(sources);
    QStringList checked;
    const auto actions = sources->actions();
    for (const QAction *const action : actions) {
        if (action->isChecked())
            checked << action->text();
    }
    QCOMPARE(checked, QStringList{QStringLiteral("Input 6  (1920×1080p60)")});
}

void tst_CanvasMenu::rightClickSelectsTheLayer()
{
    const QPoint point = bench().pointOf(3);
    QContextMenuEvent event(QContextMenuEvent::Mouse, point,
                            bench().view.viewport()->mapToGlobal(point));
    QApplication::sendEvent(bench().view.viewport(), &event);
    QVERIFY(bench().selection.layer());
    QVERIFY(isSame(*bench().selection.layer(), CanvasBench::id(3)));
    QVERIFY(bench().view.findChild<QMenu *>());
}

void tst_CanvasMenu::menuOfARemovedLayerDoesNothing()
{
    bench().selection.setLayer(CanvasBench::id(2));
    const QPointer<QMenu> opacities = openMenu(1);
    QVERIFY(opacities);
    QVERIFY(resultOf(bench().wall->call(&Control::Layer::writeRemoved,
                                        {ProtoModel::Layer::s_LayerRemoved{CanvasBench::id(2)}})));
    QTRY_VERIFY(!bench().view.canvas().findLayer(CanvasBench::id(2)));
    QVERIFY(opacities);
    opacities->actions().at(2)->trigger();
    QCOMPARE(bench().complaints(), QStringList());
}

QTEST_MAIN(tst_CanvasMenu)
#include "tst_canvasmenu.moc"
