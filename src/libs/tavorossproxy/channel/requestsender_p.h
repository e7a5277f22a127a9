#pragma once

#include "framestorage_p.h"
#include <tavorossproxy/io/eventloop_p.h>

#include <tavorossproxy/channeloptions.h>
#include <tavorowire/wirehead.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <string>

namespace Tavoro::SSProxy::Internal {

class ChannelLink;
class ConnectedSocket;
class ExchangeTable;

/// Sends the requests of the table of exchanges, in its order: on the thread of the caller if the
/// socket accepts further bytes, and otherwise on the loop's.
///
/// | member             | thread                                |
/// |--------------------|---------------------------------------|
/// | submit, sendUnsent | any                                   |
/// | the others         | the loop's, or before the first use   |
class RequestSender {
public:
    /// \a postSending posts a call of sendPosted() to the thread of \a loop.
    RequestSender(EventLoop &loop, const ChannelOptions &options, ExchangeTable &exchanges,
                  std::function<void()> postSending);

    /// Sends over \a link from now on; nothing if it is null. No thread uses the previous link
    /// after this.
    void setLink(ChannelLink *link);
    /// Until the result is destroyed, no thread sends.
    std::unique_lock<std::mutex> pause();

    /// Queues the request with \a head, which has begun in the table, for sendUnsent().
    void submit(const Wire::WireHead &head, const std::string &body);
    /// Sends what can be sent now. The rest is sent when the stream has been drained, or after the
    /// next connection was established.
    void sendUnsent();
    void sendPosted();

private:
    void sendOver(ConnectedSocket &socket);
    void sendOnLoop();

    EventLoop &m_loop;
    const ChannelOptions &m_options;
    ExchangeTable &m_exchanges;
    const std::function<void()> m_postSending;
    std::atomic<bool> m_isPosted{false};
    std::mutex m_mutex; // held while a thread sends, so that requests keep their order
    ChannelLink *m_link = nullptr; // guarded by m_mutex
    FrameStorage m_storage;
};

} // namespace Tavoro::SSProxy::Internal
