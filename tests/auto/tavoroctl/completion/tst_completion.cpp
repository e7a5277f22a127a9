// Completion: what the programs offer, and what bash, zsh and fish make of it.

#include <programhelp/hiddenoptions.h>
#include <tavoroctl/commands/commandtable.h>
#include <tavoroctl/commands/program.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace Tavoro;

class tst_Completion : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wordsAreCompleted_data();
    void wordsAreCompleted();
    void everyCommandAndOptionIsOffered();
    void namesOfFilesAreLeftToTheShell();
    void linesAreSplitAsShellsDo_data();
    void linesAreSplitAsShellsDo();

    void bashCompletes_data();
    void bashCompletes();
    void zshAcceptsTheScript();
    void fishCompletes();

private:
    static QByteArrayList words(const Help::Completions &found);
    static QByteArrayList complete(const QByteArrayList &typed);
    /// Runs a shell with the programs in its path and the script of tavoroctl as its argument.
    static QByteArray runShell(const QString &shell, const QString &form, const QByteArray &code,
                               const QStringList &arguments = {});
};

QByteArrayList tst_Completion::words(const Help::Completions &found)
{
    QByteArrayList list;
    for (const Help::Candidate &candidate : found.candidates)
        list += candidate.word.toUtf8();
    return list;
}

QByteArrayList tst_Completion::complete(const QByteArrayList &typed)
{
    QList<QString> list;
    for (const QByteArray &word : typed)
        list += QString::fromUtf8(word);
    return words(Help::complete(Ctl::describeProgram(), Ctl::completeValue, list));
}

