#pragma once

#include <tavorosession/export.h>

#include <tavorossproxy/exchangewatch.h>

#include <functional>
#include <memory>

namespace Tavoro {

namespace SessionInternal {
class SendDecision;
} // namespace SessionInternal

/// The right to decide whether an announced call is sent, see DeviceSession::callAnnounced(). A
/// value: copies decide about the same call. The first decision counts. If the last copy is
/// destroyed without a decision, the call is not sent. Any thread; no member blocks.
class TAVOROSESSION_EXPORT SendPermission {
public:
    /// For the library, which makes all permissions.
    SendPermission(SSProxy::RequestIdentity request,
                   const std::shared_ptr<SessionInternal::SendDecision> &decision);

    /// The identity that the request will have on the device, for DeviceSession::outcomeOf().
    const SSProxy::RequestIdentity &request() const { return m_request; }
    /// Sends the call. It is not sent if its connection was lost in the meantime, or if the time of
    /// the call is over; its outcome says so.
    void send() const;
    /// Ends the call as NotSent; Outcome::isCanceled() is true for it.
    void refuse() const;

private:
    SSProxy::RequestIdentity m_request;
    std::shared_ptr<SessionInternal::SendDecision> m_decision; ///< Refuses when it is dropped.
};

/// Gets the permission for a call that is ready to be sent.
using SendAnnouncement = std::function<void(const SendPermission &permission)>;

} // namespace Tavoro
