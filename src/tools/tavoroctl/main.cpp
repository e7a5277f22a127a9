// The command-line tool: tavoroctl --help tells its commands.

#include "commandline.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char *argv[])
{
    using namespace Tavoro::Ctl;
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tavoroctl"));

    const CommandLine line = parseCommandLine(QCoreApplication::arguments());
    if (!line.isValid) {
        std::fputs(qUtf8Printable(QStringLiteral("tavoroctl: %1\n").arg(line.text)), stderr);
        return UsageError;
    }
    if (!line.text.isEmpty()) {
        std::puts(qUtf8Printable(line.text));
        return Done;
    }
    setLogShown(line.isVerbose);
    Tool tool{Console(!line.isVerbose), Session(line.timeout), line.asJson, line.timeout};
    return line.command->run(tool, line.arguments);
}
