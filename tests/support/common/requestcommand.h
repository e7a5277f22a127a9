#pragma once

#include <tavorossproxy/devicecommand.h>

#include <memory>
#include <string>

/// A request of \a type and \a code; all other fields of its head are 0. \a timeout is in
/// milliseconds.
inline std::shared_ptr<Tavoro::SSProxy::DeviceRequestCommand>
requestCommand(quint8 type, quint16 code, const std::string &body = {},
               int timeout = Tavoro::SSProxy::DeviceRequestCommand::defaultTimeout)
{
    auto request = std::make_shared<Tavoro::SSProxy::DeviceRequestCommand>();
    request->head().type = type;
    request->head().BC = static_cast<quint8>(code >> 8);
    request->head().FC = static_cast<quint8>(code & 0xFF);
    request->body() = body;
    request->setTimeout(timeout);
    return request;
}
