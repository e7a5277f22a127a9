// The simulated device as a program: what it prints, what it reads, how it ends.

#include <tavorossproxy/devicediscovery.h>
#include <tavorowire/hostandport.h>

#include <QProcess>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryFile>
#include <QTest>

#include <array>

using namespace Tavoro;

class tst_TavoroSimProgram : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void printsWhereItListens();
    void addressesWithColonsAreInBrackets();
    void standardInputIsItsConsole();
    void linesThatArriveTogetherAreAllServed();
    void partialLineDoesNotBlock();
    void scenarioIsCarriedOutLineByLine();
    void devicesOfThisMachineAreFoundByDefault();
    void theLastLineNeedsNoEnd();
    void nothingIsServedAfterQuit();
    void continuesWithoutAConsole();
    void exchangesAreLoggedOnlyOnRequest();
    void printsItsVersion();
    void helpNamesEveryOption();
    void wrongOptionsEndWithTwo_data();
    void wrongOptionsEndWithTwo();
    void aPortInUseEndsWithOne();
    void outOfDescriptorsItPausesAcceptingAndLogsItOnce();
};

namespace {

constexpr int patience = 10000; ///< Milliseconds.

/// The program with the first line that it printed.
class Program {
public:
    explicit Program(const QStringList &arguments,
                     const QString &program = QStringLiteral(TAVOROSIM))
    {
        process.start(program, arguments);
        firstLine = readLine();
    }

    ~Program()
    {
        process.kill();
        process.waitForFinished(patience);
    }

    quint16 port() const { return firstLine.section(QLatin1Char(':'), -1).toUShort(); }

    QString ask(const QByteArray &line)
    {
        process.write(line + '\n');
        return readLine();
    }

    QString readLine()
    {
        while (!process.canReadLine() && process.waitForReadyRead(patience)) { }
        return QString::fromLocal8Bit(process.readLine()).trimmed();
    }

    QProcess process;
    QString firstLine;
};

/// Runs a program to its end.
int run(const QStringList &arguments, QString &output, QString &errors)
{
    QProcess process;
    process.start(QStringLiteral(TAVOROSIM), arguments);
    if (!process.waitForFinished(patience) || process.exitStatus() != QProcess::NormalExit)
        return -1;
    output = QString::fromLocal8Bit(process.readAllStandardOutput());
    errors = QString::fromLocal8Bit(process.readAllStandardError());
    return process.exitCode();
}

/// Where devices with these last bytes of the serial number are found, without a given address.
/// Other devices of this machine and its networks may answer too.
QStringList foundPlaces(quint8 firstNumber, quint8 lastNumber)
{
    QStringList places;
    for (const auto &device : SSProxy::findDevices(500)) {
        if (device.sn[7] >= firstNumber && device.sn[7] <= lastNumber)
            places += SSProxy::Wire::hostAndPort(QString::fromStdString(device.ip), device.tcpPort);
    }
    places.sort();
    return places;
}

const QStringList anyPort{QStringLiteral("--port"), QStringLiteral("0"),
                          QStringLiteral("--no-discovery")};

} // namespace

void tst_TavoroSimProgram::printsWhereItListens()
{
    Program program(anyPort);
    QVERIFY2(QRegularExpression(QStringLiteral("^listening on 127\\.0\\.0\\.1:\\d+$"))
                 .match(program.firstLine)
                 .hasMatch(),
             qPrintable(program.firstLine));
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("127.0.0.1"), program.port());
    QVERIFY(socket.waitForConnected(patience));
}

void tst_TavoroSimProgram::addressesWithColonsAreInBrackets()
{
    if (!QTcpServer().listen(QHostAddress::LocalHostIPv6))
        QSKIP("this machine has no IPv6");
    Program program(
        anyPort
        + QStringList{QStringLiteral("--address"), QStringLiteral("::1"), QStringLiteral("--log")});
    QCOMPARE(program.firstLine, QStringLiteral("listening on [::1]:%1").arg(program.port()));
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("::1"), program.port());
    QVERIFY(socket.waitForConnected(patience));
    QCOMPARE(program.ask("power 1 0"), QStringLiteral("ok"));
    program.process.write("quit\n");
    QVERIFY(program.process.waitForFinished(patience));
    const QString log = QString::fromLocal8Bit(program.process.readAllStandardError());
    const QString connected = QStringLiteral(" [::1]:%1 connected\n").arg(socket.localPort());
    QVERIFY2(log.contains(connected), qPrintable(log));
}

void tst_TavoroSimProgram::standardInputIsItsConsole()
{
    Program program(anyPort);
    QCOMPARE(program.ask("power 1 0"), QStringLiteral("ok"));
    QCOMPARE(program.ask("explode"), QStringLiteral("error unknown command: explode"));
    program.process.write("quit\n");
    QVERIFY(program.process.waitForFinished(patience));
    QCOMPARE(program.process.exitCode(), 0);
}

