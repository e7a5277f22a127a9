#pragma once

#include <tavorowire/pcapng.h>

#include <QFile>
#include <QHostAddress>
#include <QString>
#include <QTemporaryDir>
#include <QtEndian>

#include <string>

/// One end of a datagram.
struct UdpEnd {
    const char *address = nullptr; ///< IPv4
    quint16 port = 0;
};

/// A pcapng file with any datagrams, one each millisecond. Their checksums are 0, which UDP allows
/// and readers of captures do not check.
class UdpCapture {
public:
    UdpCapture &add(const UdpEnd &from, const UdpEnd &to, const std::string &bytes)
    {
        std::string packet("\x45\x00", 2);
        appendBig(packet, static_cast<quint16>(28 + bytes.size()));
        packet.append(std::string("\0\0\x40\0\x40\x11\0\0", 8)); // UDP
        appendBig(packet, QHostAddress(QLatin1String(from.address)).toIPv4Address());
        appendBig(packet, QHostAddress(QLatin1String(to.address)).toIPv4Address());
        appendBig(packet, from.port);
        appendBig(packet, to.port);
        appendBig(packet, static_cast<quint16>(8 + bytes.size()));
        appendBig(packet, quint16(0));
        addBlock(packet + bytes);
        return *this;
    }

    /// Writes the file and returns its path.
    QString save()
    {
        const QString path = m_folder.filePath(QStringLiteral("datagrams.pcapng"));
        const std::string bytes = Tavoro::SSProxy::Wire::PcapngEncoder(0).heading() + m_blocks;
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)
            || file.write(bytes.data(), static_cast<qint64>(bytes.size())) < 0)
            qFatal("%s", qUtf8Printable(file.errorString()));
        return path;
    }

private:
    template <class Number>
    static void appendBig(std::string &bytes, Number number)
    {
        const Number big = qToBigEndian(number);
        bytes.append(reinterpret_cast<const char *>(&big), sizeof big);
    }
    void appendLittle(quint32 number)
    {
        const quint32 little = qToLittleEndian(number);
        m_blocks.append(reinterpret_cast<const char *>(&little), sizeof little);
    }
    void addBlock(const std::string &packet)
    {
        const std::size_t filled = (packet.size() + 3) / 4 * 4;
        const auto length = static_cast<quint32>(32 + filled);
        const auto size = static_cast<quint32>(packet.size());
        for (const quint32 number : {6u, length, 0u, 0u, m_microseconds, size, size})
            appendLittle(number);
        m_blocks.append(packet).append(filled - packet.size(), '\0');
        appendLittle(length);
        m_microseconds += 1000;
    }

    QTemporaryDir m_folder;
    quint32 m_microseconds = 0;
    std::string m_blocks;
};
