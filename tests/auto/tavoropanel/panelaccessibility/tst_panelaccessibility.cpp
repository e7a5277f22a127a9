// What assistive technology, the keyboard and translations need, in the whole window.
#include <support/tavoropanel/windowbench.h>

#include <tavoropanel/actions/actiontable.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QLayout>
#include <QTabBar>
#include <QTranslator>
#include <QTreeWidget>

#include <cmath>

using namespace Tavoro;
using namespace Tavoro::Panel;

Q_DECLARE_METATYPE(Tavoro::Panel::Theme)

class tst_PanelAccessibility : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFocusableWidgetHasNameAndDescription_data() { addThemes(); }
    void everyFocusableWidgetHasNameAndDescription();
    void textsHaveContrast_data() { addThemes(); }
    void textsHaveContrast();
    void everyControlIsReachedWithTheTabKey();
    void longerTextsAreNotCutOff();
    void everyActionHasTextAndDescription();
    void shortcutsAreUniqueAndListed();

private:
    static void addThemes()
    {
        QTest::addColumn<Theme>("theme");
        QTest::newRow("dark") << Theme::Dark;
        QTest::newRow("light") << Theme::Light;
    }
};

namespace {

/// Parts of other widgets, which speak for them.
bool isPart(const QWidget &widget)
{
    const QString name = widget.objectName();
    const QWidget *const parent = widget.parentWidget();
    if (qobject_cast<const QTabBar *>(parent)) // its buttons that scroll
        return true;
    if (widget.window()->windowType() == Qt::Popup) // the list of a combo box
        return true;
    return name.startsWith(QLatin1String("qt_")) || (parent && parent->focusProxy() == &widget)
        || widget.focusProxy();
}

QList<QWidget *> focusable(const QWidget &window)
{
    QList<QWidget *> found;
    for (QWidget *const widget : window.findChildren<QWidget *>()) {
        if (widget->focusPolicy() & Qt::TabFocus && !isPart(*widget))
            found << widget;
    }
    return found;
}

QString nameOf(const QWidget &widget)
{
    QStringList path;
    for (const QWidget *each = &widget; each && path.size() < 4; each = each->parentWidget())
        path.prepend(QLatin1String(each->metaObject()->className()) + QLatin1Char('/')
                     + each->objectName());
    return path.join(QStringLiteral(" > "));
}

/// Makes each text half as long again, as translations may be.
class LongTexts : public QTranslator {
public:
    QString translate(const char *, const char *source, const char *, int) const override
    {
        const QString text = QString::fromUtf8(source);
        return text + QString((text.size() + 1) / 2, QLatin1Char('x'));
    }
    bool isEmpty() const override { return false; }
};

/// Relative luminance as the accessibility guidelines of the web define it.
double luminance(const QColor &colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

} // namespace

void tst_PanelAccessibility::everyFocusableWidgetHasNameAndDescription()
{
    QFETCH(const Theme, theme);
    WindowBench bench;
    applyTheme(theme);
    QVERIFY(bench.openSelected());
    QStringList faults;
    const auto widgets = focusable(*bench.window);
    QVERIFY(widgets.size() > 20);
    for (QWidget *const widget : widgets) {
        QAccessibleInterface *const seen = QAccessible::queryAccessibleInterface(widget);
        const bool isNamed = seen && !seen->text(QAccessible::Name).isEmpty();
        // Qt reports no description of a tab bar.
        const bool isDescribed = (seen && !seen->text(QAccessible::Description).isEmpty())
            || !widget->accessibleDescription().isEmpty();
        if (!isNamed || !isDescribed)
            faults << QStringLiteral("%1: name %2, description %3")
                          .arg(nameOf(*widget),
                               isNamed ? QStringLiteral("yes") : QStringLiteral("no"),
                               isDescribed ? QStringLiteral("yes") : QStringLiteral("no"));
    }
    for (const QString &fault : qAsConst(faults))
        qWarning("%s", qUtf8Printable(fault));
    QVERIFY2(faults.isEmpty(), qUtf8Printable(faults.join(QLatin1Char('\n'))));
}

void tst_PanelAccessibility::textsHaveContrast()
{
    QFETCH(const Theme, theme);
    applyTheme(theme);
    const QPalette palette = QApplication::palette();
    const QList<QPair<QPalette::ColorRole, QPalette::ColorRole>> pairs = {
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::PlaceholderText, QPalette::Base},
        {QPalette::ToolTipText, QPalette::ToolTipBase},
    };
    for (const auto &pair : pairs) {
        const double ratio = contrast(palette.color(pair.first), palette.color(pair.second));
        QVERIFY2(
            ratio >= 4.5,
            qPrintable(QStringLiteral("%1 on %2: %3").arg(pair.first).arg(pair.second).arg(ratio)));
    }
}

