#pragma once

#include "channelloop_p.h"

#include <QtGlobal>

#include <chrono>
#include <functional>
#include <memory>

namespace Tavoro::SSProxy::Internal {

/// For what a peer can cause as often as it likes: lets it happen once, and then only counts it for
/// a while; what was counted is told in one at the end of that. On the loop's thread.
class Pacer {
public:
    /// \a count is never 0.
    using Rest = std::function<void(quint64 count)>;

    /// \a rest is not called any more when the pacer is gone.
    Pacer(ChannelLoop &loop, std::chrono::milliseconds pause, Rest rest);

    /// True: let it happen now. False: it was counted.
    bool passes();
    /// Counts without letting anything happen now.
    void count(quint64 number);
    /// Tells at once what was counted.
    void flush();

private:
    /// What the timer points at.
    struct State {
        std::chrono::milliseconds pause;
        Rest rest;
        quint64 counted = 0;
        bool isPausing = false;
    };

    static void beginPause(ChannelLoop &loop, const std::shared_ptr<State> &state);

    ChannelLoop &m_loop;
    const std::shared_ptr<State> m_state;
};

} // namespace Tavoro::SSProxy::Internal
