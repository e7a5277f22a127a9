#include "measuringclient.h"

#include <support/bench.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <utility>

namespace Bench {

using namespace Tavoro::Gate;

namespace {

const QString answers = QStringLiteral("tavoro/answer/bench");
const QString brokerTopic = QStringLiteral("$SYS/broker/");
const QString bytesSent = QStringLiteral("bytes/sent");

BrokerOptions optionsFor(quint16 port)
{
    BrokerOptions options;
    options.port = port;
    options.clientId = QStringLiteral("bench");
    options.firstPause = options.longestPause = std::chrono::milliseconds(50);
    return options;
}

} // namespace

void waitUntil(const std::function<bool()> &isReached, const QString &what)
{
    QTimer look; // conditions may depend on the clock
    look.start(20);
    const QDeadlineTimer deadline(2 * patience);
    while (!isReached()) {
        require(!deadline.hasExpired(), QStringLiteral("waited too long for %1").arg(what));
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void waitFor(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

BrokerTotals operator-(const BrokerTotals &left, const BrokerTotals &right)
{
    return {left.received - right.received, left.sent - right.sent, left.bytes - right.bytes};
}

MeasuringClient::MeasuringClient(quint16 brokerPort) : m_connection(optionsFor(brokerPort), {})
{
    BrokerConnection::SubscribeOptions atMostOnce;
    atMostOnce.qos = 0;
    const auto follow = [&](const QString &filter, auto handler) {
        m_subscriptions.push_back(m_connection.subscribe(filter, atMostOnce, std::move(handler)));
    };
    follow(QStringLiteral("tavoro/+/state/#"), [this](const auto &each) { countState(each); });
    follow(QStringLiteral("tavoro/+/online"), [this](const auto &each) { noteOnline(each); });
    follow(answers, [this](const auto &each) { endCall(each); });
    const auto noteTotal = [this](const BrokerMessage &each) {
        const QString name = each.topic.mid(brokerTopic.size());
        m_totals[name] = each.payload.toDouble();
        m_updates += name == bytesSent; // the last one of an update that is used
    };
    follow(brokerTopic + QStringLiteral("bytes/#"), noteTotal);
    follow(brokerTopic + QStringLiteral("messages/#"), noteTotal);
    m_connection.start();
    waitUntil([this] { return m_connection.isConnected(); }, QStringLiteral("the broker"));
}

void MeasuringClient::countState(const BrokerMessage &message)
{
    ++m_stateMessages;
    m_stateBytes += message.payload.size() + message.topic.size();
    m_topics.insert(message.topic);
    m_lastState = std::chrono::steady_clock::now();
}

std::chrono::steady_clock::time_point MeasuringClient::waitForLastState()
{
    qint64 before = 0;
    do {
        before = m_stateMessages;
        waitFor(1000);
    } while (m_stateMessages > before);
    return m_lastState;
}

void MeasuringClient::noteOnline(const BrokerMessage &message)
{
    if (message.payload.contains("\"online\":true"))
        m_online.insert(message.topic.section(QLatin1Char('/'), 1, 1));
}

void MeasuringClient::callWrite(const QString &serial, Answered answered)
{
    BrokerMessage message;
    message.topic = QStringLiteral("tavoro/%1/call/Device.writeSwap").arg(serial);
    message.payload = R"({"swap":{"swap":1}})";
    message.responseTopic = answers;
    message.correlation = QByteArray::number(++m_lastCall);
    m_calls.insert(message.correlation, std::move(answered));
    m_connection.publish(message);
}

void MeasuringClient::endCall(const BrokerMessage &answer)
{
    require(answer.payload.contains("\"outcome\":\"done\""), QString::fromUtf8(answer.payload));
    if (const Answered answered = m_calls.take(answer.correlation))
        answered();
}

BrokerTotals MeasuringClient::totals()
{
    const qint64 before = m_updates;
    waitUntil([&] { return m_updates > before; }, QStringLiteral("the totals of the broker"));
    const auto total = [this](const char *name) {
        return m_totals[QLatin1String(name)];
    };
    return {total("messages/received"), total("messages/sent"),
            total("bytes/received") + total("bytes/sent")};
}

} // namespace Bench
