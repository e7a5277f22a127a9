#pragma once

namespace Tavoro::SSProxy::Internal {

/// Ends the wait of a thread for a socket. Each thread has one, which it creates when it first
/// waits.
///
/// | member        | thread               |
/// |---------------|----------------------|
/// | wake          | any                  |
/// | the others    | the one that waits   |
class WakeUp {
public:
    static WakeUp &ofThisThread();

    WakeUp();
    ~WakeUp();
    WakeUp(const WakeUp &) = delete;
    WakeUp &operator=(const WakeUp &) = delete;

    /// False if the system had no descriptor left; the thread must not wait for a socket then.
    bool isValid() const { return m_descriptor >= 0; }
    /// Ends the current wait, or else the next one.
    void wake() const;
    /// Descriptor that is readable after wake().
    int descriptor() const { return m_descriptor; }
    /// Forgets earlier calls of wake().
    void reset() const;

private:
    const int m_descriptor;
};

} // namespace Tavoro::SSProxy::Internal
