// The command-line tool. tavoroctl --help lists its commands.

#include "commandline.h"

#include <tavoroctl/output/standardstreams.h>

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    using namespace Tavoro::Ctl;
    protectStandardStreams();
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tavoroctl"));

    const CommandLine line = parseCommandLine(QCoreApplication::arguments());
    setLogShown(line.isVerbose);
    Tool tool{Console(!line.isVerbose), Session(line.limits), line.asJson, line.limits.ready};
    if (!line.isValid)
        return refuse(tool, line.text);
    if (line.text.isEmpty())
        return tool.console.statusWithOutput(line.command->run(tool, line.arguments));
    tool.console.answer(line.text);
    return tool.console.statusWithOutput(Done);
}
