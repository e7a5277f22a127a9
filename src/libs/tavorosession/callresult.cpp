#include "callresult_p.h"
#include "texts_p.h"

#include <tavorocontrol/controlhelper.h>
#include <tavorossproxy/channelstatus.h>
#include <tavorossproxy/commandcodes.h>

#include <memory>

namespace Tavoro::SessionInternal {

using SSProxy::CommandType;
using SSProxy::Exchange;
using SSProxy::RequestOutcome;

namespace {

constexpr quint16 lastDeviceStatus = 255;

struct ReasonRow {
    quint16 status;
    const char *reason;
};

// clang-format off
// The statuses that users meet. Others have the text of the control library.
constexpr ReasonRow reasons[] = {
    {1,   QT_TRANSLATE_NOOP("Tavoro::Outcome", "the device does not know this command")},
    {2,   QT_TRANSLATE_NOOP("Tavoro::Outcome", "the device does not accept this data")},
    {3,   QT_TRANSLATE_NOOP("Tavoro::Outcome", "the device does not have this object")},
    {4,   QT_TRANSLATE_NOOP("Tavoro::Outcome", "a value is out of range")},
    {7,   QT_TRANSLATE_NOOP("Tavoro::Outcome", "the data is too long for the device")},
    {8,   QT_TRANSLATE_NOOP("Tavoro::Outcome", "the device is busy, or the object is in use")},
    {9,   QT_TRANSLATE_NOOP("Tavoro::Outcome", "the content differs from its announcement")},
    {10,  QT_TRANSLATE_NOOP("Tavoro::Outcome", "the storage of the device is full or has failed")},
    {SSProxy::statusControlledByOthers, QT_TRANSLATE_NOOP("Tavoro::Outcome", "another client controls the device")},
    {SSProxy::statusDataUpdated,        QT_TRANSLATE_NOOP("Tavoro::Outcome", "another client has changed the device, read it again first")},
    {SSProxy::Connecting,       QT_TRANSLATE_NOOP("Tavoro::Outcome", "there is no connection")},
    {SSProxy::Disconnected,     QT_TRANSLATE_NOOP("Tavoro::Outcome", "the connection was lost")},
    {SSProxy::RequestTimedOut,  QT_TRANSLATE_NOOP("Tavoro::Outcome", "the device did not answer in time")},
    {SSProxy::AnswerTooShort,   QT_TRANSLATE_NOOP("Tavoro::Outcome", "the connection was lost within the answer")},
    {SSProxy::DeviceSilent,     QT_TRANSLATE_NOOP("Tavoro::Outcome", "the device stopped answering")},
    {SSProxy::AnswerIncomplete, QT_TRANSLATE_NOOP("Tavoro::Outcome", "the answer was not complete in time")},
};
// clang-format on

struct NotSentRow {
    NotSentReason reason;
    const char *text;
};

// clang-format off
constexpr NotSentRow notSentRows[] = {
    {NotSentReason::NoConnection,   QT_TRANSLATE_NOOP("Tavoro::Outcome", "there is no connection")},
    {NotSentReason::ConnectionLost, QT_TRANSLATE_NOOP("Tavoro::Outcome", "the connection was lost before")},
    {NotSentReason::QueueFull,      QT_TRANSLATE_NOOP("Tavoro::Outcome", "too many calls are waiting")},
    {NotSentReason::Replaced,       QT_TRANSLATE_NOOP("Tavoro::Outcome", "a newer value has replaced it")},
    {NotSentReason::Canceled,       QT_TRANSLATE_NOOP("Tavoro::Outcome", "it was cancelled")},
};
// clang-format on

constexpr char notReadable[] =
    QT_TRANSLATE_NOOP("Tavoro::Outcome", "the answer of the device cannot be read");
constexpr char notWhole[] =
    QT_TRANSLATE_NOOP("Tavoro::Outcome", "the connection was lost before the last packet was sent");

QString reasonOf(quint16 status)
{
    for (const ReasonRow &row : reasons) {
        if (row.status == status)
            return OutcomeTexts::tr(row.reason);
    }
    return Control::ControlHelper::errorText(status);
}

bool isWrite(const Exchange &exchange)
{
    return exchange.type == CommandType::Write || exchange.type == CommandType::BinaryWrite;
}

/// The device carries a split write out with its last packet.
bool mayBeCarriedOut(const Exchange &exchange)
{
    return !isWrite(exchange) || exchange.packet + 1 >= exchange.packets;
}

void setStatus(CallResult &result, Outcome::Kind kind, quint16 status)
{
    result.kind = kind;
    result.status = status;
    result.reason = kind == Outcome::Done ? QString() : reasonOf(status);
}

/// Classifies the last exchange of an operation that returned \a ok and \a error.
void classify(CallResult &result, const Exchange &last, bool ok, const QString &error)
{
    const bool isRefused = last.status != 0 && last.status <= lastDeviceStatus;
    if (isRefused) {
        setStatus(result, Outcome::Refused, last.status);
    } else if (!ok && !mayBeCarriedOut(last)) {
        setStatus(result, Outcome::NotSent, last.status);
        result.reason = OutcomeTexts::tr(notWhole);
    } else if (last.status == 0 && !ok && !isWrite(last)) { // the answer cannot be used
        result.kind = Outcome::Unknown;
        result.reason = error.isEmpty() ? OutcomeTexts::tr(notReadable) : error;
    } else if (last.status == 0) {
        setStatus(result, Outcome::Done, 0);
    } else if (!last.sent) {
        setStatus(result, Outcome::NotSent, last.status);
    } else {
        setStatus(result, Outcome::Unknown, last.status);
        if (isWrite(last))
            result.unresolved = std::make_shared<SSProxy::RequestIdentity>(*last.sent);
    }
}

} // namespace

QString reasonText(NotSentReason reason)
{
    for (const NotSentRow &row : notSentRows) {
        if (row.reason == reason)
            return OutcomeTexts::tr(row.text);
    }
    Q_ASSERT_X(false, "reasonText", "a reason without words");
    return {};
}

CallResult notSent(NotSentReason reason)
{
    CallResult result = notSent(reasonText(reason));
    result.isCanceled = reason == NotSentReason::Canceled;
    return result;
}

CallResult refused(quint16 status)
{
    CallResult result;
    setStatus(result, Outcome::Refused, status);
    return result;
}

CallResult unknownAfter(quint16 status)
{
    CallResult result;
    setStatus(result, Outcome::Unknown, status);
    return result;
}

QString controlledBy(const QString &holder)
{
    return OutcomeTexts::tr("the device is controlled by %1").arg(holder);
}

CallResult notSent(const QString &reason)
{
    CallResult result;
    result.reason = reason;
    return result;
}

CallResult resultOf(bool ok, const QString &error, const SSProxy::ExchangeWatch &watch)
{
    if (!watch.last())
        return error.isEmpty() || ok ? notSent(NotSentReason::NoConnection) : notSent(error);
    CallResult result;
    result.code = watch.last()->code;
    result.firstSent = watch.firstSent();
    classify(result, *watch.last(), ok, error);
    return result;
}

CallResult resolved(const CallResult &unknown, const RequestOutcome &outcome)
{
    CallResult result = unknown;
    switch (outcome.state) {
    case RequestOutcome::Done:
        setStatus(result, outcome.status == 0 ? Outcome::Done : Outcome::Refused, outcome.status);
        break;
    case RequestOutcome::NotArrived:
        setStatus(result, Outcome::NotSent, unknown.status);
        break;
    case RequestOutcome::Unknown:
    case RequestOutcome::UnderWay:
        break;
    }
    return result;
}

bool mayBeAskedAgain(const RequestOutcome &outcome)
{
    return outcome.state == RequestOutcome::UnderWay
        || (outcome.state == RequestOutcome::Unknown && outcome.status != 0);
}

} // namespace Tavoro::SessionInternal