void tst_Completion::wordsAreCompleted_data()
{
    QTest::addColumn<QByteArrayList>("typed");
    QTest::addColumn<QByteArrayList>("candidates");
    const QByteArrayList none;
    // clang-format off
    QTest::newRow("command")           << QByteArrayList{"se"}                        << QByteArrayList{"selfcheck"};
    QTest::newRow("first of two words") << QByteArrayList{"pro"}                      << QByteArrayList{"project"};
    QTest::newRow("second word")       << QByteArrayList{"preset", ""}                << QByteArrayList{"apply", "save"};
    QTest::newRow("after an option")   << QByteArrayList{"--json", "--timeout", "5", "disc"} << QByteArrayList{"discover"};
    QTest::newRow("option")            << QByteArrayList{"--ver"}                     << QByteArrayList{"--verbose", "--version"};
    QTest::newRow("option of a command") << QByteArrayList{"push", "--n"}             << QByteArrayList{"--name"};
    QTest::newRow("value of an option") << QByteArrayList{"push", "--type", "lo"}     << QByteArrayList{"logo"};
    QTest::newRow("operation")         << QByteArrayList{"call", "wall", "Screen.writeT"}
        << QByteArrayList{"Screen.writeTestPattern", "Screen.writeTBar", "Screen.writeTake"};
    QTest::newRow("operation of list") << QByteArrayList{"list", "Preset."}           << QByteArrayList{"Preset.presetApply"};
    QTest::newRow("type of a file")    << QByteArrayList{"pull", "wall", "s"}         << QByteArrayList{"screen-preset"};
    QTest::newRow("whole record")      << QByteArrayList{"call", "wall", "Screen.writeFTB", ""}
        << QByteArrayList{R"([{"screenId":0,"screenType":0,"FTB":{"enable":0,"time":0}}])"};
    QTest::newRow("first key")         << QByteArrayList{"call", "wall", "Device.writeSwap", "{"}      << QByteArrayList{R"({"swap":)"};
    QTest::newRow("begun key")         << QByteArrayList{"call", "wall", "Device.writeSwap", R"({"s)"} << QByteArrayList{R"({"swap":)"};
    QTest::newRow("keys not given yet") << QByteArrayList{"call", "wall", "Screen.writeFTB", R"([{"FTB":{"enable":1,"time":0},"screenId":1,)"}
        << QByteArrayList{R"([{"FTB":{"enable":1,"time":0},"screenId":1,"screenType":)"};
    QTest::newRow("key of a member")   << QByteArrayList{"call", "wall", "Screen.writeFTB", R"([{"screenId":1,"FTB":{"t)"}
        << QByteArrayList{R"([{"screenId":1,"FTB":{"time":)"};
    QTest::newRow("second element")    << QByteArrayList{"call", "wall", "Screen.writeFTB", R"([{"screenId":1},{"F)"}
        << QByteArrayList{R"([{"screenId":1},{"FTB":)"};
    QTest::newRow("value")             << QByteArrayList{"call", "wall", "Device.writeSwap", R"({"swap":)"} << none;
    QTest::newRow("filter")            << QByteArrayList{"call", "wall", "Screen.readDetails", ""} << none;
    QTest::newRow("too many words")    << QByteArrayList{"selfcheck", "wall", ""}     << none;
    QTest::newRow("host")              << QByteArrayList{"selfcheck", ""}             << none;
    // clang-format on
}

void tst_Completion::wordsAreCompleted()
{
    QFETCH(QByteArrayList, typed);
    QFETCH(QByteArrayList, candidates);
    QCOMPARE(complete(typed), candidates);
}

void tst_Completion::everyCommandAndOptionIsOffered()
{
    int commands = 0;
    for (const Ctl::CommandRow &row : Ctl::CommandRange()) {
        const QByteArrayList name = QByteArray(row.name).split(' ');
        QVERIFY2(complete(name.mid(0, name.size() - 1) + QByteArrayList{""}).contains(name.last()),
                 row.name);
        const QByteArrayList options = complete(name + QByteArrayList{"--"});
        for (const Ctl::OptionRow &option : row.options)
            QVERIFY2(options.contains(QByteArray("--") + option.name), option.name);
        for (const Ctl::OptionRow &option : Ctl::commonOptions())
            QVERIFY2(options.contains(QByteArray("--") + option.name), option.name);
        ++commands;
    }
    QVERIFY(commands > 15);
}

void tst_Completion::namesOfFilesAreLeftToTheShell()
{
    const QList<QString> typed{QStringLiteral("push"), QStringLiteral("wall"), QString()};
    QVERIFY(Help::complete(Ctl::describeProgram(), Ctl::completeValue, typed).takesFiles);
}

void tst_Completion::linesAreSplitAsShellsDo_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArrayList>("words");
    // clang-format off
    QTest::newRow("words")         << "a  b c"           << QByteArrayList{"a", "b", "c"};
    QTest::newRow("blank at the end") << "a b "          << QByteArrayList{"a", "b", ""};
    QTest::newRow("single quotes") << R"(a '{"b": "c)"   << QByteArrayList{"a", R"({"b": "c)"};
    QTest::newRow("double quotes") << R"(a "b c" d)"     << QByteArrayList{"a", "b c", "d"};
    QTest::newRow("escapes")       << R"(a \{\"b\": c)"  << QByteArrayList{"a", R"({"b":)", "c"};
    QTest::newRow("colons")        << "a [::1]:66"       << QByteArrayList{"a", "[::1]:66"};
    // clang-format on
}

void tst_Completion::linesAreSplitAsShellsDo()
{
    QFETCH(QString, line);
    QFETCH(QByteArrayList, words);
    QByteArrayList split;
    for (const QString &word : Help::shellWords(line))
        split += word.toUtf8();
    QCOMPARE(split, words);
}

QByteArray tst_Completion::runShell(const QString &shell, const QString &form,
                                    const QByteArray &code, const QStringList &arguments)
{
    const QTemporaryDir folder;
    const QString script = folder.filePath(form);
    QProcess generator;
    generator.setStandardOutputFile(script);
    generator.start(QStringLiteral(TOOL_DIR "/tavoroctl"), {QStringLiteral("--generate"), form});
    if (!generator.waitForFinished())
        return "no script";
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PATH"),
                       QStringLiteral(TOOL_DIR ":") + qEnvironmentVariable("PATH"));
    environment.insert(QStringLiteral("HOME"), folder.path());
    environment.insert(QStringLiteral("SCRIPT"), script);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder.path());
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(shell, arguments + QStringList{QStringLiteral("-c"), QString::fromUtf8(code)});
    process.waitForFinished();
    return process.readAllStandardOutput();
}

