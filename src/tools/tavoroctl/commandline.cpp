#include "commandline.h"

#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/commands/helpcommand.h>
#include <tavorooperations/nearest.h>

#include <QCommandLineParser>

namespace Tavoro::Ctl {

namespace {

const QString helpOption = QStringLiteral("help");
const QString jsonOption = QStringLiteral("json");
const QString quietOption = QStringLiteral("quiet");
const QString requestTimeoutOption = QStringLiteral("request-timeout");
const QString shortHelp = QStringLiteral("h");
const QString shortVersion = QStringLiteral("v");
const QString timeoutOption = QStringLiteral("timeout");
const QString verboseOption = QStringLiteral("verbose");
const QString versionOption = QStringLiteral("version");

/// Adds options to \a parser, and their names to \a names.
void addOptions(QCommandLineParser &parser, const OptionRange &options, QStringList &names)
{
    for (const OptionRow &row : options) {
        parser.addOption(
            {QLatin1String(row.name), Texts::tr(row.effect), QLatin1String(row.value)});
        names += QLatin1String(row.name);
    }
}

void refuse(CommandLine &line, const QString &fault)
{
    if (line.fault.isEmpty())
        line.fault = fault;
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
        refuse(line, Texts::tr("\"%1\" is not a number of milliseconds above 0").arg(value));
}

void readCommonOptions(const QCommandLineParser &parser, CommandLine &line)
{
    line.isVerbose |= parser.isSet(verboseOption);
    line.asJson |= parser.isSet(jsonOption);
    line.isQuiet |= parser.isSet(quietOption);
    line.showsHelp |= parser.isSet(helpOption) || parser.isSet(shortHelp);
    line.showsVersion |= parser.isSet(versionOption) || parser.isSet(shortVersion);
    readMilliseconds(parser, timeoutOption, line, line.limits.ready);
    readMilliseconds(parser, requestTimeoutOption, line, line.limits.request);
}

/// What is wrong with the options, with a suggestion for an unknown one.
QString faultOf(const QCommandLineParser &parser, const QStringList &names)
{
    const QString unknown = parser.unknownOptionNames().value(0);
    const QString nearest = Operations::nearest(unknown, names);
    return nearest.isEmpty() ? parser.errorText()
                             : Texts::tr("%1 Did you mean --%2?").arg(parser.errorText(), nearest);
}

/// Reads the common options and those of \a options, and returns the other words.
QStringList parseWith(QCommandLineParser &parser, const OptionRange &options,
                      const QStringList &words, CommandLine &line)
{
    QStringList names;
    addOptions(parser, commonOptions(), names);
    addOptions(parser, options, names);
    parser.addOptions({{shortHelp, {}}, {shortVersion, {}}});
    if (!parser.parse(words))
        refuse(line, faultOf(parser, names));
    readCommonOptions(parser, line);
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
    if (QLatin1String(command.name) == QLatin1String("call"))
        parser.setOptionsAfterPositionalArgumentsMode(
            QCommandLineParser::ParseAsPositionalArguments);
    line.arguments.words =
        parseWith(parser, command.options, QStringList{program} + words.mid(wordsOfName), line);
    for (const OptionRow &row : command.options) {
        const QString name = QLatin1String(row.name);
        if (parser.isSet(name))
            line.arguments.options.insert(name, parser.value(name));
    }
    const bool isRun = !line.showsHelp && !line.showsVersion;
    if (isRun && !takesWords(command, static_cast<int>(line.arguments.words.size())))
        refuse(line,
               Texts::tr("%1 takes %2")
                   .arg(QLatin1String(command.name), QLatin1String(command.usage)));
}

} // namespace

CommandLine parseCommandLine(const QStringList &arguments)
{
    CommandLine line;
    QCommandLineParser parser;
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    const QStringList words = parseWith(parser, {}, arguments, line);
    line.command = findCommand(words);
    if (!line.fault.isEmpty() || line.showsVersion)
        return line;
    if (line.command)
        parseArguments(arguments.at(0), words, line);
    else if (!words.isEmpty())
        refuse(line, faultOfCommand(words));
    else if (!line.showsHelp)
        refuse(line, Texts::tr("expected a command; --help lists all commands"));
    // An error is an object even if the option follows what is wrong.
    line.asJson |= !line.fault.isEmpty() && words.contains(QStringLiteral("--json"));
    return line;
}

} // namespace Tavoro::Ctl