void tst_PanelAccessibility::everyControlIsReachedWithTheTabKey()
{
    WindowBench bench;
    QVERIFY(bench.openSelected());
    QStringList wanted{QStringLiteral("take"), QStringLiteral("cut"), QStringLiteral("freeze"),
                       QStringLiteral("fadeToBlack")};
    bench.window->setFocus();
    for (int i = 0; i < 300 && !wanted.isEmpty(); ++i) {
        QWidget *const focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : bench.window.get(), Qt::Key_Tab);
        if (QApplication::focusWidget())
            wanted.removeAll(QApplication::focusWidget()->objectName());
    }
    QVERIFY2(wanted.isEmpty(), qUtf8Printable(wanted.join(QLatin1Char(' '))));
}

void tst_PanelAccessibility::longerTextsAreNotCutOff()
{
    LongTexts translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    WindowBench bench;
    QVERIFY(bench.openSelected());
    bench.window->resize(1600, 960);
    QStringList widths;
    for (const char *const part :
         {"control", "devices", "canvas", "details", "presets", "sources", "files", "log", "live"})
        widths << QStringLiteral("%1 %2")
                      .arg(QLatin1String(part))
                      .arg(bench.find<QWidget>(part).minimumSizeHint().width());
    QVERIFY2(bench.window->minimumSizeHint().width() <= 1600,
             qUtf8Printable(widths.join(QStringLiteral(", "))));
    QTest::qWait(0);
    for (QAbstractButton *const button : bench.window->findChildren<QAbstractButton *>()) {
        if (button->isVisible() && !button->text().isEmpty())
            QVERIFY2(button->width() >= button->minimumSizeHint().width(),
                     qUtf8Printable(nameOf(*button) + button->text()));
    }
    QVERIFY(bench.find<QAbstractButton>("take").text().endsWith(QStringLiteral("xx")));
}

void tst_PanelAccessibility::everyActionHasTextAndDescription()
{
    WindowBench bench;
    for (const ActionRow &row : actionTable()) {
        const QAction &action = bench.window->actions().action(row.id);
        QVERIFY(!action.text().isEmpty());
        QVERIFY(action.text().contains(QLatin1Char('&')));
        QVERIFY2(action.toolTip().endsWith(QLatin1Char('.')), qUtf8Printable(action.text()));
        QVERIFY(*row.icon == '\0' || !action.icon().isNull());
    }
}

void tst_PanelAccessibility::shortcutsAreUniqueAndListed()
{
    WindowBench bench;
    QStringList shortcuts;
    for (const ActionRow &row : actionTable()) {
        if (*row.shortcut)
            shortcuts << bench.window->actions().action(row.id).shortcut().toString(
                QKeySequence::NativeText);
    }
    QVERIFY(shortcuts.contains(QStringLiteral("Space")));
    QCOMPARE(shortcuts.removeDuplicates(), 0);

    bench.key(Qt::Key_F1);
    const auto *const list = bench.window->findChild<QTreeWidget *>();
    QVERIFY(list);
    QStringList listed;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        listed << list->topLevelItem(i)->text(0);
    for (const QString &shortcut : qAsConst(shortcuts))
        QVERIFY2(listed.contains(shortcut), qUtf8Printable(shortcut));
}

QTEST_MAIN(tst_PanelAccessibility)
#include "tst_panelaccessibility.moc"
