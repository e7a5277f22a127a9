#pragma once

#include <QDateTime>
#include <QString>

namespace Tavoro {

/// What a DeviceSession does, and why. A value.
struct DeviceState {
    /// What the session does.
    enum Kind {
        Disconnected, ///< Does not try to connect: it was closed, or has not been opened.
        Connecting, ///< Tries to connect for the first time since it was opened.
        Reading, ///< Is connected, and reads the device or waits for its turn. Calls are carried
                 ///< out.
        Ready, ///< Is connected, and the model holds the device.
        Lost, ///< Was connected, and tries to connect again. The model holds the last known data.
    };
    Kind kind = Disconnected; ///< What the session does.
    /// Why the session is not ready, as words for the end of a sentence; empty if there is no
    /// reason. In the state Ready: what could not be read. Translated.
    QString reason;
    QDateTime since; ///< When the session entered this kind of state.
    /// When the session tries again to connect or to read; invalid if it does not wait for that.
    QDateTime nextAttempt;
};

} // namespace Tavoro
