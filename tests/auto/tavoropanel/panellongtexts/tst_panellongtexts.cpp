// The parts of the window with texts that are half as long again.

#include <support/tavoropanel/longtranslator.h>
#include <support/tavoropanel/panelbench.h>

#include <tavoropanel/details/detailsview.h>
#include <tavoropanel/files/filesview.h>
#include <tavoropanel/files/sourcesview.h>
#include <tavoropanel/presets/presetsview.h>
#include <tavoropanel/presets/savepresetdialog.h>

#include <QAbstractButton>
#include <QLabel>
#include <QTabBar>

using namespace Tavoro;
using namespace Tavoro::Panel;

namespace {

/// Whether a text is cut off.
bool isCut(const QWidget &widget)
{
    if (const auto *const label = qobject_cast<const QLabel *>(&widget)) {
        const int height = label->hasHeightForWidth() ? label->heightForWidth(label->width())
                                                      : label->sizeHint().height();
        const bool isTooNarrow =
            !label->wordWrap() && label->width() < label->minimumSizeHint().width();
        return isTooNarrow || label->height() < height;
    }
    if (const auto *const button = qobject_cast<const QAbstractButton *>(&widget))
        return !button->text().isEmpty() && button->width() < button->minimumSizeHint().width();
    return false;
}

/// The texts that are cut off when a part has its least size, but is high enough.
QStringList cutTexts(QWidget &part)
{
    part.resize(part.minimumSizeHint().width(), 1200);
    part.show();
    QTest::qWait(0); // the layout is made when events are processed
    QStringList cut;
    for (const QWidget *const widget : part.findChildren<QWidget *>()) {
        if (widget->isVisible() && isCut(*widget))
            cut << widget->property("text").toString();
    }
    return cut;
}

} // namespace

class tst_PanelLongTexts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void presetsShowTheirTexts();
    void saveDialogShowsItsTexts();
    void sourcesShowTheirTexts();
    void imagesShowTheirTexts();
    void detailsShowTheirTexts();
    void cleanupTestCase();

private:
    template <class View>
    QStringList cutTextsOf(PanelBench &bench)
    {
        View view(bench.selection, bench.messages, bench.changes, bench.actions);
        return cutTexts(view);
    }

    LongTranslator m_translator;
};

void tst_PanelLongTexts::initTestCase()
{
    QVERIFY(QCoreApplication::installTranslator(&m_translator));
}

void tst_PanelLongTexts::cleanupTestCase()
{
    QCoreApplication::removeTranslator(&m_translator);
}

void tst_PanelLongTexts::presetsShowTheirTexts()
{
    PanelBench bench;
    QVERIFY(bench.openSelected());
    QCOMPARE(cutTextsOf<PresetsView>(bench), QStringList());
}

void tst_PanelLongTexts::saveDialogShowsItsTexts()
{
    SavePresetDialog dialog(QStringLiteral("Preset 1"), {QStringLiteral("Main")});
    dialog.setAttribute(Qt::WA_DeleteOnClose, false);
    QCOMPARE(cutTexts(dialog), QStringList());
}

void tst_PanelLongTexts::sourcesShowTheirTexts()
{
    PanelBench bench;
    QVERIFY(bench.openSelected());
    QCOMPARE(cutTextsOf<SourcesView>(bench), QStringList());
}

void tst_PanelLongTexts::imagesShowTheirTexts()
{
    PanelBench bench;
    QVERIFY(bench.openSelected());
    QCOMPARE(cutTextsOf<FilesView>(bench), QStringList());
}

void tst_PanelLongTexts::detailsShowTheirTexts()
{
    PanelBench bench;
    QVERIFY(bench.openSelected());
    DetailsView view(bench.selection, bench.messages, bench.changes, bench.actions);
    bench.selection.setInterface(Selection::InterfaceId{1, 1, 0});
    bench.selection.setLayer(PanelBench::layerId());
    auto *const tabs = view.findChild<QTabBar *>();
    for (int tab = 0; tab < tabs->count(); ++tab) {
        if (!tabs->isTabEnabled(tab))
            continue;
        tabs->setCurrentIndex(tab);
        QCOMPARE(cutTexts(view).join(QLatin1Char(',')), QString());
    }
}

QTEST_MAIN(tst_PanelLongTexts)
#include "tst_panellongtexts.moc"
