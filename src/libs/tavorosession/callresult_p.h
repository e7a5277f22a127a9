#pragma once

#include <tavorosession/outcome.h>

#include <tavorossproxy/exchangewatch.h>
#include <tavorossproxy/networkchannel.h>

#include <QString>

#include <chrono>
#include <memory>
#include <optional>

namespace Tavoro::SessionInternal {

/// What is known about a call after it was carried out.
struct CallResult {
    Outcome::Kind kind = Outcome::NotSent;
    quint16 status = 0;
    quint16 code = 0; ///< Of the last command that was sent; 0 if none was.
    QString reason;
    QString holder; ///< The client that controls the device, if that is why it has refused.
    bool isCanceled = false; ///< By the application.
    /// The request to ask the device about, if the kind is Unknown and the answer can change that;
    /// otherwise null.
    std::shared_ptr<const SSProxy::RequestIdentity> unresolved;
    std::optional<std::chrono::steady_clock::time_point> firstSent;
};

/// Why the session did not send a call.
enum class NotSentReason {
    NoConnection,
    ConnectionLost, ///< While the call waited.
    QueueFull,
    Replaced, ///< By callLatest().
    Canceled,
};
/// The words for a reason, translated.
QString reasonText(NotSentReason reason);

/// A call that was not sent, for a reason in words.
CallResult notSent(const QString &reason);
/// \overload
CallResult notSent(NotSentReason reason);
/// A call that the device has refused with \a status.
CallResult refused(quint16 status);
/// A call that may have been carried out: the channel ended it with \a status.
CallResult unknownAfter(quint16 status);
/// The reason of a refusal while the client \a holder controls the device, translated.
QString controlledBy(const QString &holder);
/// The result of an operation that returned \a ok and \a error while \a watch observed its
/// exchanges. The texts of operations only supplement it: for a record that cannot be decoded, and
/// for an operation that sent nothing.
CallResult resultOf(bool ok, const QString &error, const SSProxy::ExchangeWatch &watch);
/// What the device's answer makes of \a unknown. The kind stays Unknown if the device does not know
/// the request, or if it has not answered the question.
CallResult resolved(const CallResult &unknown, const SSProxy::RequestOutcome &outcome);
/// Whether the device may still give another answer: it has not finished the request, or could not
/// be asked.
bool mayBeAskedAgain(const SSProxy::RequestOutcome &outcome);

} // namespace Tavoro::SessionInternal