void tst_TavoroSimProgram::linesThatArriveTogetherAreAllServed()
{
    Program program(anyPort);
    program.process.write("power 1 0\npower 1 1\nquit\n");
    QVERIFY(program.process.waitForFinished(patience));
    QCOMPARE(program.process.readAllStandardOutput(), QByteArray("ok\nok\n"));
}

void tst_TavoroSimProgram::partialLineDoesNotBlock()
{
    Program program(anyPort + QStringList{QStringLiteral("--control-port"), QStringLiteral("0")});
    const QString controlPort = program.readLine().section(QLatin1Char(' '), -1);
    program.process.write("power");
    QVERIFY(program.process.waitForBytesWritten(patience));
    QTcpSocket control;
    control.connectToHost(QStringLiteral("127.0.0.1"), controlPort.toUShort());
    QVERIFY(control.waitForConnected(patience));
    for (int i = 0; i < 3; ++i) { // the partial line may arrive after the first one
        control.write("power 1 1\n");
        while (!control.canReadLine() && control.waitForReadyRead(patience)) { }
        QCOMPARE(control.readLine(), QByteArray("ok\n"));
    }
    QCOMPARE(program.ask(" 1 7"), QStringLiteral("error \"7\" is not a valid STATUS (0 or 1)"));
}

void tst_TavoroSimProgram::scenarioIsCarriedOutLineByLine()
{
    QTemporaryFile scenario;
    QVERIFY(scenario.open());
    scenario.write(
        "# Two faults of the scene itself, each pass\nwait 1\npower 99 0\ndepth 1 99 8\nrepeat\n");
    scenario.close();
    Program program(anyPort + QStringList{QStringLiteral("--scenario"), scenario.fileName()});
    program.process.setReadChannel(QProcess::StandardError);
    const QString warning = QStringLiteral("scenario \"%1\", line %2: no such object");
    for (const int line : {3, 4, 3, 4})
        QCOMPARE(program.readLine().section(QLatin1Char(' '), 1),
                 warning.arg(scenario.fileName()).arg(line));
}

void tst_TavoroSimProgram::devicesOfThisMachineAreFoundByDefault()
{
    const QStringList usual{QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--sn")};
    Program first(usual + QStringList{QStringLiteral("53494D00000000A1")});
    Program second(usual
                   + QStringList{QStringLiteral("53494D00000000A2"), QStringLiteral("--address"),
                                 QStringLiteral("127.0.0.2")});
    QCOMPARE(second.readLine(), QStringLiteral("discovery port 6631"));
    Program hidden(
        usual + QStringList{QStringLiteral("53494D00000000A3"), QStringLiteral("--no-discovery")});
    QTRY_COMPARE_WITH_TIMEOUT(foundPlaces(0xA1, 0xA3),
                              QStringList({QStringLiteral("127.0.0.1:%1").arg(first.port()),
                                           QStringLiteral("127.0.0.2:%1").arg(second.port())}),
                              patience);
}

void tst_TavoroSimProgram::theLastLineNeedsNoEnd()
{
    Program program(anyPort);
    program.process.write("power 1 0\nexplode");
    program.process.closeWriteChannel();
    QCOMPARE(program.readLine(), QStringLiteral("ok"));
    QCOMPARE(program.readLine(), QStringLiteral("error unknown command: explode"));
    QCOMPARE(program.process.state(), QProcess::Running);
}

void tst_TavoroSimProgram::nothingIsServedAfterQuit()
{
    Program program(anyPort);
    program.process.write("quit\npower 1 0\n");
    QVERIFY(program.process.waitForFinished(patience));
    QCOMPARE(program.process.readAllStandardOutput(), QByteArray());
}

void tst_TavoroSimProgram::continuesWithoutAConsole()
{
    Program program(anyPort);
    program.process.closeWriteChannel();
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("127.0.0.1"), program.port());
    QVERIFY(socket.waitForConnected(patience));
    QCOMPARE(program.process.state(), QProcess::Running);
}

void tst_TavoroSimProgram::exchangesAreLoggedOnlyOnRequest()
{
    for (const bool isAsked : {false, true}) {
        QStringList arguments = anyPort;
        if (isAsked)
            arguments += QStringLiteral("--log");
        Program program(arguments);
        QTcpSocket socket;
        socket.connectToHost(QStringLiteral("127.0.0.1"), program.port());
        QVERIFY(socket.waitForConnected(patience));
        socket.disconnectFromHost();
        QCOMPARE(program.ask("power 1 0"), QStringLiteral("ok"));
        program.process.write("quit\n");
        QVERIFY(program.process.waitForFinished(patience));
        const QString log = QString::fromLocal8Bit(program.process.readAllStandardError());
        QCOMPARE(log.contains(QStringLiteral(" connected")), isAsked);
    }
}

void tst_TavoroSimProgram::printsItsVersion()
{
    QString output;
    QString errors;
    QCOMPARE(run({QStringLiteral("--version")}, output, errors), 0);
    QVERIFY2(output.startsWith(QStringLiteral("tavorosim 0.")), qPrintable(output));
}

