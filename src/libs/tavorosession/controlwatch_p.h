#pragma once

#include "calljob_p.h"

#include <QString>
#include <QTimer>

#include <chrono>
#include <memory>

QT_BEGIN_NAMESPACE
class QThreadPool;
QT_END_NAMESPACE

namespace Tavoro::SessionInternal {

/// Knows whether another client controls a device, and which one. Gives control up when it was not
/// used for a time. On the session's thread.
class ControlWatch {
public:
    /// What the owner learns.
    class Events {
    public:
        /// isOthers() has changed.
        virtual void controlChanged() = 0;
        /// holder() has changed.
        virtual void controlHolderChanged() = 0;
        /// Control was not used for the idle time.
        virtual void controlIsIdle() = 0;

    protected:
        ~Events() = default;
    };

    /// With an \a idleTime of 0, controlIsIdle() is never called.
    ControlWatch(QThreadPool &pool, std::shared_ptr<Courier> courier,
                 std::chrono::milliseconds idleTime, Events &events);
    ~ControlWatch();

    /// Watches the device of \a target; none if it is null.
    void setTarget(std::shared_ptr<const CallTarget> target);
    /// Looks whether control has changed.
    void look();
    /// This client has used control. Begins the idle time; without effect without a connection.
    void noteUse();
    /// This client does not have control any more.
    void noteRelease() { m_idle.stop(); }
    /// The device has named the client that controls it. Without effect unless another client does:
    /// the name may be late, or that of this client.
    void noteHolder(const QString &holder);

    bool isOthers() const { return m_isOthers; }
    /// Name of the other client; empty if there is none, or while its name is not known.
    QString holder() const { return m_holder; }

private:
    void setHolder(const QString &holder);
    void askForHolder();

    Events &m_events;
    const std::shared_ptr<Lane> m_questions;
    std::shared_ptr<const CallTarget> m_target;
    bool m_isOthers = false;
    bool m_isAsked = false; ///< A question for the holder is under way.
    QString m_holder;
    QTimer m_idle; ///< Runs since the last use.
    QTimer m_again; ///< Runs while another client has control, until the holder is asked for again.
    std::shared_ptr<ControlWatch *> m_self; ///< For answers that may arrive too late.
};

} // namespace Tavoro::SessionInternal
