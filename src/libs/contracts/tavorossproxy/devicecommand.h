#pragma once

#include <tavorossproxy/export.h>
#include <tavorossproxy/packethead.h>

#include <cstddef>
#include <string>

namespace Tavoro::SSProxy {

/// A head and a body: the content of one frame. One thread at a time may use an object.
class TAVOROSSPROXY_EXPORT IDeviceCommand {
public:
    virtual ~IDeviceCommand();

    /// The head: kind of exchange, command code, filters and packet counts.
    PacketHead &head() { return m_head; }
    /// \overload
    const PacketHead &head() const { return m_head; }

    /// The body, JSON in UTF-8 or arbitrary bytes. Its size is the length that is sent.
    std::string &body() { return m_body; }
    /// \overload
    const std::string &body() const { return m_body; }

protected:
    IDeviceCommand() = default;

private:
    PacketHead m_head{};
    std::string m_body;
};

/// A request to the device. A new request has a head of zeros and an empty body.
class TAVOROSSPROXY_EXPORT DeviceRequestCommand : public IDeviceCommand {
public:
    /// Timeout of a request for which setTimeout() was not called, in milliseconds. It applies to
    /// the further packets of a read and to all packets of a split write.
    static constexpr int defaultTimeout = 10000;

    DeviceRequestCommand();
    ~DeviceRequestCommand() override;

    /// The encoded frame; only for implementations of channels.
    virtual const std::string &buffer() const;
    /// \overload
    virtual std::string &buffer();
    /// Sets buffer().
    virtual void setBuffer(const std::string &buffer);
    /// Length of the encoded frame in bytes; only for implementations of channels.
    virtual const std::size_t &bufferLen() const;
    /// Sets bufferLen().
    virtual void setBufferLen(const std::size_t &length);

    /// Sets how long the channel waits for the response. A timeout of 0 or less ends the request at
    /// once.
    void setTimeout(int milliseconds) { m_timeout = milliseconds; }
    /// How long the channel waits for the response, in milliseconds.
    int timeout() const { return m_timeout; }

private:
    std::string m_buffer;
    std::size_t m_bufferLen = 0;
    int m_timeout = defaultTimeout;
};

/// The response to a request. Channels create it.
class TAVOROSSPROXY_EXPORT DeviceResponseCommand : public IDeviceCommand {
public:
    DeviceResponseCommand();
    ~DeviceResponseCommand() override;

    /// 0 for success; 1 to 255 from the device; 257 to 264 from the local channel and 357 to 365
    /// from the protocol decoder, see ChannelStatus.
    quint16 status = 0;
};

} // namespace Tavoro::SSProxy
