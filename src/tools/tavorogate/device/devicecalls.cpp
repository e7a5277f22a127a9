#include "devicecalls.h"

#include <tavorogate/broker/outbox.h>
#include <tavorogate/ownership/deviceownership.h>
#include <tavorogate/topics/topics.h>
#include <tavorooperations/operation.h>
#include <tavorosession/devicesession.h>

#include <QLoggingCategory>
#include <QPointer>

#include <algorithm>
#include <chrono>
#include <deque>

namespace Tavoro::Gate {

namespace {

Q_LOGGING_CATEGORY(callsLog, "tavoro.gate.calls")

/// How long a call waits for a gateway that becomes active. Later the caller may not expect it.
constexpr std::chrono::seconds longestWait(30);

template <class Condition>
void eraseIf(std::deque<CallRequest> &calls, Condition condition)
{
    calls.erase(std::remove_if(calls.begin(), calls.end(), condition), calls.end());
}

} // namespace

DeviceCalls::DeviceCalls(const Surroundings &surroundings, const QString &serial,
                         const CallRules &rules)
    : m_surroundings(surroundings), m_serial(serial), m_rules(rules)
{
    const DeviceOwnership *ownership = &surroundings.ownership;
    connect(ownership, &DeviceOwnership::activeChanged, this, &DeviceCalls::startNext);
    connect(ownership, &DeviceOwnership::claimedElsewhere, this, &DeviceCalls::dropWaiting);
    connect(ownership, &DeviceOwnership::endedElsewhere, this, &DeviceCalls::endElsewhere);
    connect(ownership, &DeviceOwnership::answeredElsewhere, this, &DeviceCalls::dropAnswered);
    connect(ownership, &DeviceOwnership::claimsMissed, this, &DeviceCalls::dropAllWaiting);
    connect(&surroundings.broker, &BrokerConnection::connected, this, &DeviceCalls::startNext);
    BrokerConnection::SubscribeOptions options;
    options.receivesRetained = false; // A retained call would be carried out on each connection.
    m_subscription =
        surroundings.broker.subscribe(Topics::filterOf(Topics::call(serial)), options,
                                      [this](const BrokerMessage &message) { receive(message); });
}

void DeviceCalls::receive(const BrokerMessage &message)
{
    const CallRequest call = readCall(Topics::call(m_serial), message, m_rules);
    if (call.fault.isEmpty())
        accept(call);
    else if (m_surroundings.ownership.isActive())
        end(call, CallAnswer::notSent(call.fault));
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
    if (isActive && m_waiting.size() >= mostWaiting)
        return end(call, CallAnswer::notSent(tr("too many calls wait")));
    if (m_waiting.size() >= mostKept)
        return; // the active gateway answers it
    m_waiting.push_back(call);
    if (!isActive)
        m_waiting.back().deadline = std::min(call.deadline, QDeadlineTimer(longestWait));
    startNext();
}

void DeviceCalls::startNext()
{
    while (!m_isBusy && !m_waiting.empty() && m_surroundings.ownership.isActive()) {
        const CallRequest call = m_waiting.front();
        m_waiting.pop_front();
        if (call.deadline.hasExpired())
            end(call, CallAnswer::notSent(tr("the message has expired")));
        else
            send(call);
    }
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
/// the outcome from the device.
void DeviceCalls::finish(const CallRequest &call, const Answer<std::string> &answer)
{
    m_isBusy = false;
    const auto operation = Operations::find(call.operation);
    const bool isRead = operation && operation->direction() == Operations::Direction::Read;
    const bool isActive = m_surroundings.ownership.isActive();
    const bool mayBeRepeated = answer.isCanceled() || (isRead && !isActive);
    if (m_isAnswered || (!mayBeRepeated && !isActive))
        m_surroundings.ownership.abandon(call);
    else if (m_isImpossible)
        end(call, CallAnswer::notSent(tr("the broker does not permit the gateway's claims")));
    else if (mayBeRepeated)
        m_waiting.push_front(call);
    else
        end(call, CallAnswer::of(answer));
    startNext();
}

void DeviceCalls::end(const CallRequest &call, const CallAnswer &answer)
{
    if (call.fault.isEmpty())
        m_remembered.end(call, answer);
    publishAnswer(call, answer);
    if (call.fault.isEmpty())
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

void DeviceCalls::dropWaiting(const CallKey &key)
{
    eraseIf(m_waiting, [&](const CallRequest &each) { return each.key == key; });
}

void DeviceCalls::dropAnswered(const QString &answerTopic, const QByteArray &correlation)
{
    eraseIf(m_waiting, [&](const CallRequest &each) {
        return each.key.answerTopic == answerTopic && each.key.correlation == correlation;
    });
}

/// They may have been carried out by another gateway, which answers them.
void DeviceCalls::dropAllWaiting()
{
    if (!m_waiting.empty())
        qCWarning(callsLog, "Dropped %zu calls that another gateway may have carried out.",
                  m_waiting.size());
    m_waiting.clear();
}

void DeviceCalls::endElsewhere(const CallRequest &call, const CallAnswer &answer, bool mustAnswer)
{
    dropWaiting(call.key);
    m_isAnswered = m_isAnswered || (m_isBusy && call.key == m_current);
    if (mustAnswer)
        return end(call, answer);
    m_remembered.end(call, answer);
}

} // namespace Tavoro::Gate
