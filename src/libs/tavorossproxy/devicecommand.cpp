#include <tavorossproxy/devicecommand.h>

namespace Tavoro::SSProxy {

IDeviceCommand::~IDeviceCommand() = default;

DeviceRequestCommand::DeviceRequestCommand() = default;
DeviceRequestCommand::~DeviceRequestCommand() = default;

const std::string &DeviceRequestCommand::buffer() const
{
    return m_buffer;
}

std::string &DeviceRequestCommand::buffer()
{
    return m_buffer;
}

void DeviceRequestCommand::setBuffer(const std::string &buffer)
{
    m_buffer = buffer;
}

const std::size_t &DeviceRequestCommand::bufferLen() const
{
    return m_bufferLen;
}

void DeviceRequestCommand::setBufferLen(const std::size_t &length)
{
    m_bufferLen = length;
}

DeviceResponseCommand::DeviceResponseCommand() = default;
DeviceResponseCommand::~DeviceResponseCommand() = default;

} // namespace Tavoro::SSProxy
