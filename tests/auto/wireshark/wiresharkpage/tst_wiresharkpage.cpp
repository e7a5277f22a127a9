// The examples of docs/wireshark.md print what the page shows, and its filters are valid.

#include <support/wireshark/tshark.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

QString page()
{
    QFile file(QStringLiteral(SOURCE_DIR "/docs/wireshark.md"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

struct Example {
    QString command;
    QString output;
};

/// The commands of the blocks that begin with "```console", and what they print.
QVector<Example> examples()
{
    const QRegularExpression block(QStringLiteral("```console\n(.*?)```"),
                                   QRegularExpression::DotMatchesEverythingOption);
    QVector<Example> examples;
    auto blocks = block.globalMatch(page());
    while (blocks.hasNext()) {
        for (QString line : blocks.next().captured(1).split(QLatin1Char('\n'))) {
            if (line.startsWith(QLatin1String("$ ")))
                examples.append({line.mid(2), {}});
            else
                examples.last().output += line + QLatin1Char('\n');
        }
        examples.last().output.chop(1); // of the line before the end of the block
    }
    return examples;
}

QStringList filters()
{
    const QRegularExpression row(QStringLiteral("^\\| `([^`]+)` \\| "),
                                 QRegularExpression::MultilineOption);
    QStringList filters;
    const QString section = page().section(QStringLiteral("\n## Filters\n"), 1, 1);
    auto rows = row.globalMatch(section.section(QStringLiteral("\n## "), 0, 0));
    while (rows.hasNext())
        filters << rows.next().captured(1);
    return filters;
}

} // namespace

class tst_WiresharkPage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void examplesPrintWhatThePageShows();
    void filtersAreValid();

private:
    QString run(const QString &command);

    QTemporaryDir m_folder;
};

/// The commands run in a folder that has the captures of the repository. The user has no plugins
/// yet, and the package is installed in a folder instead of /opt/tavoro.
void tst_WiresharkPage::initTestCase()
{
    if (!Tshark::isInstalled())
        QSKIP(Tshark::skipMessage);
    const QDir folder(m_folder.path());
    QVERIFY(folder.mkpath(QStringLiteral("opt/lib/wireshark/plugins")));
    QVERIFY(QFile::copy(QStringLiteral(DISSECTOR),
                        folder.filePath(QStringLiteral("opt/lib/wireshark/plugins/tavoro.lua"))));
    QVERIFY(
        QFile::link(QStringLiteral(SOURCE_DIR "/tests"), folder.filePath(QStringLiteral("tests"))));
}

QString tst_WiresharkPage::run(const QString &command)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), m_folder.path());
    environment.insert(QStringLiteral("PATH"),
                       QStringLiteral(TOOL_DIR ":") + environment.value(QStringLiteral("PATH")));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    QString here = command;
    here.replace(QStringLiteral("/opt/tavoro"), m_folder.filePath(QStringLiteral("opt")));
    QProcess shell;
    shell.setProcessEnvironment(environment);
    shell.setWorkingDirectory(m_folder.path());
    shell.start(QStringLiteral("sh"), {QStringLiteral("-c"), here});
    if (!shell.waitForFinished(120000) || shell.exitCode() != 0)
        qFatal("%s: %s", qUtf8Printable(command), shell.readAllStandardError().constData());
    return QString::fromUtf8(shell.readAllStandardOutput());
}

void tst_WiresharkPage::examplesPrintWhatThePageShows()
{
    const QVector<Example> shown = examples();
    QCOMPARE(shown.size(), 8);
    run(QStringLiteral("tavoroctl replay tests/data/captures/swap.txt --pcapng swap.pcapng"));
    for (const Example &example : shown)
        QCOMPARE(run(example.command).split(QLatin1Char('\n')),
                 example.output.split(QLatin1Char('\n')));
    QVERIFY(
        run(QStringLiteral("tshark -G plugins")).contains(QStringLiteral("tavoro.lua\t" VERSION)));
}

void tst_WiresharkPage::filtersAreValid()
{
    const QStringList listed = filters();
    QCOMPARE(listed.size(), 16);
    Tshark::lines(m_folder.filePath(QStringLiteral("swap.pcapng")),
                  QLatin1Char('(') + listed.join(QStringLiteral(") or (")) + QLatin1Char(')'));
}

QTEST_GUILESS_MAIN(tst_WiresharkPage)
#include "tst_wiresharkpage.moc"
