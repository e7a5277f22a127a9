// The inputs of a simulated device, with their signals.

#include <support/tavoropanel/panelbench.h>

#include <tavoropanel/files/sourcesview.h>
#include <tavoropanel/sources/layersources.h>

#include <tavorobizmodel/layer.h>

#include <QIcon>
#include <QImage>
#include <QListView>
#include <QMimeData>
#include <QSignalSpy>
#include <QToolButton>

using namespace Tavoro;
using namespace Tavoro::Panel;

namespace {

class SourcesBench : public PanelBench {
public:
    SourcesBench()
    {
        if (!openSelected())
            qFatal("the device is not ready");
        view = std::make_unique<SourcesView>(selection, messages, changes, actions);
        view->resize(300, 400);
        view->show();
        list = view->findChild<QListView *>();
        button = view->findChild<QToolButton *>(QStringLiteral("showInLayer"));
    }
    QString text(int row, int role = Qt::DisplayRole) const
    {
        return list->model()->index(row, 0).data(role).toString();
    }
    void click(int row)
    {
        const QPoint place = list->visualRect(list->model()->index(row, 0)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    }
    QImage sign(int row) const
    {
        return list->model()
            ->index(row, 0)
            .data(Qt::DecorationRole)
            .value<QIcon>()
            .pixmap(64)
            .toImage();
    }
    quint32 source() const
    {
        return model()->findLayer(layerId()).lock()->detail().source.general.id;
    }

    std::unique_ptr<SourcesView> view;
    QListView *list = nullptr;
    QToolButton *button = nullptr;
};

} // namespace

class tst_PanelSources : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void inputsHaveNameAndFormat();
    void deadInputIsMarkedInWordsAndSign();
    void inputOfAFailedCardSaysSo();
    void inputsOfALostDeviceSaySo();
    void clickedInputIsSelected();
    void listThatGetsTheFocusSelectsNoInput();
    void clickOnTheSelectedInputSelectsItAgain();
    void draggedInputIsASource();
    void buttonShowsTheInputInTheLayer();
    void buttonNeedsALayer();
};

void tst_PanelSources::inputsHaveNameAndFormat()
{
    SourcesBench bench;
    QCOMPARE(bench.list->model()->rowCount(), 2);
    QCOMPARE(bench.text(0), QStringLiteral("Input 1\n1920 × 1080, 60 Hz, 8 bit"));
    QCOMPARE(bench.text(1, Qt::AccessibleTextRole), QStringLiteral("Input 2"));
    QVERIFY(bench.execute(QStringLiteral("timing 1 2 3840 2160 50")));
    QTRY_COMPARE(bench.text(1), QStringLiteral("Input 2\n3840 × 2160, 50 Hz, 8 bit"));
}

void tst_PanelSources::deadInputIsMarkedInWordsAndSign()
{
    SourcesBench bench;
    const QImage live = bench.sign(0);
    QVERIFY(bench.execute(QStringLiteral("cable 1 1")));
    QTRY_COMPARE(bench.text(0), QStringLiteral("Input 1\nNo signal"));
    QCOMPARE(bench.text(0, Qt::AccessibleDescriptionRole), QStringLiteral("No signal"));
    QVERIFY(bench.sign(0) != live);
    QCOMPARE(bench.sign(1), live);
}

void tst_PanelSources::inputOfAFailedCardSaysSo()
{
    SourcesBench bench;
    QVERIFY(bench.execute(QStringLiteral("card 1 0")));
    QTRY_COMPARE(bench.text(0), QStringLiteral("Input 1\nThe card does not work"));
}

void tst_PanelSources::inputsOfALostDeviceSaySo()
{
    SourcesBench bench;
    QVERIFY(bench.execute(QStringLiteral("switch 0")));
    QTRY_COMPARE(bench.text(1), QStringLiteral("Input 2\nNot connected"));
    bench.selection.setDevice(nullptr);
    QCOMPARE(bench.list->model()->rowCount(), 0);
}

void tst_PanelSources::clickedInputIsSelected()
{
    SourcesBench bench;
    bench.click(1);
    QVERIFY(bench.selection.interface());
    QCOMPARE(bench.selection.interface()->connectorId, 2);
    QTest::keyClick(bench.list, Qt::Key_Up);
    QCOMPARE(bench.selection.interface()->connectorId, 1);
}

/// For example because the control that had the focus was disabled when the device was lost.
void tst_PanelSources::listThatGetsTheFocusSelectsNoInput()
{
    SourcesBench bench;
    bench.view->activateWindow();
    bench.list->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(bench.list->currentIndex().isValid());
    QVERIFY(!bench.selection.interface());
}

void tst_PanelSources::clickOnTheSelectedInputSelectsItAgain()
{
    SourcesBench bench;
    bench.click(1);
    QSignalSpy selected(&bench.selection, &Selection::interfaceChanged);
    bench.click(1);
    QVERIFY(!selected.isEmpty());
}

void tst_PanelSources::draggedInputIsASource()
{
    SourcesBench bench;
    const QModelIndex input = bench.list->model()->index(1, 0);
    QVERIFY(input.flags() & Qt::ItemIsDragEnabled);
    QVERIFY(bench.list->dragEnabled());
    const std::unique_ptr<QMimeData> data(bench.list->model()->mimeData({input}));
    const auto source = sourceIn(*data);
    QVERIFY(source);
    QCOMPARE(source->type, 1);
    QCOMPARE(source->id, 0x10200U);
}

void tst_PanelSources::buttonShowsTheInputInTheLayer()
{
    SourcesBench bench;
    bench.selection.setLayer(SourcesBench::layerId());
    QCOMPARE(bench.source(), 0x10100U);
    bench.click(1);
    QTest::mouseClick(bench.button, Qt::LeftButton);
    QTRY_COMPARE(bench.source(), 0x10200U);
    bench.changes.undo();
    QTRY_COMPARE(bench.source(), 0x10100U);
}

void tst_PanelSources::buttonNeedsALayer()
{
    SourcesBench bench;
    bench.click(1);
    QVERIFY(!bench.button->isEnabled());
    bench.selection.setLayer(SourcesBench::layerId());
    QVERIFY(bench.button->isEnabled());
    QVERIFY(bench.execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!bench.button->isEnabled());
}

QTEST_MAIN(tst_PanelSources)
#include "tst_panelsources.moc"
