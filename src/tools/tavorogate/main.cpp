// The gateway between devices and an MQTT broker: tavorogate [--config FILE] [--check-config]

#include "commandline.h"
#include "gateway.h"

#include <programhelp/hiddenoptions.h>
#include <tavoroctl/session/interruption.h>

#include <QCoreApplication>
#include <QLoggingCategory>

#include <cstdio>

namespace {

using namespace Tavoro;
using namespace Tavoro::Gate;

enum ExitStatus {
    Done = 0,
    InvalidConfig = 1,
    UsageError = 2,
};

void printLine(FILE *stream, const QString &text)
{
    std::fputs(qUtf8Printable(text + QLatin1Char('\n')), stream);
    std::fflush(stream);
}

int serve(const GateConfig &config)
{
    Gateway gateway(config);
    QObject::connect(&gateway, &Gateway::stopped, &QCoreApplication::quit);
    const Ctl::Interruption interruption([&] { gateway.stop(); });
    gateway.start();
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tavorogate"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TAVORO_VERSION));
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*.info=false\ntavoro.*.debug=false\n"
                                                    "tavoro.gate*.info=true"));

    if (const auto status =
            Help::runHiddenOption(describeProgram(), nullptr, QCoreApplication::arguments()))
        return *status;
    const CommandLine line = parseCommandLine(QCoreApplication::arguments());
    if (!line.text.isEmpty()) {
        printLine(line.isValid ? stdout : stderr, line.text);
        return line.isValid ? Done : UsageError;
    }
    QString error;
    const auto config = readConfig(line.configFile, error);
    if (!config) {
        printLine(stderr, QStringLiteral("tavorogate: ") + error);
        return InvalidConfig;
    }
    if (line.onlyChecks) {
        printLine(stdout, QStringLiteral("%1 is valid.").arg(line.configFile));
        return Done;
    }
    return serve(*config);
}
