#include "devicecalls.h"

#include <tavorogate/broker/outbox.h>
#include <tavorogate/ownership/deviceownership.h>
#include <tavorogate/topics/topics.h>
#include <tavorosession/devicesession.h>

#include <QPointer>

#include <algorithm>

namespace Tavoro::Gate {

DeviceCalls::DeviceCalls(const Surroundings &surroundings, const QString &serial,
                         const CallRules &rules)
    : m_surroundings(surroundings), m_serial(serial), m_rules(rules)
{
    const DeviceOwnership *ownership = &surroundings.ownership;
    connect(ownership, &DeviceOwnership::activeChanged, this, &DeviceCalls::startNext);
    connect(ownership, &DeviceOwnership::claimedElsewhere, this, &DeviceCalls::dropWaiting);
    connect(ownership, &DeviceOwnership::endedElsewhere, this, &DeviceCalls::endElsewhere);
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
    if (m_waiting.size() >= mostWaiting)
        return end(call, CallAnswer::notSent(tr("too many calls wait")));
    m_waiting.push_back(call);
    startNext();
}

void DeviceCalls::startNext()
{
    if (m_isBusy || m_waiting.empty() || !m_surroundings.ownership.isActive())
        return;
    m_isBusy = true;
    const CallRequest call = m_waiting.front();
    m_waiting.pop_front();
    const QPointer<DeviceCalls> self(this);
    m_surroundings.ownership.claim(call, [self, call](DeviceOwnership::Claim claim) {
        if (!self)
            return;
        if (claim == DeviceOwnership::Claim::Granted)
            return self->send(call);
        self->m_isBusy = false;
        self->m_waiting.push_front(call);
    });
}

void DeviceCalls::send(const CallRequest &call)
{
    const auto finish = [this, call](const CallAnswer &answer) {
        m_isBusy = false;
        end(call, answer);
        startNext();
    };
    if (call.deadline.hasExpired())
        return finish(CallAnswer::notSent(tr("the message has expired")));
    m_surroundings.session.callByName(call.operation, call.arguments)
        .then(this,
              [finish](const Answer<std::string> &answer) { finish(CallAnswer::of(answer)); });
}

void DeviceCalls::end(const CallRequest &call, const CallAnswer &answer)
{
    if (call.fault.isEmpty()) {
        m_remembered.end(call, answer);
        m_surroundings.ownership.release(call, answer);
    }
    publishAnswer(call, answer);
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
    const auto isMeant = [&](const CallRequest &each) {
        return each.key == key;
    };
    m_waiting.erase(std::remove_if(m_waiting.begin(), m_waiting.end(), isMeant), m_waiting.end());
}

void DeviceCalls::endElsewhere(const CallRequest &call, const CallAnswer &answer, bool mustAnswer)
{
    dropWaiting(call.key);
    if (mustAnswer)
        return end(call, answer);
    m_remembered.end(call, answer);
}

} // namespace Tavoro::Gate
