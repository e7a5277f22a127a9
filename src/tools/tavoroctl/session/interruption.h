#pragma once

#include <QTimer>

#include <functional>

namespace Tavoro::Ctl {

/// While one exists, Ctrl-C and the signal that asks a process to end are told instead of ending
/// the program. A second one ends it all the same.
///
/// Lives on the main thread; its event loop must turn.
class Interruption {
public:
    /// Makes \a tell once, on the main thread, soon after the signal.
    explicit Interruption(std::function<void()> tell);
    ~Interruption();
    Interruption(const Interruption &) = delete;
    Interruption &operator=(const Interruption &) = delete;

    /// Whether the signal has come, told or not.
    bool hasCome() const;

private:
    QTimer m_look;
};

} // namespace Tavoro::Ctl
