#include "commandline.h"

#include <QCommandLineParser>

namespace Tavoro::Ctl {

namespace {

const QString verboseOption = QStringLiteral("verbose");
const QString jsonOption = QStringLiteral("json");
const QString timeoutOption = QStringLiteral("timeout");
const QString requestTimeoutOption = QStringLiteral("request-timeout");

QString exitStatusHelp()
{
    return QStringLiteral("Exit status: 0 done, 1 a device, an operation or the output failed, 2 "
                          "the command line is wrong and nothing was sent for it.");
}

void addCommonOptions(QCommandLineParser &parser)
{
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({
        {verboseOption, QStringLiteral("Show the log on standard error.")},
        {jsonOption, QStringLiteral("Print JSON instead of tables.")},
        {timeoutOption, QStringLiteral("Wait MS milliseconds for a device to be ready (5000)."),
         QStringLiteral("MS")},
        {requestTimeoutOption,
         QStringLiteral("Wait at most MS milliseconds for each answer (as long as the library "
                        "waits, up to 200 s)."),
         QStringLiteral("MS")},
    });
}

void describeAll(QCommandLineParser &parser)
{
    parser.setApplicationDescription(
        QStringLiteral("Controls a device from a terminal.\n\nCommands:\n") + commandHelp()
        + QStringLiteral("\n\"tavoroctl COMMAND --help\" lists the options of a command.\n")
        + exitStatusHelp());
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("The command."),
                                 QStringLiteral("COMMAND [WORD ...]"));
}

void describe(QCommandLineParser &parser, const CommandRow &command)
{
    const QString name = QLatin1String(command.name);
    parser.setApplicationDescription(exitStatusHelp());
    parser.addPositionalArgument(name, QLatin1String(command.effect),
                                 name + QLatin1Char(' ') + QLatin1String(command.usage));
    for (const OptionRow &row : command.options)
        parser.addOption(
            {QLatin1String(row.name), QLatin1String(row.effect), QLatin1String(row.value)});
}

void refuse(CommandLine &line, const QString &fault)
{
    line.isValid = false;
    line.text = fault;
}

void readMilliseconds(const QCommandLineParser &parser, const QString &option, CommandLine &line,
                      int &milliseconds)
{
    if (!parser.isSet(option))
        return;
    const QString value = parser.value(option);
    bool ok = false;
    milliseconds = value.toInt(&ok);
    if (!ok || milliseconds <= 0)
        refuse(line, QStringLiteral("\"%1\" is not a number of milliseconds above 0").arg(value));
}

void readCommonOptions(const QCommandLineParser &parser, CommandLine &line)
{
    line.isVerbose |= parser.isSet(verboseOption);
    line.asJson |= parser.isSet(jsonOption);
    readMilliseconds(parser, timeoutOption, line, line.limits.ready);
    readMilliseconds(parser, requestTimeoutOption, line, line.limits.request);
    if (parser.isSet(QStringLiteral("help")))
        line.text = parser.helpText();
    if (parser.isSet(QStringLiteral("version")))
        line.text = QStringLiteral("tavoroctl " TAVORO_VERSION);
}

/// Reads the options that \a parser knows and returns the other words.
QStringList parseWith(QCommandLineParser &parser, const QStringList &words, CommandLine &line)
{
    addCommonOptions(parser);
    if (parser.parse(words))
        readCommonOptions(parser, line);
    else
        refuse(line, parser.errorText());
    return parser.positionalArguments();
}

/// Parses the words after the name of the command. Everything after the host of a call belongs to
/// the call, since -1 is a filter there.
void parseArguments(const QString &program, const QStringList &words, CommandLine &line)
{
    const CommandRow &command = *line.command;
    const auto wordsOfName =
        static_cast<int>(QString::fromLatin1(command.name).count(QLatin1Char(' '))) + 1;
    QCommandLineParser parser;
    describe(parser, command);
    if (QLatin1String(command.name) == QLatin1String("call"))
        parser.setOptionsAfterPositionalArgumentsMode(
            QCommandLineParser::ParseAsPositionalArguments);
    line.arguments.words = parseWith(parser, QStringList{program} + words.mid(wordsOfName), line);
    for (const OptionRow &row : command.options) {
        const QString name = QLatin1String(row.name);
        if (parser.isSet(name))
            line.arguments.options.insert(name, parser.value(name));
    }
    if (line.text.isEmpty() && !takesWords(command, static_cast<int>(line.arguments.words.size())))
        refuse(line,
               QStringLiteral("%1 takes %2")
                   .arg(QLatin1String(command.name), QLatin1String(command.usage)));
}

} // namespace

CommandLine parseCommandLine(const QStringList &arguments)
{
    CommandLine line;
    QCommandLineParser parser;
    describeAll(parser);
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    const QStringList words = parseWith(parser, arguments, line);
    if (!line.text.isEmpty())
        return line;
    line.command = findCommand(words);
    if (line.command)
        parseArguments(arguments.at(0), words, line);
    else if (words.isEmpty())
        refuse(line, QStringLiteral("expected a command; --help lists all commands"));
    else
        refuse(
            line,
            QStringLiteral("unknown command \"%1\"; --help lists all commands").arg(words.at(0)));
    return line;
}

} // namespace Tavoro::Ctl
