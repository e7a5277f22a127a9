#pragma once

#include <tavorogate/broker/brokerconnection.h>
#include <tavorogate/calls/callanswer.h>
#include <tavorogate/calls/callrequest.h>
#include <tavorogate/calls/rememberedcalls.h>
#include <tavorogate/calls/waitingcalls.h>
#include <tavorosession/outcome.h>
#include <tavorosession/sendpermission.h>

#include <QObject>
#include <QString>
#include <QTimer>

#include <string>

namespace Tavoro {
class DeviceSession;
}

namespace Tavoro::Gate {

class DeviceOwnership;
class Outbox;

/// Carries out the calls for one device that arrive from the broker, one after the other, and
/// publishes their answers.
class DeviceCalls : public QObject {
    Q_OBJECT

public:
    /// Calls that may wait. A further one is not sent.
    static constexpr std::size_t mostWaiting = 256;
    /// Calls that a gateway keeps in case it becomes active.
    static constexpr std::size_t mostKept = 4096;

    /// What the calls need. All of it outlives the object.
    struct Surroundings {
        BrokerConnection &broker;
        Outbox &outbox;
        DeviceSession &session;
        DeviceOwnership &ownership;
    };

    DeviceCalls(const Surroundings &surroundings, const QString &serial, const CallRules &rules);

    /// True while a call is claimed or carried out.
    bool isBusy() const { return m_isBusy; }

Q_SIGNALS:
    /// A call has ended; its answer has been given to the outbox.
    void callEnded(const Tavoro::Gate::CallRequest &call, const Tavoro::Gate::CallAnswer &answer);
    /// A call was delivered again, and is not carried out again.
    void callRepeated();

private:
    void receive(const BrokerMessage &message);
    void accept(const CallRequest &call);
    void enqueue(const CallRequest &call);
    void setActive(bool isActive);
    void startNext();
    void start(const WaitingCalls::Entry &entry);
    void send(const CallRequest &call);
    void claim(const CallRequest &call, const SendPermission &permission);
    void finish(const CallRequest &call, const Answer<std::string> &answer);
    void end(const CallRequest &call, const CallAnswer &answer);
    void publishAnswer(const CallRequest &call, const CallAnswer &answer);
    void endAnswered(const BrokerMessage &answer);
    void doubtWaiting();
    void askAboutUnclear();
    void answerQuestion(const CallRequest &call, bool isDoubtful);
    void endElsewhere(const CallRequest &call, const CallAnswer &answer, bool mustAnswer);

    const Surroundings m_surroundings;
    const QString m_serial;
    const CallRules m_rules;
    RememberedCalls m_remembered;
    WaitingCalls m_waiting;
    QTimer m_questions; ///< Asks the active gateway about calls that wait and are unclear.
    bool m_isBusy = false; ///< A call is being claimed or carried out.
    CallKey m_current; ///< The call that is being claimed or carried out.
    bool m_isImpossible = false; ///< The broker does not permit its claim.
    bool m_isAnswered = false; ///< Another gateway has answered it.
    Subscription m_subscription;
};

} // namespace Tavoro::Gate
