// The command-line tool. tavoroctl --help lists its commands.

#include "commandline.h"

#include <programhelp/hiddenoptions.h>
#include <tavorocontrol/proto/translations.h>
#include <tavoroctl/commands/helpcommand.h>
#include <tavoroctl/commands/program.h>
#include <tavoroctl/output/standardstreams.h>

#include <QCoreApplication>
#include <QLocale>

namespace {

using namespace Tavoro;
using namespace Tavoro::Ctl;

void showVersion(Tool &tool)
{
    const QString name = QStringLiteral("tavoroctl");
    const QString version = QStringLiteral(TAVORO_VERSION);
    if (tool.console.isJson())
        tool.console.answerObject(
            {{QStringLiteral("program"), name}, {QStringLiteral("version"), version}});
    else
        tool.console.answer(name + QLatin1Char(' ') + version);
}

ExitStatus run(Tool &tool, const CommandLine &line)
{
    if (!line.fault.isEmpty())
        return refuse(tool, line.fault);
    if (line.showsHelp)
        return showHelp(tool, tool.command.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    if (!line.showsVersion)
        return line.command->run(tool, line.arguments);
    showVersion(tool);
    return Done;
}

} // namespace

int main(int argc, char *argv[])
{
    protectStandardStreams();
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tavoroctl"));
    const QStringList arguments = QCoreApplication::arguments();
    // Programs that read the objects rely on their texts.
    if (arguments.contains(QStringLiteral("--json")))
        Translations::setLocale(QLocale::c());
    if (const auto status = Help::runHiddenOption(describeProgram(), completeValue, arguments))
        return *status;

    const CommandLine line = parseCommandLine(arguments);
    setLogShown(line.isVerbose);
    Tool tool{Console({line.asJson, line.isQuiet, !line.isVerbose}), Session(line.limits),
              line.limits.ready, line.command ? QString::fromLatin1(line.command->name) : QString(),
              SSProxy::ExchangeWatch()};
    return tool.console.statusWithOutput(run(tool, line));
}
