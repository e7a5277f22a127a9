#include "leaseownership.h"

#include <tavorogate/topics/topics.h>
#include <tavorosession/devicesession.h>

#include <QLoggingCategory>

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

} // namespace

LeaseOwnership::LeaseOwnership(BrokerConnection &broker, const AnswerWatch &answers,
                               DeviceSession &session, const QString &serial,
                               const Options &options)
    : m_broker(broker),
      m_session(session),
      m_serial(serial),
      m_options(options),
      m_publisher(broker, serial, options.gateway)
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
    m_barrier = m_publisher.publishBarrier();
}

void LeaseOwnership::settle()
{
    const bool isOwn = isLastOwn();
    if (!std::exchange(m_isFollowing, true) && m_last) {
        if (isOwn)
            m_publisher.publish(*m_last); // the broker has restarted, or has not received it
        else
            Q_EMIT claimsMissed();
    }
    if (m_last && m_last->state == ClaimRecord::Claimed && (!isOwn || m_isAbandoned))
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
    ClaimRecord record = m_publisher.next(m_last);
    record.request = request;
    record.call = call;
    publish(record, [this, decided = std::move(decided)](Delivery delivery) {
        m_isSent = delivery == Delivery::Accepted && isActive();
        if (delivery == Delivery::Refused)
            decided(Claim::Impossible);
        else
            decided(m_isSent ? Claim::Granted : Claim::Postponed);
    });
}

/// The claim of another call stays the last record until that call has ended: a successor looks for
/// it there.
void LeaseOwnership::release(const CallRequest &call, const CallAnswer &answer)
{
    const bool hasOtherClaim =
        isLastOwn() && m_last->state == ClaimRecord::Claimed && !(m_last->call.key == call.key);
    if (hasOtherClaim)
        return m_publisher.replyAnswered(call, answer);
    m_isSent = m_isAbandoned = false;
    ClaimRecord record = m_publisher.next(m_last);
    record.state = ClaimRecord::Ended;
    record.call = call;
    record.answer = answer;
    publish(record);
}

void LeaseOwnership::abandon(const CallRequest & /*call*/)
{
    m_isAbandoned = std::exchange(m_isSent, false);
}

void LeaseOwnership::publish(const ClaimRecord &record, BrokerConnection::Delivered delivered)
{
    m_last = record;
    m_isLastAnswered = false;
    m_publisher.publish(record, std::move(delivered));
}

void LeaseOwnership::receive(const BrokerMessage &message)
{
    if (m_phase == Phase::TakingOver && message.payload == m_barrier)
        return settle();
    const auto record = ClaimRecord::fromJson(message.payload);
    if (!record)
        return;
    const bool isOwn = m_publisher.hasPublished(*record);
    if (isOwn && record->isRetained())
        m_isFollowing = m_isFollowing || (m_last && m_last->sequence == record->sequence);
    else if (!isOwn && !record->isRetained())
        receiveNote(*record);
    else if (!isOwn && isActive() && m_last)
        m_publisher.publish(*m_last); // a gateway that was suspended has overwritten it
    else if (!isOwn)
        follow(*record);
}

void LeaseOwnership::receiveNote(const ClaimRecord &note)
{
    if (note.state == ClaimRecord::Asked && isActive())
        Q_EMIT asked(note.call, note.isDoubtful);
    else if (note.state == ClaimRecord::Waiting)
        Q_EMIT waitsElsewhere(note.call.key);
    else if (note.state == ClaimRecord::Answered)
        Q_EMIT endedElsewhere(note.call, note.answer, false);
}

/// Callers may use the same correlation data for calls of several devices.
void LeaseOwnership::noteAnswer(const BrokerMessage &answer)
{
    const bool isLast = m_last && m_last->call.key.answerTopic == answer.topic
        && m_last->call.key.correlation == answer.correlation
        && CallAnswer::fromJson(answer.payload, m_serial);
    m_isLastAnswered = m_isLastAnswered || isLast;
    Q_EMIT answeredElsewhere(answer);
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
    if (record.state == ClaimRecord::Ended)
        Q_EMIT endedElsewhere(record.call, record.answer, false);
    else
        Q_EMIT claimedElsewhere(record.call.key);
}

} // namespace Tavoro::Gate
