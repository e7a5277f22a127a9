#include "statetext_p.h"
#include "texts_p.h"

namespace Tavoro::SessionInternal {

namespace {

struct SentenceRow {
    DeviceState::Kind kind;
    const char *sentence; ///< %1 is the device.
    const char *withReason; ///< %2 is the reason.
};

// clang-format off
constexpr SentenceRow sentences[] = {
    {DeviceState::Disconnected, QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "%1 is disconnected."),
                                QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "%1 is disconnected: %2.")},
    {DeviceState::Connecting,   QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "Connecting to %1."),
                                QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "Cannot connect to %1: %2.")},
    {DeviceState::Reading,      QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "Reading %1."),
                                QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "Cannot read %1: %2.")},
    {DeviceState::Ready,        QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "%1 is ready."),
                                QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "%1 is ready, but %2.")},
    {DeviceState::Lost,         QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "The connection to %1 is lost."),
                                QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "The connection to %1 is lost: %2.")},
};
// clang-format on

} // namespace

QString stateText(const DeviceState &state, const QString &name)
{
    for (const SentenceRow &row : sentences) {
        if (row.kind != state.kind)
            continue;
        return state.reason.isEmpty() ? SessionTexts::tr(row.sentence).arg(name)
                                      : SessionTexts::tr(row.withReason).arg(name, state.reason);
    }
    Q_ASSERT_X(false, "stateText", "a state without a sentence");
    return {};
}

} // namespace Tavoro::SessionInternal
