#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>

#include <QByteArray>

#include <string>
#include <string_view>

namespace Tavoro::SSProxy::Wire {

/// The datagrams by which clients find devices on the local network.
///
/// \code
/// request  "reqKELVORIN:"            what follows is for later versions and not looked at
/// answer   "rspKELVORIN:" identity   the identity as over TCP, without the models of the slots
/// \endcode

/// The request that a client sends.
QByteArray encodeDiscoveryRequest();
bool isDiscoveryRequest(std::string_view datagram);

/// The answer of the device \a info, to be sent to where the request came from.
QByteArray encodeDiscoveryAnswer(ProtoModel::DeviceBaseInfo info);
/// Reads an answer. False with the reason in \a error, and \a info is left alone.
bool decodeDiscoveryAnswer(std::string_view datagram, ProtoModel::DeviceBaseInfo &info,
                           std::string &error);

} // namespace Tavoro::SSProxy::Wire
