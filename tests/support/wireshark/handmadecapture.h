#pragma once

#include <tavorowire/frame.h>
#include <tavorowire/pcapng.h>

#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <string>
#include <string_view>

/// A pcapng file with any bytes on any connections, at one event each millisecond.
class HandMadeCapture {
public:
    using Event = Tavoro::SSProxy::Wire::CaptureEvent;

    HandMadeCapture() { add(1, Event::Open, "127.0.0.1"); }

    HandMadeCapture &sent(std::string_view bytes) { return add(1, Event::Sent, bytes); }
    HandMadeCapture &received(std::string_view bytes) { return add(1, Event::Received, bytes); }
    /// Any event of any channel. The first channel is open from the start.
    HandMadeCapture &add(int channel, Event event, std::string_view bytes)
    {
        m_bytes += m_encoder.encode(channel, m_microseconds, event, bytes);
        m_microseconds += 1000;
        return *this;
    }

    /// Writes the file and returns its path.
    QString save(const std::string &bytes)
    {
        const QString path = m_folder.filePath(QStringLiteral("capture.pcapng"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)
            || file.write(bytes.data(), static_cast<qint64>(bytes.size())) < 0)
            qFatal("%s", qUtf8Printable(file.errorString()));
        return path;
    }
    QString save() { return save(bytes()); }
    std::string bytes() const { return m_encoder.heading() + m_bytes; }

private:
    QTemporaryDir m_folder;
    Tavoro::SSProxy::Wire::PcapngEncoder m_encoder{0};
    qint64 m_microseconds = 0;
    std::string m_bytes;
};

/// The bytes of a frame with a head in its final form.
inline std::string frameOf(const Tavoro::SSProxy::Wire::WireHead &head, std::string_view body = {})
{
    return Tavoro::SSProxy::Wire::encodeFrame(head, body).toStdString();
}

/// The head of a request that is not split.
inline Tavoro::SSProxy::Wire::WireHead requestHead(quint8 type, quint16 code, quint32 number)
{
    Tavoro::SSProxy::Wire::WireHead head;
    head.kind = static_cast<quint8>(Tavoro::SSProxy::Wire::FrameKind::Request);
    head.type = type;
    head.BC = static_cast<quint8>(code >> 8);
    head.FC = static_cast<quint8>(code & 0xFF);
    head.number = number;
    head.lables = static_cast<quint8>(number);
    head.stream = static_cast<quint16>(number);
    return head;
}

/// A response that repeats the head of its request, with packet \a index of \a count.
inline std::string responseTo(const Tavoro::SSProxy::Wire::WireHead &request,
                              std::string_view body = {}, quint32 index = 0, quint32 count = 1)
{
    Tavoro::SSProxy::Wire::WireHead head = Tavoro::SSProxy::Wire::responseHead(request);
    head.sendCount = index;
    head.totalCount = count;
    return frameOf(head, body);
}
