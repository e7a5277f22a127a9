// The context menu of a layer: source and opacity.
#include <support/tavoropanel/canvasbench.h>

#include <tavorobizmodel/enums.h>
#include <tavorobizmodel/file.h>
#include <tavorocontrol/file.h>

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
    void screensAndImagesAreInTheMenu();
    void opacityChangesByTheMenu();
    void menuMarksWhatTheLayerHas();
    void rightClickSelectsTheLayer();
    void menuOfARemovedLayerDoesNothing();

private:
    CanvasBench &bench() { return *m_bench; }
    /// Opens the context menu by the keyboard, and returns one of its menus.
    QMenu *openMenu(int index);
    QStringList textsOf(const QMenu &menu) const;
    /// Triggers the entry with this text. Returns whether there is one.
    static bool trigger(const QMenu &menu, const QString &text);

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

QStringList tst_CanvasMenu::textsOf(const QMenu &menu) const
{
    QStringList texts;
    const auto actions = menu.actions();
    for (const QAction *const action : actions)
        texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return texts;
}

bool tst_CanvasMenu::trigger(const QMenu &menu, const QString &text)
{
    const auto actions = menu.actions();
    for (QAction *const action : actions) {
        if (action->text() == text) {
            action->trigger();
            return true;
        }
    }
    return false;
}

void tst_CanvasMenu::sourceChangesByTheMenu()
{
    bench().selection.setLayer(CanvasBench::id(2));
    QMenu *const sources = openMenu(0);
    QVERIFY(sources);
    QVERIFY(trigger(*sources, QStringLiteral("Input 5 – 1920 × 1080, 60 Hz")));
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
    QVERIFY(trigger(*sources, QStringLiteral("No source")));
    QTRY_COMPARE(bench().held(2).source.general.type, 0);
    QTRY_COMPARE(bench().item(2).face().lines().first(), QStringLiteral("No source"));
}

void tst_CanvasMenu::screensAndImagesAreInTheMenu()
{
    ProtoModel::File::s_CreateImageFile image;
    image.fileId = 7;
    image.fileType = BizModel::Enum::File::Background;
    image.general.name = "R&D";
    image.source = {65792, 1, 8};
    QVERIFY(resultOf(bench().wall->call(&Control::File::writeCreateImageFile, {image})));
    QTRY_VERIFY(bench().model()->findFile(BizModel::Enum::File::Background, 7).lock());
    bench().selection.setLayer(CanvasBench::id(2));
    QMenu *const sources = openMenu(0);
    QVERIFY(sources);
    const QStringList texts = textsOf(*sources);
    QCOMPARE(texts.mid(0, 3).join(QLatin1Char('|')),
             QStringLiteral("No source|-|Input 1 – 1920 × 1080, 60 Hz"));
    QCOMPARE(texts.mid(10).join(QLatin1Char('|')),
             QStringLiteral("-|Screen Main – 3840 × 1080 px|Screen Blend – 3712 × 2032 px|"
                            "-|Image R&&D – 240 × 135 px"));

    QVERIFY(trigger(*sources, texts.last()));
    QTRY_COMPARE(bench().held(2).source.general.id, 7U);
    QCOMPARE(bench().held(2).source.general.type, 2);
    QTRY_COMPARE(bench().item(2).face().source, QStringLiteral("Image R&D"));
    QVERIFY(trigger(*sources, QStringLiteral("Screen Blend – 3712 × 2032 px")));
    QTRY_COMPARE(bench().item(2).face().source, QStringLiteral("Screen Blend"));
    QCOMPARE(bench().held(2).source.general.type, 3);
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
    QCOMPARE(checked, QStringList{QStringLiteral("Input 6 – 1920 × 1080, 60 Hz")});
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
