#pragma once

#include <QTimer>

#include <functional>

namespace Tavoro::Ctl {

/// While an object exists, SIGINT (Ctrl-C) and SIGTERM call a function instead of ending the
/// program. A second signal ends it.
///
/// Belongs to the main thread, whose event loop must run.
class Interruption {
public:
    /// Calls \a interrupted once, on the main thread, soon after the signal.
    explicit Interruption(std::function<void()> interrupted);
    ~Interruption();
    Interruption(const Interruption &) = delete;
    Interruption &operator=(const Interruption &) = delete;

    /// Whether a signal has arrived.
    bool isInterrupted() const;

private:
    QTimer m_look;
};

} // namespace Tavoro::Ctl
