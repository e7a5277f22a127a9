// The dissector on packets of the network: a client and a simulated device on the loopback
// interface.

#include <support/common/capturedcalls.h>
#include <support/wireshark/tshark.h>

#include <tavorossproxy/devicediscovery.h>

#include <QProcess>
#include <QTest>

using namespace Tavoro;
using namespace Tavoro::SSProxy;

class tst_WiresharkLive : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sessionWithADeviceIsShown();

private:
    /// Starts to capture. Returns false if the user may not do so.
    bool begin(const QString &filter);
    /// The lines that tshark has printed so far and that begin with \a word or, if \a isWanted is
    /// false, with another word.
    QStringList lines(const char *word, bool isWanted);

    QProcess m_tshark;
    QByteArray m_messages;
    QByteArray m_output;
};

void tst_WiresharkLive::initTestCase()
{
    if (!Tshark::isInstalled())
        QSKIP(Tshark::skipMessage);
}

bool tst_WiresharkLive::begin(const QString &filter)
{
    Tshark::start(m_tshark,
                  {QStringLiteral("-l"), QStringLiteral("-i"), QStringLiteral("lo"),
                   QStringLiteral("-f"), filter, QStringLiteral("-Y"),
                   QStringLiteral("tavoro || tavoro_discovery"), QStringLiteral("-T"),
                   QStringLiteral("fields"), QStringLiteral("-e"), QStringLiteral("_ws.col.Info")});
    m_tshark.setReadChannel(QProcess::StandardError);
    while (!m_messages.contains("Capture started")) {
        if (!m_tshark.waitForReadyRead(60000) && m_tshark.state() == QProcess::NotRunning)
            return false;
        m_messages += m_tshark.readAllStandardError();
    }
    return true;
}

QStringList tst_WiresharkLive::lines(const char *word, bool isWanted)
{
    m_tshark.waitForReadyRead(1);
    m_output += m_tshark.readAllStandardOutput();
    QStringList lines;
    for (const QByteArray &line : m_output.left(m_output.lastIndexOf('\n')).split('\n'))
        if (line.startsWith(word) == isWanted)
            lines << QString::fromUtf8(line);
    return lines;
}

void tst_WiresharkLive::sessionWithADeviceIsShown()
{
    Sim::SimOptions options;
    options.discoveryPort = 0;
    Sim::SimulatedDevice device(options);
    QString error;
    QVERIFY2(device.start(error), qPrintable(error));
    if (!begin(QStringLiteral("tcp port %1 or udp port %2")
                   .arg(device.port())
                   .arg(device.discoveryPort())))
        QSKIP("this user may not capture packets");

    const DiscoveryTarget target{QStringLiteral("127.0.0.1"), device.discoveryPort()};
    QCOMPARE(findDevices(30000, 1, {target}).size(), std::size_t(1));
    // A request is repeated if the answer takes long.
    QTRY_VERIFY_WITH_TIMEOUT(lines("Discovery", true).contains(QStringLiteral("Discovery answer")),
                             30000);
    QCOMPARE(lines("Discovery", true).first(), QStringLiteral("Discovery request"));

    const auto channel = connectTo(device.port());
    QCOMPARE(int(send(*channel, 2, 0x1107, R"({"swap":7})")->status), 4);
    channel->stopChannel();
    QTRY_COMPARE_WITH_TIMEOUT(
        lines("Discovery", false),
        QStringList({
            QStringLiteral("Identity request"),
            QStringLiteral("Identity answer"),
            QStringLiteral("Request 1: DeviceSwap write"),
            QStringLiteral("Response 1: DeviceSwap write, refused with status 4: "
                           "a value is out of range"),
        }),
        30000);
    m_tshark.terminate();
    QVERIFY(m_tshark.waitForFinished(30000));
}

QTEST_GUILESS_MAIN(tst_WiresharkLive)
#include "tst_wiresharklive.moc"
