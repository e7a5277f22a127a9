#include "leaseownership.h"

#include <tavorogate/topics/topics.h>
#include <tavorosession/devicesession.h>

#include <QLoggingCategory>
#include <QUuid>

#include <algorithm>
#include <utility>

namespace Tavoro::Gate {

using SSProxy::DeviceLease;
using namespace std::chrono_literals;

namespace {

Q_LOGGING_CATEGORY(ownershipLog, "tavoro.gate.ownership")

constexpr quint16 unknownCommand = 1; ///< Status of a device without leases.
/// How long a gateway without a broker keeps the lease: a broker that restarts is back earlier.
constexpr std::chrono::milliseconds grace(3000);
/// The lease is asked for again after this time at the latest, since it may be released early.
constexpr std::chrono::milliseconds longestPause(1000);
constexpr std::chrono::milliseconds shortestPause(20);

const QByteArray barrierBeginning = "barrier ";

} // namespace

LeaseOwnership::LeaseOwnership(BrokerConnection &broker, const AnswerWatch &answers,
                               DeviceSession &session, const QString &serial,
                               const Options &options)
    : m_broker(broker),
      m_session(session),
      m_serial(serial),
      m_options(options),
      m_instance(QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    m_again.setSingleShot(true);
    m_grace.setSingleShot(true);
    connect(&answers, &AnswerWatch::answered, this, &LeaseOwnership::noteAnswer);
    connect(&m_again, &QTimer::timeout, this, &LeaseOwnership::update);
    connect(&m_grace, &QTimer::timeout, this, &LeaseOwnership::releaseLease);
    connect(&session, &DeviceSession::leaseChanged, this, &LeaseOwnership::update);
    connect(&session, &DeviceSession::stateChanged, this, &LeaseOwnership::update);
    connect(&broker, &BrokerConnection::connected, this, [this] {
        m_grace.stop();
        update();
    });
    connect(&broker, &BrokerConnection::disconnected, this, [this] {
        m_isFollowing = false;
        m_grace.start(grace);
        update();
    });
    m_subscription = broker.subscribe(Topics::claim(serial), BrokerConnection::SubscribeOptions(),
                                      [this](const BrokerMessage &message) { receive(message); });
    update();
}

bool LeaseOwnership::isActive() const
{
    return m_phase == Phase::Active && m_broker.isConnected() && m_session.holdsLease();
}

void LeaseOwnership::update()
{
    const bool mayWork = m_broker.isConnected() && m_session.holdsLease() && !m_hasLeft;
    if (m_phase != Phase::Watching && !mayWork)
        return stopWorking();
    if (m_phase != Phase::Watching)
        return;
    if (mayWork)
        return takeOver();
    const bool wantsLease = m_broker.isConnected() && m_session.isReady() && !m_hasLeft;
    if (wantsLease && !m_session.holdsLease() && !m_again.isActive())
        askForLease();
}

void LeaseOwnership::askForLease()
{
    if (std::exchange(m_isAsking, true))
        return;
    m_session.takeLease(m_options.gateway, m_options.time)
        .then(this, [this](const Answer<DeviceLease> &answer) { leaseAnswered(answer); });
}

void LeaseOwnership::leaseAnswered(const Answer<DeviceLease> &answer)
{
    m_isAsking = false;
    if (answer.status() == unknownCommand && !std::exchange(m_hasWarned, true))
        qCWarning(
            ownershipLog,
            "The device %s does not support leases, so this gateway does not work for it. Set "
            "\"leaseSeconds\" to 0 if no other gateway does.",
            qUtf8Printable(m_serial));
    if (!answer) {
        const bool isHeld = answer.record().state == DeviceLease::Others;
        m_again.start(isHeld ? std::clamp(answer.record().remaining, shortestPause, longestPause)
                             : longestPause);
    }
    update();
}

/// The records of the former holder arrive before the barrier, since the broker keeps the order of
/// a topic.
void LeaseOwnership::takeOver()
{
    m_phase = Phase::TakingOver;
    ++m_round;
    publishBarrier();
}

void LeaseOwnership::publishBarrier()
{
    m_barrier = barrierBeginning + m_instance.toLatin1() + ' ' + QByteArray::number(m_round);
    BrokerMessage message;
    message.topic = Topics::claim(m_serial);
    message.payload = m_barrier;
    m_broker.publish(message);
}

void LeaseOwnership::settle()
{
    const bool isOwn = m_last && m_last->instance == m_instance;
    if (!std::exchange(m_isFollowing, true) && m_last) {
        if (isOwn)
            publishLast(); // the broker has restarted, or has not received it
        else
            Q_EMIT claimsMissed();
    }
    if (m_last && !m_last->isEnded && (!isOwn || m_isAbandoned))
        resolve(*m_last);
    else
        activate();
}

/// The device has ended the connection of the former holder, so its answer is final.
void LeaseOwnership::resolve(const ClaimRecord &claim)
{
    qCInfo(ownershipLog, "Asking the device %s what became of a call of %s.",
           qUtf8Printable(m_serial), qUtf8Printable(claim.gateway));
    m_session.outcomeOf(claim.request, claim.call.operation)
        .then(this, [this, claim, round = m_round](const Outcome &outcome) {
            if (round != m_round)
                return; // the gateway that is active next asks again
            const CallAnswer answer{outcome.kind(), outcome.status(), outcome.text(), {}};
            const bool mustAnswer = !m_isLastAnswered;
            Q_EMIT endedElsewhere(claim.call, answer, mustAnswer);
            if (!mustAnswer)
                release(claim.call, answer);
            activate();
        });
}

void LeaseOwnership::activate()
{
    if (m_phase != Phase::TakingOver)
        return;
    m_phase = Phase::Active;
    qCInfo(ownershipLog, "This gateway works for the device %s.", qUtf8Printable(m_serial));
    if (std::exchange(m_isLeaseNew, false))
        m_session.readAgain();
    Q_EMIT activeChanged(true);
}

void LeaseOwnership::stopWorking()
{
    const bool wasActive = std::exchange(m_phase, Phase::Watching) == Phase::Active;
    m_isLeaseNew = m_isLeaseNew || !m_session.holdsLease();
    ++m_round;
    if (wasActive) {
        qCInfo(ownershipLog, "This gateway does not work for the device %s any more.",
               qUtf8Printable(m_serial));
        Q_EMIT activeChanged(false);
    }
    update();
}

void LeaseOwnership::leave()
{
    m_hasLeft = true;
    m_again.stop();
    releaseLease();
    update();
}

/// Another gateway may take the lease at once, and the device does not end the connection of this
/// one: a call that was sent must have ended before.
void LeaseOwnership::releaseLease()
{
    if (m_isSent)
        m_grace.start(grace);
    else if (m_session.holdsLease() && !std::exchange(m_isReleasing, true))
        m_session.releaseLease().then(
            this, [this](const Answer<DeviceLease> &) { m_isReleasing = false; });
}

void LeaseOwnership::claim(const CallRequest &call, const SSProxy::RequestIdentity &request,
                           std::function<void(Claim)> decided)
{
    if (!isActive())
        return decided(Claim::Postponed);
    ClaimRecord record;
    record.request = request;
    record.call = call;
    publish(std::move(record), [this, decided = std::move(decided)](Delivery delivery) {
        m_isSent = delivery == Delivery::Accepted && isActive();
        if (delivery == Delivery::Refused)
            decided(Claim::Impossible);
        else
            decided(m_isSent ? Claim::Granted : Claim::Postponed);
    });
}

void LeaseOwnership::release(const CallRequest &call, const CallAnswer &answer)
{
    m_isSent = m_isAbandoned = false;
    ClaimRecord record;
    record.isEnded = true;
    record.call = call;
    record.answer = answer;
    publish(std::move(record), {});
}

void LeaseOwnership::abandon(const CallRequest & /*call*/)
{
    m_isAbandoned = std::exchange(m_isSent, false);
}

void LeaseOwnership::publish(ClaimRecord record, BrokerConnection::Delivered delivered)
{
    record.sequence = m_last ? m_last->sequence + 1 : 1;
    record.instance = m_instance;
    record.gateway = m_options.gateway;
    m_last = std::move(record);
    m_isLastAnswered = false;
    publishLast(std::move(delivered));
}

void LeaseOwnership::publishLast(BrokerConnection::Delivered delivered)
{
    BrokerMessage message;
    message.topic = Topics::claim(m_serial);
    message.payload = m_last->toJson();
    message.isRetained = true;
    m_broker.publish(message, std::move(delivered));
}

void LeaseOwnership::receive(const BrokerMessage &message)
{
    if (m_phase == Phase::TakingOver && message.payload == m_barrier)
        return settle();
    const auto record = ClaimRecord::fromJson(message.payload);
    if (record && record->instance == m_instance)
        m_isFollowing = m_isFollowing || (m_last && m_last->sequence == record->sequence);
    else if (record && isActive() && m_last)
        publishLast(); // a gateway that was suspended has overwritten it
    else if (record)
        follow(*record);
}

void LeaseOwnership::noteAnswer(const QString &topic, const QByteArray &correlation)
{
    if (m_last && m_last->call.key.answerTopic == topic
        && m_last->call.key.correlation == correlation)
        m_isLastAnswered = true;
    Q_EMIT answeredElsewhere(topic, correlation);
}

/// A gap in the sequence, or an earlier one, means that records were missed.
void LeaseOwnership::follow(const ClaimRecord &record)
{
    const bool isRepeated =
        m_last && record.sequence == m_last->sequence && record.instance == m_last->instance;
    const bool isNext = !m_last || record.sequence == m_last->sequence + 1;
    m_isFollowing = true;
    if (isRepeated)
        return;
    m_last = record;
    m_isLastAnswered = false;
    if (!isNext)
        Q_EMIT claimsMissed();
    if (record.isEnded)
        Q_EMIT endedElsewhere(record.call, record.answer, false);
    else
        Q_EMIT claimedElsewhere(record.call.key);
}

} // namespace Tavoro::Gate
