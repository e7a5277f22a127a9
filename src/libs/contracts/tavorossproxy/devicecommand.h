#pragma once

#include <tavorossproxy/export.h>
#include <tavorossproxy/packethead.h>

#include <cstddef>
#include <string>

namespace Tavoro::SSProxy {

/// A head and a body: what travels in one frame. Values without a lock; one thread at a time.
class TAVOROSSPROXY_EXPORT IDeviceCommand {
public:
    virtual ~IDeviceCommand();

    PacketHead &head() { return m_head; }
    const PacketHead &head() const { return m_head; }

    /// The body, JSON in UTF-8 or arbitrary bytes. Its size is the length that travels.
    std::string &body() { return m_body; }
    const std::string &body() const { return m_body; }

protected:
    IDeviceCommand() = default;

private:
    PacketHead m_head{};
    std::string m_body;
};

/// A command on its way to the device. A fresh one has a head of zeros and an empty body.
class TAVOROSSPROXY_EXPORT DeviceRequestCommand : public IDeviceCommand {
public:
    /// Timeout in milliseconds of a request on which nobody called setTimeout(). The further
    /// packets of a read and all packets of a split write run under it.
    static constexpr int defaultTimeout = 10000;

    DeviceRequestCommand();
    ~DeviceRequestCommand() override;

    /// The encoded frame, for the channel's use only.
    virtual const std::string &buffer() const;
    virtual std::string &buffer();
    virtual void setBuffer(const std::string &buffer);
    virtual const std::size_t &bufferLen() const;
    virtual void setBufferLen(const std::size_t &length);

    /// How long the channel waits for the response, in milliseconds.
    void setTimeout(int milliseconds) { m_timeout = milliseconds; }
    int timeout() const { return m_timeout; }

private:
    std::string m_buffer;
    std::size_t m_bufferLen = 0;
    int m_timeout = defaultTimeout;
};

/// What came back. Made by channels.
class TAVOROSSPROXY_EXPORT DeviceResponseCommand : public IDeviceCommand {
public:
    DeviceResponseCommand();
    ~DeviceResponseCommand() override;

    /// 0 for success; 1 to 255 from the device, 257 to 264 from the local channel, 357 to 365 from
    /// the protocol decoder.
    quint16 status = 0;
};

} // namespace Tavoro::SSProxy
