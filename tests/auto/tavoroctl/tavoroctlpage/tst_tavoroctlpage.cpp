// docs/tavoroctl.md and docs/wire.md have the same facts as the tables of the tool.

#include <tavoroctl/commands/commandtable.h>
#include <tavoroctl/output/exitstatus.h>
#include <tavoroctl/output/statusmeaning.h>

#include <QFile>
#include <QRegularExpression>
#include <QTest>

using namespace Tavoro::Ctl;

class tst_TavoroCtlPage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyCommandHasARow();
    void everyOptionIsNamed();
    void exitStatusesAreThoseOfThePage();
    void meaningsAreThoseOfTheWirePage();
    void otherStatusesHaveAMeaningToo();

private:
    static QString page(const char *name);
};

QString tst_TavoroCtlPage::page(const char *name)
{
    QFile file(QStringLiteral(DOCS_DIR "/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void tst_TavoroCtlPage::everyCommandHasARow()
{
    const QString text = page("tavoroctl.md");
    for (const CommandRow &row : CommandRange()) {
        const QRegularExpression start(QStringLiteral("^\\| `%1[ `]").arg(QLatin1String(row.name)),
                                       QRegularExpression::MultilineOption);
        QVERIFY2(start.match(text).hasMatch(), row.name);
    }
}

void tst_TavoroCtlPage::everyOptionIsNamed()
{
    const QString text = page("tavoroctl.md");
    const auto isNamed = [&](const OptionRow &option) {
        return text.contains(QStringLiteral("--") + QLatin1String(option.name));
    };
    for (const OptionRow &option : commonOptions())
        QVERIFY2(isNamed(option), option.name);
    for (const CommandRow &row : CommandRange()) {
        for (const OptionRow &option : row.options)
            QVERIFY2(isNamed(option), option.name);
    }
}

void tst_TavoroCtlPage::exitStatusesAreThoseOfThePage()
{
    const QString text = page("tavoroctl.md");
    int rows = 0;
    for (const ExitStatusRow &row : ExitStatusRange()) {
        const QString line = QStringLiteral("| %1 | `%2` | %3 |")
                                 .arg(row.status)
                                 .arg(QLatin1String(row.name), QLatin1String(row.meaning));
        QVERIFY2(text.contains(line), qPrintable(line));
        ++rows;
    }
    QCOMPARE(rows, 9);
}

void tst_TavoroCtlPage::meaningsAreThoseOfTheWirePage()
{
    const QString section = page("wire.md").section(QStringLiteral("## Statuses\n"), 1);
    const QRegularExpression row(QStringLiteral("^\\| (\\d+) \\| (.+) \\|$"),
                                 QRegularExpression::MultilineOption);
    QRegularExpressionMatchIterator rows =
        row.globalMatch(section.section(QStringLiteral("\n## "), 0, 0));
    int count = 0;
    for (; rows.hasNext(); ++count) {
        const QRegularExpressionMatch match = rows.next();
        const QString reason = QStringLiteral("hardware error:") + match.captured(1);
        QCOMPARE(withMeanings(QStringLiteral("It failed: %1 .").arg(reason)),
                 QStringLiteral("It failed: %1 (%2) .").arg(reason, match.captured(2)));
    }
    QCOMPARE(count, 12);
}

void tst_TavoroCtlPage::otherStatusesHaveAMeaningToo()
{
    QCOMPARE(meaningOfStatus(255), QStringLiteral("a status that only this device defines"));
    QCOMPARE(withMeanings(QStringLiteral("The device is offline")),
             QStringLiteral("The device is offline"));
}

QTEST_GUILESS_MAIN(tst_TavoroCtlPage)
#include "tst_tavoroctlpage.moc"
