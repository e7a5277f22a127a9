// Man pages and help have every command, option and exit status, and troff accepts the pages.

#include <programhelp/helptext.h>
#include <programhelp/manpage.h>
#include <tavoroctl/commands/program.h>
#include <tavorosim/commandline.h>

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>

using namespace Tavoro;

class tst_ManPages : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pageOfAProgram();
    void pagesHaveEverything_data();
    void pagesHaveEverything();
    void helpHasEverything_data();
    void helpHasEverything();
    void pagesAreValid_data();
    void pagesAreValid();

private:
    static void addPrograms();
    static Help::Program program(const QString &name);
    static void checkNames(const Help::Program &program, const QString &text);
};

void tst_ManPages::addPrograms()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("tavoroctl") << "tavoroctl";
    QTest::newRow("tavorosim") << "tavorosim";
}

Help::Program tst_ManPages::program(const QString &name)
{
    return name == QLatin1String("tavorosim") ? Sim::describeProgram() : Ctl::describeProgram();
}

void tst_ManPages::pageOfAProgram()
{
    Help::Program program;
    program.name = QStringLiteral("wall");
    program.version = QStringLiteral("1.2");
    program.summary = QStringLiteral("shows walls");
    program.options = {
        {QStringLiteral("wait-for"), QStringLiteral("MS"), QStringLiteral(".5 s - or \\ less")}};
    program.commands = {{QStringLiteral("show all"),
                         QStringLiteral("[NAME]"),
                         QStringLiteral("Shows them."),
                         {{QStringLiteral("big"), {}, QStringLiteral("Larger.")}}}};
    program.statuses = {{0, QStringLiteral("Done.")}};
    program.details = QStringLiteral("One.\nTwo.\n\nThree.");
    program.seeAlso = {QStringLiteral("other")};
    QCOMPARE(Help::manPage(program).toUtf8(), QByteArray(R"(.TH WALL 1 "" "wall 1.2"
.SH NAME
wall \- shows walls
.SH SYNOPSIS
\fBwall\fR [\fIOPTION ...\fR] \fICOMMAND [WORD ...]\fR
.SH COMMANDS
.SS \fBshow all\fR \fI[NAME]\fR
Shows them.
.TP
\fB\-\-big\fR
Larger.
.SH OPTIONS
.TP
\fB\-\-wait\-for\fR \fIMS\fR
\&.5 s \- or \e less
.SH DETAILS
.nf
One.
Two.
.fi
.PP
.nf
Three.
.fi
.SH EXIT STATUS
.TP
\fB0\fR
Done.
.SH SEE ALSO
\fBother\fR(1)
)"));
}

void tst_ManPages::checkNames(const Help::Program &program, const QString &text)
{
    const auto isThere = [&](const QString &words) {
        return text.contains(words);
    };
    QList<Help::Option> options = program.options;
    for (const Help::Command &command : program.commands) {
        QVERIFY2(isThere(command.name), qPrintable(command.name));
        options += command.options;
    }
    QVERIFY(options.size() > 6);
    for (const Help::Option &option : options)
        QVERIFY2(isThere(QStringLiteral("--") + option.name), qPrintable(option.name));
    QVERIFY(program.statuses.size() >= 3);
    for (const Help::Status &status : program.statuses)
        QVERIFY2(isThere(status.meaning), qPrintable(status.meaning));
}

void tst_ManPages::pagesHaveEverything_data()
{
    addPrograms();
}

void tst_ManPages::pagesHaveEverything()
{
    QFETCH(QString, name);
    const Help::Program described = program(name);
    checkNames(described, Help::manPage(described).remove(QLatin1Char('\\')));
}

void tst_ManPages::helpHasEverything_data()
{
    addPrograms();
}

void tst_ManPages::helpHasEverything()
{
    QFETCH(QString, name);
    const Help::Program described = program(name);
    QString text = Help::helpText(described);
    for (const Help::Command &command : described.commands)
        text += QLatin1Char('\n') + Help::helpText(described, command);
    for (const QString &line : text.split(QLatin1Char('\n')))
        QVERIFY2(line.size() <= 80 || described.details.contains(line), qPrintable(line));
    checkNames(described, text.simplified());
}

void tst_ManPages::pagesAreValid_data()
{
    addPrograms();
}

void tst_ManPages::pagesAreValid()
{
    QFETCH(QString, name);
    if (QStandardPaths::findExecutable(QStringLiteral("mandoc")).isEmpty())
        QSKIP("mandoc is not installed");
    QProcess checker;
    checker.start(QStringLiteral("mandoc"),
                  {QStringLiteral("-T"), QStringLiteral("lint"), QStringLiteral("-W"),
                   QStringLiteral("warning")});
    checker.write(Help::manPage(program(name)).toUtf8());
    checker.closeWriteChannel();
    QVERIFY(checker.waitForFinished());
    QByteArray found = checker.readAllStandardOutput();
    // The build does not know the date of the release.
    found.replace("mandoc: <stdin>:1:17: WARNING: missing date, using \"\": TH\n", "");
    QCOMPARE(found, QByteArray());
}

QTEST_GUILESS_MAIN(tst_ManPages)
#include "tst_manpages.moc"
