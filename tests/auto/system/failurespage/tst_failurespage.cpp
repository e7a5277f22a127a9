// docs/failures.md says what applications see when something goes wrong.
// tests/data/failures.tsv names the test of each statement of the page: a passage of the page,
// then the test.

#include <support/common/datatable.h>
#include <support/tavorosim/faultrows.h>

#include <support/tavorosim/faultrule.h>

#include <tavorocontrol/controlhelper.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QtTest>

#include <algorithm>
#include <utility>

using Tavoro::Control::ControlHelper;

class tst_FailuresPage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void namedTestsExist_data();
    void namedTestsExist();
    void testsNameAPassageOfThePage_data();
    void testsNameAPassageOfThePage();
    void everyStatusOfTheChannelHasALine();
    void everyStatementHasATest();
    void faultsAreThoseOfTheTable();
    void everyFaultOfTheDeviceIsInTheTable();

private:
    /// The cells of the table rows whose first cell fits \a first.
    QList<QStringList> rows(const QString &first) const;

    QString m_page;
    QList<QStringList> m_tests; ///< A passage of the page, and the test that checks it.
};

void tst_FailuresPage::initTestCase()
{
    QFile page(QStringLiteral(FAILURES_PAGE));
    QVERIFY(page.open(QIODevice::ReadOnly));
    m_page = QString::fromUtf8(page.readAll());
    m_tests = dataTable(QStringLiteral("failures.tsv"));
    QVERIFY(m_tests.size() > 30);
}

QList<QStringList> tst_FailuresPage::rows(const QString &first) const
{
    const QRegularExpression fits(QStringLiteral("^\\| (%1) \\|").arg(first));
    QList<QStringList> rows;
    const QStringList lines = m_page.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (!fits.match(line).hasMatch())
            continue;
        QStringList cells = line.split(QLatin1Char('|'));
        for (QString &cell : cells)
            cell = cell.trimmed();
        rows << cells.mid(1, cells.size() - 2);
    }
    return rows;
}

/// The source file of the test program \a suite, in the folder of the library that it tests.
QString sourceOf(const QString &suite)
{
    const QDir tests(QStringLiteral(TESTS_DIR));
    const QStringList libraries = tests.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &library : libraries) {
        const QString path = tests.filePath(QStringLiteral("%1/%2/tst_%2.cpp").arg(library, suite));
        if (QFile::exists(path))
            return path;
    }
    return {};
}

/// \a text on one line, so that a passage is found across the ends of lines.
QString unwrapped(const QString &text)
{
    return text.simplified();
}

void tst_FailuresPage::namedTestsExist_data()
{
    QTest::addColumn<QString>("test");
    QStringList tests;
    for (const QStringList &row : std::as_const(m_tests))
        tests << row.value(1);
    tests.removeDuplicates();
    for (const QString &test : std::as_const(tests))
        QTest::newRow(qPrintable(test)) << test;
}

void tst_FailuresPage::namedTestsExist()
{
    QFETCH(const QString, test);
    const QStringList names = test.split(QStringLiteral("::"));
    QCOMPARE(names.size(), 2);
    QFile source(sourceOf(names.first()));
    QVERIFY(source.open(QIODevice::ReadOnly));
    const QString function = QStringLiteral("::%1()\n").arg(names.last());
    QVERIFY(QString::fromUtf8(source.readAll()).contains(function));
}

void tst_FailuresPage::testsNameAPassageOfThePage_data()
{
    QTest::addColumn<QString>("passage");
    for (const QStringList &row : std::as_const(m_tests))
        QTest::addRow("%s %s", qPrintable(row.value(1)), qPrintable(row.value(0))) << row.value(0);
}

void tst_FailuresPage::testsNameAPassageOfThePage()
{
    QFETCH(const QString, passage);
    QVERIFY(unwrapped(m_page).contains(passage));
}

void tst_FailuresPage::everyStatusOfTheChannelHasALine()
{
    QStringList statuses;
    const auto lines = rows(QStringLiteral("\\d+"));
    for (const QStringList &line : lines) {
        statuses << line.at(0);
        QCOMPARE(line.at(1), ControlHelper::errorText(line.at(0).toUShort()));
    }
    statuses.removeDuplicates();
    QCOMPARE(statuses.join(QLatin1Char(' ')),
             QStringLiteral("257 258 259 260 261 262 263 264 357 358 359 360 361 362 363 364 365"));
}

/// The bullets of the first section, and the rows of the tables of reports, reasons and statuses.
QStringList statements(const QString &page)
{
    static const QRegularExpression bullet(QStringLiteral("\n- ((?:.|\n  )+)"));
    static const QRegularExpression row(
        QStringLiteral("\n(\\|(?! (?:operation|reason|status) \\|)[^-].*)"));
    const QString always = page.section(QStringLiteral("\n## "), 1, 1);
    const QString reported = page.section(QStringLiteral("\n## "), 2, 3);
    QStringList found;
    for (auto match = bullet.globalMatch(always); match.hasNext();)
        found << unwrapped(match.next().captured(1));
    for (auto match = row.globalMatch(reported); match.hasNext();)
        found << unwrapped(match.next().captured(1));
    return found;
}

void tst_FailuresPage::everyStatementHasATest()
{
    const QStringList all = statements(m_page);
    QCOMPARE(all.size(), 10 + 7 + 9 + 19);
    for (const QString &statement : all) {
        const bool isTested =
            std::any_of(m_tests.cbegin(), m_tests.cend(),
                        [&](const QStringList &row) { return statement.contains(row.value(0)); });
        QVERIFY2(isTested, qPrintable(statement));
    }
}

void tst_FailuresPage::faultsAreThoseOfTheTable()
{
    static const QRegularExpression packet(QStringLiteral("@\\d/\\d"));
    const auto lines = rows(QStringLiteral("`[a-z=0-9-]+`"));
    QCOMPARE(int(lines.size()), int(std::size(faultRows)));
    for (int i = 0; i < int(lines.size()); ++i) {
        const FaultRow &row = faultRows[i];
        QStringList cells{QStringLiteral("`%1`").arg(QLatin1String(row.fault)), lines.at(i).at(1)};
        for (const char *cell : row.cells)
            cells << QString::fromLatin1(cell)
                         .replace(QLatin1String("|"), QLatin1String(" or "))
                         .remove(packet);
        cells << (row.isLost ? QStringLiteral("new") : QStringLiteral("same"));
        QCOMPARE(lines.at(i), cells);
    }
}

void tst_FailuresPage::everyFaultOfTheDeviceIsInTheTable()
{
    QStringList ofDevice = faultNames();
    QStringList inTable{QStringLiteral("other-tag")}; // takes two requests: below the table
    for (const FaultRow &row : faultRows)
        inTable << QString::fromLatin1(row.fault).section(QLatin1Char('='), 0, 0);
    inTable.removeDuplicates();
    ofDevice.sort();
    inTable.sort();
    QCOMPARE(ofDevice.join(QLatin1Char(' ')), inTable.join(QLatin1Char(' ')));
}

QTEST_GUILESS_MAIN(tst_FailuresPage)
#include "tst_failurespage.moc"
