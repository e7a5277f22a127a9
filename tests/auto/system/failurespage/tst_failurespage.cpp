// The page that tells applications what happens when something goes wrong: what it says is what the
// tests check.

#include <support/tavorosim/faultrows.h>

#include <support/tavorosim/faultrule.h>

#include <tavorocontrol/controlhelper.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QtTest>

using Tavoro::Control::ControlHelper;

class tst_FailuresPage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void namedTestsAreThere();
    void everyStatusOfTheChannelHasALine();
    void everyLineOfAStatusHasATest();
    void faultsAreThoseOfTheTable();
    void everyFaultOfTheDeviceIsInTheTable();

private:
    /// The cells of the table rows whose first cell fits \a first.
    QList<QStringList> rows(const QString &first) const;

    QString m_page;
};

void tst_FailuresPage::initTestCase()
{
    QFile page(QStringLiteral(FAILURES_PAGE));
    QVERIFY(page.open(QIODevice::ReadOnly));
    m_page = QString::fromUtf8(page.readAll());
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

/// The source file of the test program \a suite, in the folder of whichever library it tests.
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

void tst_FailuresPage::namedTestsAreThere()
{
    static const QRegularExpression name(QStringLiteral("`([a-z0-9]+)::(\\w+)`"));
    int count = 0;
    for (auto found = name.globalMatch(m_page); found.hasNext(); ++count) {
        const QRegularExpressionMatch match = found.next();
        const QString suite = match.captured(1);
        QFile source(sourceOf(suite));
        QVERIFY2(source.open(QIODevice::ReadOnly), qPrintable(suite));
        const QString function = QStringLiteral("::%1()\n").arg(match.captured(2));
        QVERIFY2(QString::fromUtf8(source.readAll()).contains(function),
                 qPrintable(match.captured()));
    }
    QVERIFY(count > 30);
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

void tst_FailuresPage::everyLineOfAStatusHasATest()
{
    const auto lines = rows(QStringLiteral("\\d+"));
    for (const QStringList &line : lines) {
        QCOMPARE(line.size(), 5);
        QVERIFY2(line.last().startsWith(QLatin1String("`channelstatuses::")),
                 qPrintable(line.at(0)));
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
        cells << (row.isLost ? QStringLiteral("anew") : QStringLiteral("same"));
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
