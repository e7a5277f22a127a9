// The command-line tool: tavoroctl --help tells its commands.

#include "commands.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

namespace {

using namespace Tavoro::Ctl;

struct Options {
    QString command;
    QStringList words; ///< What stands behind the command.
    bool isVerbose = false;
    bool asJson = false;
    int timeout = 5000; ///< Milliseconds.
    QString text; ///< To be printed in place of running a command: help, or what is wrong.
    bool isValid = true;
};

void describe(QCommandLineParser &parser)
{
    parser.setApplicationDescription(
        QStringLiteral("Commands a device from a terminal.\n\nCommands:\n") + commandHelp()
        + QStringLiteral("\nExit status: 0 done, 1 a device or an operation failed, "
                         "2 the command line is wrong and nothing was sent for it."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({
        {QStringLiteral("verbose"), QStringLiteral("Show the log on standard error.")},
        {QStringLiteral("json"), QStringLiteral("Show JSON in place of tables.")},
        {QStringLiteral("timeout"),
         QStringLiteral("Wait MS milliseconds for a device to be ready (5000)."),
         QStringLiteral("MS")},
    });
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("What to do."),
                                 QStringLiteral("COMMAND [WORD ...]"));
}

void readValues(const QCommandLineParser &parser, Options &options)
{
    options.isVerbose |= parser.isSet(QStringLiteral("verbose"));
    options.asJson |= parser.isSet(QStringLiteral("json"));
    if (parser.isSet(QStringLiteral("help")))
        options.text = parser.helpText();
    if (parser.isSet(QStringLiteral("version")))
        options.text = QStringLiteral("tavoroctl " TAVORO_VERSION);
    if (!parser.isSet(QStringLiteral("timeout")))
        return;
    const QString value = parser.value(QStringLiteral("timeout"));
    options.timeout = value.toInt(&options.isValid);
    options.isValid = options.isValid && options.timeout > 0;
    if (!options.isValid)
        options.text = QStringLiteral("\"%1\" is not what --timeout takes.").arg(value);
}

/// Reads the options behind the first of \a words and returns the words that are none.
QStringList readOptions(const QStringList &words, bool onlyInFront, Options &options)
{
    QCommandLineParser parser;
    describe(parser);
    if (onlyInFront)
        parser.setOptionsAfterPositionalArgumentsMode(
            QCommandLineParser::ParseAsPositionalArguments);
    options.isValid = parser.parse(words);
    if (options.isValid)
        readValues(parser, options);
    else
        options.text = parser.errorText();
    return parser.positionalArguments();
}

/// Options may stand in front of the command and behind it; behind the host of a call everything
/// belongs to the call, since -1 is a filter there.
Options parse(const QStringList &arguments)
{
    Options options;
    const QStringList words = readOptions(arguments, true, options);
    if (!options.text.isEmpty() || words.isEmpty())
        return options;
    options.command = words.at(0);
    options.words = readOptions(words, options.command == QLatin1String("call"), options);
    return options;
}

int refuse(const QString &fault)
{
    std::fputs(qUtf8Printable(QStringLiteral("tavoroctl: %1\n").arg(fault)), stderr);
    return UsageError;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tavoroctl"));

    const Options options = parse(QCoreApplication::arguments());
    if (!options.isValid)
        return refuse(options.text);
    if (!options.text.isEmpty()) {
        std::puts(qUtf8Printable(options.text));
        return Done;
    }
    const CommandRow *const command = findCommand(options.command);
    if (!command)
        return refuse(options.command.isEmpty()
                          ? QStringLiteral("a command is missing; --help tells what there is")
                          : QStringLiteral("there is no command \"%1\"; --help tells what there is")
                                .arg(options.command));
    setLogShown(options.isVerbose);
    Tool tool{{}, Session(options.timeout), options.asJson};
    return command->run(tool, options.words);
}
