#pragma once

#include "answerwatch.h"
#include "claimpublisher.h"
#include "claimrecord.h"
#include "deviceownership.h"

#include <tavorogate/broker/brokerconnection.h>
#include <tavorosession/outcome.h>
#include <tavorossproxy/devicelease.h>

#include <QString>
#include <QTimer>

#include <chrono>
#include <optional>

namespace Tavoro {
class DeviceSession;
}

namespace Tavoro::Gate {

/// The ownership of a gateway that may share its devices with others: the one that holds the lease
/// of the device is active. docs/gateway.md describes the protocol.
///
/// \code
/// Watching    --lease granted, broker connected-->  TakingOver
/// TakingOver  --open claim answered-->              Active
/// any         --lease or broker lost-->             Watching
/// \endcode
class LeaseOwnership final : public DeviceOwnership {
    Q_OBJECT

public:
    struct Options {
        QString gateway; ///< The name of the gateway.
        std::chrono::seconds time{5}; ///< Time of the lease.
    };

    LeaseOwnership(BrokerConnection &broker, const AnswerWatch &answers, DeviceSession &session,
                   const QString &serial, const Options &options);

    bool isActive() const override;
    void claim(const CallRequest &call, const SSProxy::RequestIdentity &request,
               std::function<void(Claim)> decided) override;
    void release(const CallRequest &call, const CallAnswer &answer) override;
    void abandon(const CallRequest &call) override;
    void ask(const CallRequest &call, bool isDoubtful) override
    {
        m_publisher.ask(call, isDoubtful);
    }
    void replyWaiting(const CallRequest &call) override { m_publisher.replyWaiting(call); }
    void replyAnswered(const CallRequest &call, const CallAnswer &answer) override
    {
        m_publisher.replyAnswered(call, answer);
    }
    void leave() override;
    bool isLeaving() const override { return m_isReleasing; }

private:
    enum class Phase {
        Watching,
        TakingOver,
        Active
    };

    void update();
    void askForLease();
    void leaseAnswered(const Answer<SSProxy::DeviceLease> &answer);
    void takeOver();
    void settle();
    void resolve(const ClaimRecord &claim);
    void activate();
    void stopWorking();
    void releaseLease();
    void receive(const BrokerMessage &message);
    void follow(const ClaimRecord &record);
    void receiveNote(const ClaimRecord &note);
    void noteAnswer(const BrokerMessage &answer);
    void publish(const ClaimRecord &record, BrokerConnection::Delivered delivered = {});
    bool isLastOwn() const { return m_last && m_publisher.hasPublished(*m_last); }

    BrokerConnection &m_broker;
    DeviceSession &m_session;
    const QString m_serial;
    const Options m_options;
    ClaimPublisher m_publisher;
    Phase m_phase = Phase::Watching;
    bool m_isAsking = false; ///< A request for the lease is under way.
    bool m_hasLeft = false; ///< The gateway ends.
    bool m_isReleasing = false; ///< The device has not answered the release of the lease yet.
    bool m_hasWarned = false; ///< That the device does not support leases.
    bool m_isSent = false; ///< The claimed call may have been sent and has not ended.
    bool m_isAbandoned = false; ///< It has ended, and nobody has answered it.
    bool m_isLeaseNew = true; ///< Another gateway may have worked for the device before.
    bool m_isFollowing = false; ///< The last record is known to be the last one of the broker.
    bool m_isLastAnswered = false; ///< Another gateway has answered the call of the last record.
    std::optional<ClaimRecord> m_last; ///< The last record, of any gateway.
    quint64 m_round = 0; ///< Counts the changes of the phase.
    QByteArray m_barrier; ///< The message that ends the records of the former holder.
    QTimer m_again; ///< Runs until the lease is asked for again.
    QTimer m_grace; ///< Runs while the lease is held without a broker.
    Subscription m_subscription;
};

} // namespace Tavoro::Gate
