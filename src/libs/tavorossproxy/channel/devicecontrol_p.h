#pragma once

#include <tavorossproxy/io/ratelimiter_p.h>

#include <tavorossproxy/networkchannel.h>
#include <tavorowire/frameparser.h>

#include <QCoreApplication>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>

namespace Tavoro::SSProxy::Internal {

/// Control of a device: tracks whether another client holds it, and requests it.
///
/// | member             | thread         |
/// |--------------------|----------------|
/// | isMaster, request  | any            |
/// | readHolder         | any            |
/// | the others         | that of the loop |
class DeviceControl {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::SSProxy::Internal::DeviceControl)

public:
    /// Called on the loop's thread when isMaster() has changed.
    using Handler = std::function<void(bool isMaster)>;

    /// \a channel sends the requests, and \a peerName returns its name for users. \a handler may be
    /// empty.
    DeviceControl(NetworkChannel &channel, EventLoop &loop, std::function<QString()> peerName,
                  Handler handler);

    /// Returns true unless another client holds control.
    bool isMaster() const { return m_isMaster; }
    /// See NetworkChannel::requestControl().
    bool request(ControlAction action, QString &error);

    /// See NetworkChannel::readControlHolder().
    bool readHolder(QString &holder);

    /// The connection is ready; its identity says whether another client holds control.
    void begin(bool isMaster) { setMaster(isMaster, {}); }
    /// A report about control, or the answer to a request for it, has arrived.
    void take(const Wire::FrameEvent &event);
    /// Logs the changes that were not logged yet. The handler is not called afterwards.
    void stop();

private:
    using TimePoint = Clock::TimePoint;

    std::shared_ptr<DeviceResponseCommand> askForHolder(int milliseconds);
    QString holder(TimePoint deadline);
    static QString reasonOf(quint16 status);
    QString requestFailed(ControlAction action, quint16 status) const;
    void setMaster(bool isMaster, const QString &holder);
    void notify();
    void log(quint64 changes) const;

    NetworkChannel &m_channel;
    EventLoop &m_loop;
    const std::function<QString()> m_peerName;
    const Handler m_handler;
    std::unique_ptr<RateLimiter> m_notifications; ///< Limits how often the handler is called.
    std::unique_ptr<RateLimiter> m_lines; ///< Limits how often changes are logged.
    QString m_holder; ///< The holder that the device reported last.
    bool m_notifiedMaster = true; ///< The value that the handler got last.
    std::atomic<bool> m_isMaster{true};
};

} // namespace Tavoro::SSProxy::Internal
