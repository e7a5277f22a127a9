#include "blockingwait.h"

#include "runtime.h"

#include <pybind11/pybind11.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <optional>
#include <thread>

namespace py = pybind11;

namespace Tavoro::Python {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds signalInterval(50); ///< How often a blocked thread looks for signals.
constexpr milliseconds stopPatience(2000);

/// Threads of Python that are blocked here without the interpreter's lock.
std::atomic<int> blockedThreads{0};

/// Releases the interpreter's lock, and counts the thread until it has the lock again.
class BlockedThread {
public:
    BlockedThread()
    {
        ++blockedThreads;
        m_released.emplace();
    }
    ~BlockedThread()
    {
        m_released.reset();
        --blockedThreads;
    }
    BlockedThread(const BlockedThread &) = delete;
    BlockedThread &operator=(const BlockedThread &) = delete;

private:
    std::optional<py::gil_scoped_release> m_released;
};

/// The time of the next slice of a wait; nothing when the time is over.
std::optional<milliseconds> nextSlice(std::optional<Clock::time_point> end)
{
    if (!end)
        return signalInterval;
    const auto left = std::chrono::ceil<milliseconds>(*end - Clock::now());
    if (left <= milliseconds(0))
        return std::nullopt;
    return std::min(left, signalInterval);
}

} // namespace

bool waitFor(const Pending &pending, double seconds)
{
    std::optional<Clock::time_point> end;
    if (seconds >= 0)
        end =
            Clock::now() + std::chrono::ceil<milliseconds>(std::chrono::duration<double>(seconds));
    while (!pending.isDone()) {
        const auto slice = nextSlice(end);
        if (!slice)
            return false;
        {
            const BlockedThread blocked;
            pending.wait(*slice);
        }
        if (PyErr_CheckSignals() != 0)
            throw py::error_already_set();
    }
    return true;
}

std::optional<EventKey> nextEvent()
{
    const BlockedThread blocked;
    return Runtime::instance().events().take();
}

void stopRuntime()
{
    const py::gil_scoped_release released;
    Runtime::instance().stop();
    const Clock::time_point end = Clock::now() + stopPatience;
    while (blockedThreads > 0 && Clock::now() < end)
        std::this_thread::sleep_for(milliseconds(1));
}

} // namespace Tavoro::Python
