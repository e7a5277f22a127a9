// The simulated device as a program: tavorosim --help tells its options.

#include "commandline.h"

#include <tavorosim/server/simserver.h>
#include <tavorossproxy/wire/hostandport.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTextStream>
#include <QTime>

#include <cstdio>
#include <iostream>
#include <string>

namespace {

using namespace Tavoro;
using namespace Tavoro::Sim;

enum ExitStatus {
    Done = 0,
    CannotServe = 1,
    UsageError = 2,
};

void say(FILE *stream, const QString &text)
{
    std::fputs(qUtf8Printable(text + QLatin1Char('\n')), stream);
    std::fflush(stream);
}

void logToStandardError(QtMsgType /*level*/, const QMessageLogContext & /*context*/,
                        const QString &text)
{
    const QString time = QTime::currentTime().toString(Qt::ISODateWithMs);
    say(stderr, time + QLatin1Char(' ') + text);
}

/// Reads one line of the console. At the end of the input the device goes on without a console.
void serveConsole(SimServer &server, QSocketNotifier &notifier)
{
    std::string line;
    if (!std::getline(std::cin, line)) {
        notifier.setEnabled(false);
        return;
    }
    if (line == "quit")
        return QCoreApplication::quit();
    if (line == "help")
        return say(stdout, consoleHelp() + QStringLiteral("  quit"));
    say(stdout, server.execute(QString::fromStdString(line)).line());
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tavorosim"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TAVORO_VERSION));
    qInstallMessageHandler(logToStandardError);

    const CommandLine line = parseCommandLine(QCoreApplication::arguments());
    if (!line.text.isEmpty()) {
        say(line.isValid ? stdout : stderr, line.text);
        return line.isValid ? Done : UsageError;
    }
    SimServer server(line.options);
    QString error;
    if (!server.listen(error)) {
        say(stderr, QStringLiteral("tavorosim: ") + error);
        return CannotServe;
    }
    const QString address = line.options.address.toString();
    say(stdout,
        QStringLiteral("listening on ") + SSProxy::Wire::hostAndPort(address, server.port()));
    if (line.options.controlPort >= 0)
        say(stdout, QStringLiteral("control port %1").arg(server.controlPort()));
    if (line.options.discoveryPort >= 0)
        say(stdout, QStringLiteral("discovery port %1").arg(server.discoveryPort()));

    // Without a buffer, or a second line would wait in it unseen by the notifier.
    std::setvbuf(stdin, nullptr, _IONBF, 0);
    QSocketNotifier notifier(fileno(stdin), QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &server,
                     [&] { serveConsole(server, notifier); });
    return QCoreApplication::exec();
}
