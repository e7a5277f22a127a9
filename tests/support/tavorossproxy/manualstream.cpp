#include "manualstream.h"

#include <tavorowire/frame.h>

using namespace Tavoro::SSProxy;

void ManualPeer::accept(const std::string &address)
{
    m_events->streamOpened(address);
}

void ManualPeer::send(std::string_view bytes)
{
    m_events->streamReceived(bytes);
    m_events->streamBatchEnded();
}

void ManualPeer::send(const Wire::WireHead &head, std::string_view body)
{
    const QByteArray frame = Wire::encodeFrame(head, body);
    send(std::string_view(frame.constData(), static_cast<std::size_t>(frame.size())));
}

void ManualPeer::fail(const QString &reason)
{
    isOpen = false;
    m_events->streamClosed(reason);
}

void ManualPeer::setReading(bool isReading)
{
    m_isReading = isReading;
    if (!isReading)
        return;
    takeUnsent();
    m_events->streamDrained();
}

void ManualPeer::takePart(int count)
{
    std::string_view bytes(m_unsent.constData(), static_cast<std::size_t>(count));
    while (auto frame = m_parser.next(bytes))
        frames.push_back(std::move(*frame));
    m_unsent.remove(0, count);
}

void ManualPeer::takeUnsent()
{
    takePart(int(m_unsent.size()));
}

void ManualStream::open(Events &events)
{
    ++m_peer.opened;
    m_peer.isOpen = true;
    m_peer.m_events = &events;
    m_peer.m_unsent.clear();
    m_peer.m_parser.reset();
}

void ManualStream::close()
{
    m_peer.isOpen = false;
}

bool ManualStream::setPeer(const QString &host, quint16 port)
{
    const QString before = m_peer.place;
    m_peer.place = QStringLiteral("%1:%2").arg(host).arg(port);
    return m_peer.place != before;
}

void ManualStream::write(const QByteArray &bytes)
{
    m_peer.m_unsent += bytes;
    if (m_peer.m_isReading)
        m_peer.takeUnsent();
}
