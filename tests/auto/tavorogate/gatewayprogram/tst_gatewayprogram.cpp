// The gateway as a program: its command line, its end, and what it reports to systemd.

#include <support/common/patience.h>
#include <support/tavorogate/gatebench.h>

#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <cstring>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Tavoro;

namespace {

/// The socket of a service manager, as systemd has one.
class NotifySocket {
public:
    explicit NotifySocket(const QString &path) : m_socket(::socket(AF_UNIX, SOCK_DGRAM, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const QByteArray name = path.toLocal8Bit();
        std::strncpy(address.sun_path, name.constData(), sizeof address.sun_path - 1);
        if (::bind(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0)
            qFatal("cannot bind %s", name.constData());
    }
    ~NotifySocket() { ::close(m_socket); }
    NotifySocket(const NotifySocket &) = delete;
    NotifySocket &operator=(const NotifySocket &) = delete;

    /// Everything that has arrived.
    const QByteArrayList &messages()
    {
        char buffer[4096];
        for (;;) {
            const auto length = ::recv(m_socket, buffer, sizeof buffer, MSG_DONTWAIT);
            if (length < 0)
                return m_messages;
            m_messages << QByteArray(buffer, static_cast<int>(length));
        }
    }

private:
    const int m_socket;
    QByteArrayList m_messages;
};

} // namespace

class tst_GatewayProgram : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void configurationIsChecked();
    void commandLineIsChecked();
    void serviceManagerSeesItStartWorkAndEnd();
    void signalEndsTheProgramWithAFarewell();
    void normalStopLogsNoWarning();

private:
    QString write(const QByteArray &content) const
    {
        QFile file(m_folder.filePath(QStringLiteral("gate.json")));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write the file");
        return file.fileName();
    }
    static QByteArray configOf(const GateBench &bench)
    {
        return QStringLiteral(R"({"name": "stage", "broker": {"port": %1},)"
                              R"( "devices": ["127.0.0.1:%2"], "metricsFile": "%3/metrics.prom"})")
            .arg(bench.broker.port())
            .arg(bench.device->simulator->port())
            .arg(bench.broker.folder())
            .toUtf8();
    }
    /// Runs the program to its end. Returns the exit status.
    int run(const QStringList &arguments)
    {
        QProcess program;
        program.start(QStringLiteral(GATEWAY), arguments);
        if (!program.waitForFinished(60000))
            return -1;
        m_output = program.readAllStandardOutput();
        m_errors = program.readAllStandardError();
        return program.exitCode();
    }

    QTemporaryDir m_folder;
    QByteArray m_output;
    QByteArray m_errors;
};

void tst_GatewayProgram::configurationIsChecked()
{
    const QString good = write(R"({"devices": ["192.0.2.7"]})");
    QCOMPARE(run({QStringLiteral("--config"), good, QStringLiteral("--check-config")}), 0);
    QCOMPARE(m_output, good.toLocal8Bit() + " is valid.\n");
    const QString bad = write(R"({"devices": 7})");
    QCOMPARE(run({QStringLiteral("--config"), bad}), 1);
    QCOMPARE(m_errors,
             "tavorogate: " + bad.toLocal8Bit()
                 + ", line 1: \"devices\" must be a list of addresses, each \"HOST\" or "
                   "\"HOST:PORT\"\n");
}

void tst_GatewayProgram::commandLineIsChecked()
{
    QCOMPARE(run({QStringLiteral("--speed")}), 2);
    QCOMPARE(m_errors, QByteArray("tavorogate: Unknown option 'speed'.\n"));
    QCOMPARE(run({QStringLiteral("now")}), 2);
    QCOMPARE(m_errors, QByteArray("tavorogate: \"now\" is not an option.\n"));
    QCOMPARE(run({QStringLiteral("--help")}), 0);
    QVERIFY(m_output.contains("--check-config"));
}

void tst_GatewayProgram::serviceManagerSeesItStartWorkAndEnd()
{
    GateBench bench;
    QVERIFY(bench.startBroker());
    NotifySocket notify(m_folder.filePath(QStringLiteral("notify")));
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("NOTIFY_SOCKET"),
                       m_folder.filePath(QStringLiteral("notify")));
    environment.insert(QStringLiteral("WATCHDOG_USEC"), QStringLiteral("20000"));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(GATEWAY), {QStringLiteral("--config"), write(configOf(bench))});
    QTRY_VERIFY_WITH_TIMEOUT(notify.messages().contains("READY=1"), 30000);
    QTRY_VERIFY_WITH_TIMEOUT(notify.messages().count("WATCHDOG=1") >= 3, 30000);
    QTRY_VERIFY_WITH_TIMEOUT(
        notify.messages().contains("STATUS=1 of 1 devices ready; connected to the broker"), 30000);
    ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
    // The program blocks while its messages are not read.
    QTRY_VERIFY_WITH_TIMEOUT(
        notify.messages().contains("STOPPING=1") && program.state() == QProcess::NotRunning, 30000);
    QCOMPARE(program.exitCode(), 0);
}

void tst_GatewayProgram::signalEndsTheProgramWithAFarewell()
{
    GateBench bench;
    QVERIFY(bench.startBroker());
    QProcess program;
    program.start(QStringLiteral(GATEWAY), {QStringLiteral("--config"), write(configOf(bench))});
    const QString device = QStringLiteral("tavoro/00000000000000A1/online");
    const QString online = QStringLiteral("online");
    QTRY_VERIFY_WITH_TIMEOUT(bench.observer().object(device).value(online).toBool(), 30000);
    QVERIFY(bench.isGatewayOnline());
    ::kill(static_cast<pid_t>(program.processId()), SIGINT);
    QTRY_COMPARE_WITH_TIMEOUT(program.state(), QProcess::NotRunning, 30000);
    QTRY_VERIFY_WITH_TIMEOUT(!bench.isGatewayOnline(), 30000);
    QCOMPARE(bench.observer().object(device).value(online), QJsonValue(false));
    QCOMPARE(bench.observer().object(device).value(QStringLiteral("reason")),
             QJsonValue(QStringLiteral("the gateway was stopped")));
    QFile metrics(bench.broker.folder() + QStringLiteral("/metrics.prom"));
    QVERIFY(metrics.open(QIODevice::ReadOnly));
    const QByteArray text = metrics.readAll();
    QVERIFY(text.contains("# TYPE tavorogate_broker_connections_total counter\n"
                          "tavorogate_broker_connections_total 1\n"));
    QVERIFY(text.contains("tavorogate_calls_total{outcome=\"not-sent\"} 0\n"));
}

/// The library may log that the stop has interrupted its reading of the device.
void tst_GatewayProgram::normalStopLogsNoWarning()
{
    GateBench bench;
    QVERIFY(bench.startBroker());
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_MESSAGE_PATTERN"),
                       QStringLiteral("%{type} %{category} %{message}"));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(GATEWAY), {QStringLiteral("--config"), write(configOf(bench))});
    const QString device = QStringLiteral("tavoro/00000000000000A1/online");
    QTRY_VERIFY(bench.observer().object(device).value(QStringLiteral("online")).toBool());
    ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
    QTRY_COMPARE(program.state(), QProcess::NotRunning);
    QCOMPARE(program.exitCode(), 0);
    const QByteArray log = program.readAllStandardError();
    QVERIFY2(log.contains("info tavoro.gate.broker Connected to the broker"), log.constData());
    QVERIFY2(!log.contains("warning tavoro.gate"), log.constData());
}

QTEST_GUILESS_MAIN(tst_GatewayProgram)
#include "tst_gatewayprogram.moc"