void tst_Completion::bashCompletes_data()
{
    QTest::addColumn<QByteArray>("typed");
    QTest::addColumn<QByteArray>("completed");
    // clang-format off
    QTest::newRow("command")       << QByteArray("selfc")                   << QByteArray("selfcheck ");
    QTest::newRow("two words")     << QByteArray("project a")               << QByteArray("project apply ");
    QTest::newRow("option")        << QByteArray("push --na")               << QByteArray("push --name ");
    QTest::newRow("operation after a port") << QByteArray("call 127.0.0.1:6630 Screen.writeTak")
        << QByteArray("call 127.0.0.1:6630 Screen.writeTake ");
    QTest::newRow("record")        << QByteArray("call wall Device.writeSwap ")
        << QByteArray("call wall Device.writeSwap '{\"swap\":0}' ");
    QTest::newRow("key in quotes") << QByteArray("call wall Device.writeSwap '{\"sw")
        << QByteArray("call wall Device.writeSwap '{\"swap\":");
    QTest::newRow("file")          << QByteArray("push wall one-fi")        << QByteArray("push wall one-file ");
    // clang-format on
}

/// Types into an interactive bash and presses Tab: only readline knows what becomes of the line.
void tst_Completion::bashCompletes()
{
    QFETCH(QByteArray, typed);
    QFETCH(QByteArray, completed);
    const QByteArray keys = "tavoroctl " + typed + "\t\x07";
    const QByteArray output = runShell(QStringLiteral("sh"), QStringLiteral("bash"),
                                       "python3 " BASH_DRIVER " " + keys.toHex());
    QCOMPARE(output, "tavoroctl " + completed + '\n');
}

void tst_Completion::zshAcceptsTheScript()
{
    if (QStandardPaths::findExecutable(QStringLiteral("zsh")).isEmpty())
        QSKIP("zsh is not installed");
    // compadd shows what the script would offer.
    const QByteArray output =
        runShell(QStringLiteral("zsh"), QStringLiteral("zsh"),
                 "compdef() { }; . $SCRIPT\n"
                 "compadd() { print -r -- \"$words_found\" }\n"
                 "words=(tavoroctl preset ''); CURRENT=3; _tavoroctl\n"
                 "words=(tavoroctl call wall Device.writeSwap \"'{\"); CURRENT=5; _tavoroctl\n"
                 "_files() { print files }\n"
                 "words=(tavoroctl push wall ''); CURRENT=4; _tavoroctl\n",
                 {QStringLiteral("-f")});
    QCOMPARE(output, QByteArray("apply save\n{\"swap\":\nfiles\n"));
}

void tst_Completion::fishCompletes()
{
    if (QStandardPaths::findExecutable(QStringLiteral("fish")).isEmpty())
        QSKIP("fish is not installed");
    const QByteArray output = runShell(QStringLiteral("fish"), QStringLiteral("fish"),
                                       "source $SCRIPT; touch one-file\n"
                                       "complete -C 'tavoroctl preset '\n"
                                       "complete -C 'tavoroctl call wall Screen.writeTak'\n"
                                       "complete -C 'tavoroctl push wall one'\n",
                                       {QStringLiteral("--no-config")});
    QCOMPARE(output,
             QByteArray("apply\tApplies a preset.\n"
                        "save\tStores the screens with these IDs as a preset; all screens without "
                        "an ID.\n"
                        "Screen.writeTake\tTakes: switches the preview to programme with the given "
                        "transition.\n"
                        "one-file\n"));
}

QTEST_GUILESS_MAIN(tst_Completion)
#include "tst_completion.moc"
