// The meanings of statuses: 1 to 255 come from the device, 257 to 264 from the local channel, 357
// to 365 from the local protocol decoder.

#include "errortexts_p.h"

#include "translation_p.h"

#include <tavorossproxy/channelstatus.h>
#include <tavorossproxy/commandcodes.h>

#include <algorithm>
#include <iterator>

namespace Tavoro::Control::Internal {

namespace {

using namespace SSProxy;

struct ErrorRow {
    quint16 status;
    const char *text;
};

// clang-format off
constexpr ErrorRow errorRows[] = {
    {statusControlledByOthers, QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "The current device is already under control")},
    {NotInitialized,           QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "software error: Channel is not initialized")},
    {Connecting,               QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "software error: Channel is connecting")},
    {Disconnected,             QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "software error: Channel disconnected")},
    {RequestTimedOut,          QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "software error: Request timed out")},
    {CalledOnChannelThread,    QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "software error: Asynchronous request is being executed")},
    {NoFreeTag,                QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "software error: Sync request is being executed")},
    {InvalidRequest,           QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "software error: Invalid request command")},
    {ThreadNotRunning,         QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "software error: Sending thread is not initialized or not started")},
    {WrongAnswerCode,          QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "protocol error: Invalid register address")},
    {AnswerTooShort,           QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "protocol error: Return data is too short")},
    {WrongFlag,                QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "protocol error: Invalid protocol header flag")},
    {UnknownChecksumIndex,     QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "protocol error: Invalid checksum index")},
    {WrongChecksum,            QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "protocol error: Invalid checksum")},
    {WrongType,                QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "protocol error: Invalid type")},
    {WrongLength,              QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "protocol error: Invalid extended data length")},
    {DeviceSilent,             QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "protocol error: Device response timeout")},
    {AnswerIncomplete,         QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "protocol error: Device response decoding timed out")},
};
// clang-format on

constexpr char hardwareError[] =
    QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "hardware error:%1");
constexpr quint16 lastHardwareStatus = 255;

} // namespace

QString errorText(quint16 status)
{
    const auto row =
        std::find_if(std::begin(errorRows), std::end(errorRows),
                     [&](const ErrorRow &candidate) { return candidate.status == status; });
    if (row != std::end(errorRows))
        return translated(row->text);
    if (status >= 1 && status <= lastHardwareStatus)
        return translated(hardwareError).arg(status);
    return QStringLiteral("N/A");
}

} // namespace Tavoro::Control::Internal
