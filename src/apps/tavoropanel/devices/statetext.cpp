#include "statetext.h"

#include <tavorosession/devicesession.h>

#include <QCoreApplication>

#include <cmath>

namespace Tavoro::Panel {

namespace {

struct StateRow {
    DeviceState::Kind kind;
    const char *word;
};

#define WORD(text) QT_TRANSLATE_NOOP("Tavoro::Panel::SessionsModel", text)

// clang-format off
constexpr StateRow states[] = {
    {DeviceState::Disconnected, WORD("Disconnected")},
    {DeviceState::Connecting,   WORD("Connecting")},
    {DeviceState::Reading,      WORD("Reading")},
    {DeviceState::Ready,        WORD("Ready")},
    {DeviceState::Lost,         WORD("Connection lost")},
};
// clang-format on

QString stateWord(const char *text)
{
    return QCoreApplication::translate("Tavoro::Panel::SessionsModel", text);
}

QString wordOf(DeviceState::Kind kind)
{
    for (const StateRow &row : states) {
        if (row.kind == kind)
            return stateWord(row.word);
    }
    return {};
}

} // namespace

QString stateText(const DeviceSession &device)
{
    const DeviceState state = device.state();
    QString text = wordOf(state.kind);
    if (state.kind == DeviceState::Reading)
        text = stateWord(WORD("Reading, %1 %"))
                   .arg(static_cast<int>(std::lround(device.readProgress() * 100)));
    if (!state.reason.isEmpty())
        text = stateWord(WORD("%1: %2")).arg(text, state.reason);
    if (state.nextAttempt.isValid())
        text = stateWord(WORD("%1; next attempt at %2"))
                   .arg(text, state.nextAttempt.toLocalTime().toString(QStringLiteral("hh:mm:ss")));
    return text;
}

#undef WORD

} // namespace Tavoro::Panel
