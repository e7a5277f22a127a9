// The panel in other languages.

#include <support/tavoropanel/windowbench.h>

#include <tavorocontrol/proto/translations.h>
#include <tavoropanel/devices/adddevicedialog.h>
#include <tavoropanel/window/shortcutsdialog.h>

#include <QAbstractButton>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QTranslator>

using namespace Tavoro;
using namespace Tavoro::Panel;

namespace {

/// Collects the texts that no catalogue has. Qt asks the translator that was installed first last.
class MissingTexts : public QTranslator {
public:
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        // Qt's own texts are in Qt's catalogues; units such as "px" are the same everywhere.
        constexpr uint longestUnit = 2;
        if (m_isCollecting && context[0] != 'Q' && qstrlen(source) > longestUnit)
            m_texts << QStringLiteral("%1: %2").arg(QLatin1String(context),
                                                    QString::fromUtf8(source));
        return {};
    }
    bool isEmpty() const override { return false; }
    void collect(bool on) { m_isCollecting = on; }
    QStringList take() { return std::exchange(m_texts, {}); }

private:
    bool m_isCollecting = false;
    mutable QStringList m_texts;
};

/// The letter after a single ampersand; null if there is none.
QChar accelerator(const QString &text)
{
    QString plain = text;
    plain.remove(QStringLiteral("&&"));
    const auto place = plain.indexOf(QLatin1Char('&'));
    return place < 0 ? QChar() : plain.at(place + 1).toLower();
}

/// The entries of a menu whose letter an earlier entry has.
QString ambiguousEntries(const QList<QAction *> &entries)
{
    QStringList ambiguous;
    QString letters;
    for (const QAction *const entry : entries) {
        const QChar letter = accelerator(entry->text());
        if (letter.isNull())
            continue;
        if (letters.contains(letter))
            ambiguous << entry->text();
        letters += letter;
    }
    return ambiguous.join(QLatin1String(", "));
}

} // namespace

class tst_PanelLanguages : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void windowIsTranslated_data();
    void windowIsTranslated();
    void everyTextHasATranslation_data();
    void everyTextHasATranslation();
    void menusHaveNoLetterTwice_data();
    void menusHaveNoLetterTwice();

private:
    MissingTexts m_missing;
};

void tst_PanelLanguages::initTestCase()
{
    QVERIFY(QCoreApplication::installTranslator(&m_missing));
}

void tst_PanelLanguages::cleanup()
{
    m_missing.collect(false);
    m_missing.take();
    Translations::setLocale(QLocale::c());
}

void tst_PanelLanguages::windowIsTranslated_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QStringList>("menus");
    QTest::addColumn<QString>("freeze");
    QTest::addColumn<QString>("freezeButton");
    QTest::newRow("German") << "de_DE"
                            << QStringList{QStringLiteral("&Gerät"), QStringLiteral("&Live"),
                                           QStringLiteral("&Bearbeiten"),
                                           QStringLiteral("&Ansicht"), QStringLiteral("&Hilfe")}
                            << QStringLiteral("Ein&frieren") << QStringLiteral("Einfrieren");
    QTest::newRow("French") << "fr_FR"
                            << QStringList{QStringLiteral("&Appareil"), QStringLiteral("&Direct"),
                                           QStringLiteral("&Édition"), QStringLiteral("A&ffichage"),
                                           QStringLiteral("Aid&e")}
                            << QStringLiteral("&Figer") << QStringLiteral("Figer");
    QTest::newRow("Chinese") << "zh_CN"
                             << QStringList{QStringLiteral("设备(&D)"), QStringLiteral("现场(&L)"),
                                            QStringLiteral("编辑(&E)"), QStringLiteral("视图(&V)"),
                                            QStringLiteral("帮助(&H)")}
                             << QStringLiteral("冻结(&R)") << QStringLiteral("冻结");
}

void tst_PanelLanguages::windowIsTranslated()
{
    QFETCH(const QString, locale);
    Translations::setLocale(QLocale(locale));
    const WindowBench bench;
    QStringList menus;
    for (const QAction *const menu : bench.window->menuBar()->actions())
        menus << menu->text();
    QTEST(menus, "menus");
    QTEST(bench.window->actions().action(ActionId::Freeze).text(), "freeze");
    QTEST(bench.find<QAbstractButton>("freeze").text(), "freezeButton");
}

void tst_PanelLanguages::everyTextHasATranslation_data()
{
    QTest::addColumn<QString>("locale");
    for (const char *const locale : {"de_DE", "fr_FR", "zh_CN"})
        QTest::newRow(locale) << QString::fromLatin1(locale);
}

void tst_PanelLanguages::everyTextHasATranslation()
{
    QFETCH(const QString, locale);
    Translations::setLocale(QLocale(locale));
    m_missing.collect(true);
    WindowBench bench;
    QVERIFY(bench.openSelected());
    bench.window->actions().action(ActionId::Freeze).trigger();
    QTRY_VERIFY(bench.screen(1, 1).freeze != 0);
    bench.window->selection().setInterface(Selection::InterfaceId{1, 1, 0});
    const AddDeviceDialog add;
    const ShortcutsDialog shortcuts(bench.window->actions());
    QCOMPARE(m_missing.take().join(QLatin1Char('\n')), QString());
}

void tst_PanelLanguages::menusHaveNoLetterTwice_data()
{
    everyTextHasATranslation_data();
}

void tst_PanelLanguages::menusHaveNoLetterTwice()
{
    QFETCH(const QString, locale);
    Translations::setLocale(QLocale(locale));
    const WindowBench bench;
    const QMenuBar &bar = *bench.window->menuBar();
    QCOMPARE(ambiguousEntries(bar.actions()), QString());
    for (const QAction *const menu : bar.actions()) {
        QVERIFY2(menu->menu(), qPrintable(menu->text()));
        QCOMPARE(ambiguousEntries(menu->menu()->actions()), QString());
    }
}

QTEST_MAIN(tst_PanelLanguages)
#include "tst_panellanguages.moc"
