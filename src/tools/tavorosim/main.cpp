// The simulated device as a program: tavorosim --help lists its options.

#include "commandline.h"
#include "inputlines.h"

#include <programhelp/hiddenoptions.h>
#include <tavorosim/server/simserver.h>
#include <tavorowire/hostandport.h>

#include <QCoreApplication>
#include <QTextStream>
#include <QTime>

#include <cstdio>

namespace {

using namespace Tavoro;
using namespace Tavoro::Sim;

enum ExitStatus {
    Done = 0,
    CannotServe = 1,
    UsageError = 2,
};

void printLine(FILE *stream, const QString &text)
{
    std::fputs(qUtf8Printable(text + QLatin1Char('\n')), stream);
    std::fflush(stream);
}

void logToStandardError(QtMsgType /*level*/, const QMessageLogContext & /*context*/,
                        const QString &text)
{
    const QString time = QTime::currentTime().toString(Qt::ISODateWithMs);
    printLine(stderr, time + QLatin1Char(' ') + text);
}

/// Serves a line of the console; false when it was the last one.
bool serveConsole(SimServer &server, const QString &line)
{
    if (line == QLatin1String("quit")) {
        QCoreApplication::quit();
        return false;
    }
    if (line == QLatin1String("help"))
        printLine(stdout, consoleHelp() + QStringLiteral("  quit"));
    else
        printLine(stdout, server.execute(line).line());
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    // GLib's loop makes several more system calls for each request.
    qputenv("QT_NO_GLIB", "1");
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tavorosim"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TAVORO_VERSION));
    qInstallMessageHandler(logToStandardError);

    if (const auto status =
            Help::runHiddenOption(describeProgram(), nullptr, QCoreApplication::arguments()))
        return *status;
    const CommandLine line = parseCommandLine(QCoreApplication::arguments());
    if (!line.text.isEmpty()) {
        printLine(line.isValid ? stdout : stderr, line.text);
        return line.isValid ? Done : UsageError;
    }
    SimServer server(line.options);
    QString error;
    if (!server.listen(error)) {
        printLine(stderr, QStringLiteral("tavorosim: ") + error);
        return CannotServe;
    }
    const QString address = line.options.address.toString();
    printLine(stdout,
              QStringLiteral("listening on ") + SSProxy::Wire::hostAndPort(address, server.port()));
    if (line.options.controlPort >= 0)
        printLine(stdout, QStringLiteral("control port %1").arg(server.controlPort()));
    if (line.options.discoveryPort >= 0)
        printLine(stdout, QStringLiteral("discovery port %1").arg(server.discoveryPort()));

    // After the end of the input the device continues without a console.
    const InputLines console([&](const QString &input) { return serveConsole(server, input); });
    return QCoreApplication::exec();
}