void tst_TavoroSimProgram::helpNamesEveryOption()
{
    QString output;
    QString errors;
    QCOMPARE(run({QStringLiteral("--help")}, output, errors), 0);
    for (const char *option :
         {"--address", "--port", "--control-port", "--discovery", "--name", "--sn", "--mac",
          "--model", "--packet-size", "--latency", "--inputs", "--outputs", "--screens",
          "--layers-per-screen", "--scenario", "--no-discovery", "--log", "--log-bodies"})
        QVERIFY2(output.contains(QLatin1String(option)), option);
}

void tst_TavoroSimProgram::wrongOptionsEndWithTwo_data()
{
    QTest::addColumn<QByteArrayList>("arguments");
    QTest::addColumn<QString>("words");
    // clang-format off
    QTest::newRow("unknown")     << QByteArrayList{"--fly"}              << "Unknown option 'fly'.";
    QTest::newRow("port")        << QByteArrayList{"--port", "65536"}    << "\"65536\" is not a valid value for --port: expected a number from 0 to 65535.";
    QTest::newRow("packet size") << QByteArrayList{"--packet-size", "0"}
        << "\"0\" is not a valid value for --packet-size: expected a number from 1 to 67108864.";
    QTest::newRow("serial")      << QByteArrayList{"--sn", "0123"}       << "\"0123\" is not a valid value for --sn: expected 16 hexadecimal digits.";
    QTest::newRow("digits")      << QByteArrayList{"--mac", "0200ZZ100001"}
        << "\"0200ZZ100001\" is not a valid value for --mac: expected 12 hexadecimal digits.";
    QTest::newRow("screens")     << QByteArrayList{"--screens", "256"}   << "\"256\" is not a valid value for --screens: expected a number from 0 to 255.";
    QTest::newRow("address")     << QByteArrayList{"--address", "here"}  << "\"here\" is not a valid value for --address: expected an IP address.";
    QTest::newRow("fault")       << QByteArrayList{"--fault", "status=0"}
        << "\"status=0\" is not a valid value for --fault: status takes a number from 1 to 255.";
    QTest::newRow("scenario")    << QByteArrayList{"--scenario", "storm"}
        << "\"storm\" is not a valid value for --scenario: cannot read it: No such file or directory;"
           " the scenarios of the program are busy-show, flaky-network, power-failure.";
    QTest::newRow("word")        << QByteArrayList{"now"}                << "\"now\" is not an option.";
    // clang-format on
}

void tst_TavoroSimProgram::wrongOptionsEndWithTwo()
{
    QFETCH(QByteArrayList, arguments);
    QFETCH(QString, words);
    QString output;
    QString errors;
    QStringList texts;
    for (const QByteArray &argument : arguments)
        texts += QString::fromUtf8(argument);
    QCOMPARE(run(texts, output, errors), 2);
    QCOMPARE(errors, QStringLiteral("tavorosim: %1\n").arg(words));
    QCOMPARE(output, QString());
}

void tst_TavoroSimProgram::aPortInUseEndsWithOne()
{
    Program program(anyPort);
    QString output;
    QString errors;
    QCOMPARE(run({QStringLiteral("--port"), QString::number(program.port())}, output, errors), 1);
    QVERIFY2(errors.startsWith(
                 QStringLiteral("tavorosim: cannot listen on 127.0.0.1:%1: ").arg(program.port())),
             qPrintable(errors));
}

void tst_TavoroSimProgram::outOfDescriptorsItPausesAcceptingAndLogsItOnce()
{
#ifdef TAVORO_SANITIZE
    QSKIP("UndefinedBehaviorSanitizer itself needs descriptors to check the type of an object.");
#endif
    Program program({QStringLiteral("-c"),
                     QStringLiteral("ulimit -n 32; exec \"$0\" --port 0 --no-discovery"),
                     QStringLiteral(TAVOROSIM)},
                    QStringLiteral("sh"));
    std::array<QTcpSocket, 40> sockets;
    for (QTcpSocket &socket : sockets) {
        socket.connectToHost(QHostAddress::LocalHost, program.port());
        QVERIFY(socket.waitForConnected(patience));
    }
    program.process.setReadChannel(QProcess::StandardError);
    const QString paused = QStringLiteral("cannot accept connections: Too many open files;"
                                          " trying again every second");
    QCOMPARE(program.readLine().section(QLatin1Char(' '), 1), paused);
    program.process.setReadChannel(QProcess::StandardOutput);
    QCOMPARE(program.ask("power 1 0"), QStringLiteral("ok"));
    for (std::size_t i = 0; i < 30; ++i)
        sockets[i].abort();
    program.process.setReadChannel(QProcess::StandardError);
    QCOMPARE(program.readLine().section(QLatin1Char(' '), 1),
             QStringLiteral("accepting connections again"));
}

QTEST_GUILESS_MAIN(tst_TavoroSimProgram)
#include "tst_tavorosimprogram.moc"
