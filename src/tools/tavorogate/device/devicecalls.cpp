#include "devicecalls.h"

#include <tavorogate/broker/outbox.h>
#include <tavorogate/ownership/deviceownership.h>
#include <tavorogate/topics/topics.h>
#include <tavorooperations/operation.h>
#include <tavorosession/devicesession.h>

#include <QLoggingCategory>
#include <QPointer>

#include <chrono>

namespace Tavoro::Gate {

namespace {

Q_LOGGING_CATEGORY(callsLog, "tavoro.gate.calls")

/// The active gateway may change after a question, and may never have received it.
constexpr std::chrono::seconds questionInterval(2);

const QString lostTrackText =
    QStringLiteral("the gateways have lost track of the call, and it may have been carried out");

} // namespace

DeviceCalls::DeviceCalls(const Surroundings &surroundings, const QString &serial,
                         const CallRules &rules)
    : m_surroundings(surroundings), m_serial(serial), m_rules(rules)
{
    const DeviceOwnership *ownership = &surroundings.ownership;
    connect(ownership, &DeviceOwnership::activeChanged, this, &DeviceCalls::setActive);
    connect(ownership, &DeviceOwnership::claimedElsewhere, this,
            [this](const CallKey &key) { m_waiting.doubt(key); });
    connect(ownership, &DeviceOwnership::waitsElsewhere, this,
            [this](const CallKey &key) { m_waiting.confirm(key); });
    connect(ownership, &DeviceOwnership::endedElsewhere, this, &DeviceCalls::endElsewhere);
    connect(ownership, &DeviceOwnership::answeredElsewhere, this, &DeviceCalls::endAnswered);
    connect(ownership, &DeviceOwnership::claimsMissed, this, &DeviceCalls::doubtWaiting);
    connect(ownership, &DeviceOwnership::asked, this, &DeviceCalls::answerQuestion);
    connect(&m_questions, &QTimer::timeout, this, &DeviceCalls::askAboutUnclear);
    connect(&surroundings.broker, &BrokerConnection::connected, this, &DeviceCalls::startNext);
    BrokerConnection::SubscribeOptions options;
    options.receivesRetained = false; // A retained call would be carried out on each connection.
    m_subscription =
        surroundings.broker.subscribe(Topics::filterOf(Topics::call(serial)), options,
                                      [this](const BrokerMessage &message) { receive(message); });
    setActive(ownership->isActive());
}

void DeviceCalls::receive(const BrokerMessage &message)
{
    const CallRequest call = readCall(Topics::call(m_serial), message, m_rules);
    const bool isRecognisable = !call.key.correlation.isEmpty();
    if (call.fault.isEmpty() || isRecognisable || m_surroundings.ownership.isActive())
        accept(call);
}

void DeviceCalls::accept(const CallRequest &call)
{
    const RememberedCalls::Recall recall = m_remembered.arrive(call);
    const bool isActive = m_surroundings.ownership.isActive();
    switch (recall.kind) {
    case RememberedCalls::Kind::New:
        return enqueue(call);
    case RememberedCalls::Kind::UnderWay:
        Q_EMIT callRepeated();
        return;
    case RememberedCalls::Kind::Ended:
        if (isActive)
            publishAnswer(call, recall.answer);
        Q_EMIT callRepeated();
        return;
    case RememberedCalls::Kind::Different:
        if (isActive)
            publishAnswer(call,
                          CallAnswer::notSent(tr("the correlation data belongs to another call")));
        return;
    }
}

void DeviceCalls::enqueue(const CallRequest &call)
{
    const bool isActive = m_surroundings.ownership.isActive();
    if (isActive && !call.fault.isEmpty())
        return end(call, CallAnswer::notSent(call.fault));
    if (isActive && m_waiting.size() >= mostWaiting)
        return end(call, CallAnswer::notSent(tr("too many calls wait")));
    if (m_waiting.size() >= mostKept)
        return m_remembered.forget(call.key); // the active gateway answers it
    m_waiting.append(call);
    startNext();
}

void DeviceCalls::setActive(bool isActive)
{
    if (isActive) {
        m_questions.stop();
        m_waiting.endPatience();
        startNext();
    } else {
        m_waiting.startPatience();
        m_questions.start(questionInterval);
    }
}

void DeviceCalls::startNext()
{
    while (!m_isBusy && !m_waiting.isEmpty() && m_surroundings.ownership.isActive())
        start(m_waiting.takeFirst());
}

void DeviceCalls::start(const WaitingCalls::Entry &entry)
{
    if (!entry.call.fault.isEmpty())
        end(entry.call, CallAnswer::notSent(entry.call.fault));
    else if (entry.isDoubtful)
        end(entry.call, CallAnswer::unknown(lostTrackText));
    else if (entry.call.deadline.hasExpired())
        end(entry.call, CallAnswer::notSent(tr("the message has expired")));
    else if (entry.patience.hasExpired())
        end(entry.call, CallAnswer::notSent(tr("no gateway worked for the device in time")));
    else
        send(entry.call);
}

/// A write is claimed when it is ready to be sent. A read changes nothing: it needs no claim.
void DeviceCalls::send(const CallRequest &call)
{
    m_isBusy = true;
    m_isAnswered = m_isImpossible = false;
    m_current = call.key;
    const QPointer<DeviceCalls> self(this);
    const auto claim = [self, call](const SendPermission &permission) {
        if (self)
            self->claim(call, permission);
    };
    m_surroundings.session.callAnnounced(call.operation, call.arguments, claim)
        .then(this, [this, call](const Answer<std::string> &answer) { finish(call, answer); });
}

void DeviceCalls::claim(const CallRequest &call, const SendPermission &permission)
{
    const QPointer<DeviceCalls> self(this);
    m_surroundings.ownership.claim(
        call, permission.request(), [self, permission](DeviceOwnership::Claim claim) {
            if (self)
                self->m_isImpossible = claim == DeviceOwnership::Claim::Impossible;
            if (claim == DeviceOwnership::Claim::Granted)
                permission.send();
            else
                permission.refuse();
        });
}

/// Only the active gateway answers. Of a call that was sent, the gateway that is active next learns
/// the outcome from the device. This one keeps the call until it sees the answer.
void DeviceCalls::finish(const CallRequest &call, const Answer<std::string> &answer)
{
    m_isBusy = false;
    const auto operation = Operations::find(call.operation);
    const bool isRead = operation && operation->direction() == Operations::Direction::Read;
    const bool isActive = m_surroundings.ownership.isActive();
    const bool mayBeRepeated = answer.isCanceled() || (isRead && !isActive);
    if (m_isAnswered || (!mayBeRepeated && !isActive)) {
        m_surroundings.ownership.abandon(call);
        if (!m_isAnswered)
            m_waiting.putBack(call, true);
    } else if (m_isImpossible)
        end(call, CallAnswer::notSent(tr("the broker does not permit the gateway's claims")));
    else if (mayBeRepeated)
        m_waiting.putBack(call, false);
    else
        end(call, CallAnswer::of(answer));
    startNext();
}

void DeviceCalls::end(const CallRequest &call, const CallAnswer &answer)
{
    const bool isKeptByOthers = call.fault.isEmpty() || !call.key.correlation.isEmpty();
    m_remembered.end(call, answer);
    publishAnswer(call, answer);
    if (isKeptByOthers)
        m_surroundings.ownership.release(call, answer);
    Q_EMIT callEnded(call, answer);
}

void DeviceCalls::publishAnswer(const CallRequest &call, const CallAnswer &answer)
{
    if (call.key.answerTopic.isEmpty())
        return;
    BrokerMessage message;
    message.topic = call.key.answerTopic;
    message.payload = answer.toJson(m_serial, call.operation);
    message.correlation = call.key.correlation;
    m_surroundings.outbox.send(message);
}

void DeviceCalls::endAnswered(const BrokerMessage &answer)
{
    const auto call = m_waiting.find(answer.topic, answer.correlation);
    if (!call)
        return;
    const auto content = CallAnswer::fromJson(answer.payload, m_serial);
    if (content) // otherwise the answer is about another device
        endElsewhere(*call, *content, false);
}

/// Another gateway may have carried them out.
void DeviceCalls::doubtWaiting()
{
    m_waiting.doubtAll();
    if (!m_waiting.isEmpty())
        qCWarning(callsLog,
                  "Missed what other gateways did for the device %s: %zu calls may have been "
                  "carried out.",
                  qUtf8Printable(m_serial), m_waiting.size());
    QTimer::singleShot(0, this, &DeviceCalls::askAboutUnclear); // after the record that has arrived
}

void DeviceCalls::askAboutUnclear()
{
    if (m_surroundings.ownership.isActive() || !m_surroundings.broker.isConnected())
        return;
    for (const WaitingCalls::Entry &entry : m_waiting.unclear())
        m_surroundings.ownership.ask(entry.call, entry.isDoubtful);
}

void DeviceCalls::answerQuestion(const CallRequest &call, bool isDoubtful)
{
    const RememberedCalls::Recall recall = m_remembered.find(call.key);
    if (recall.kind == RememberedCalls::Kind::Ended)
        m_surroundings.ownership.replyAnswered(call, recall.answer);
    else if (recall.kind == RememberedCalls::Kind::UnderWay)
        m_surroundings.ownership.replyWaiting(call);
    else
        end(call,
            isDoubtful ? CallAnswer::unknown(lostTrackText)
                       : CallAnswer::notSent(tr("the gateway that works for the device has not "
                                                "received the call")));
}

void DeviceCalls::endElsewhere(const CallRequest &call, const CallAnswer &answer, bool mustAnswer)
{
    m_waiting.remove(call.key);
    m_isAnswered = m_isAnswered || (m_isBusy && call.key == m_current);
    if (mustAnswer)
        return end(call, answer);
    m_remembered.end(call, answer);
}

} // namespace Tavoro::Gate
