#include "requestsender_p.h"

#include "channellink_p.h"
#include "exchangetable_p.h"
#include <tavorossproxy/io/connectedsocket_p.h>

#include <tavorowire/checksums.h>
#include <tavorowire/frame.h>

#include <utility>

namespace Tavoro::SSProxy::Internal {

RequestSender::RequestSender(EventLoop &loop, const ChannelOptions &options,
                             ExchangeTable &exchanges, std::function<void()> postSending)
    : m_loop(loop),
      m_options(options),
      m_exchanges(exchanges),
      m_postSending(std::move(postSending))
{ }

void RequestSender::setLink(ChannelLink *link)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_link = link;
}

std::unique_lock<std::mutex> RequestSender::pause()
{
    return std::unique_lock<std::mutex>(m_mutex);
}

void RequestSender::submit(const Wire::WireHead &head, const std::string &body)
{
    QByteArray frame = m_storage.take();
    Wire::encodeFrame(head, body, Wire::crc32(body), frame);
    m_exchanges.submit(head.lables, std::move(frame));
}

void RequestSender::sendUnsent()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (const auto socket = m_link ? m_link->socket() : nullptr)
        sendOver(*socket);
    else if (m_loop.isCurrentThread())
        sendOnLoop();
    else if (!m_isPosted.exchange(true))
        m_postSending();
}

void RequestSender::sendPosted()
{
    m_isPosted = false;
    sendUnsent();
}

/// A content is sent only if nothing else waits, so that a later request for records waits for one
/// packet at most.
void RequestSender::sendOver(ConnectedSocket &socket)
{
    while (socket.unsentBytes() < m_options.maxUnsentBytes) {
        auto frame = m_exchanges.takeUnsent(socket.unsentBytes() == 0);
        if (!frame)
            return;
        m_link->send(*frame, socket);
        m_storage.recycle(std::move(*frame));
    }
}

void RequestSender::sendOnLoop()
{
    while (m_link && m_link->canSend()) {
        auto frame = m_exchanges.takeUnsent();
        if (!frame)
            return;
        m_link->send(*frame);
        m_storage.recycle(std::move(*frame));
    }
}

} // namespace Tavoro::SSProxy::Internal
