#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>

#include <QByteArray>

#include <string>
#include <string_view>

namespace Tavoro::SSProxy::Wire {

/// The datagrams with which clients find devices on the local network.
///
/// \code
/// request  "reqKELVORIN:"            the device ignores what follows, for later versions
/// answer   "rspKELVORIN:" identity   the identity as over TCP, with an empty slotModels
/// \endcode

/// Returns the request that a client sends.
QByteArray encodeDiscoveryRequest();
/// Returns true if \a datagram is a request of this or a later version.
bool isDiscoveryRequest(std::string_view datagram);

/// Returns the answer of the device \a info. The device sends it to the sender of the request.
QByteArray encodeDiscoveryAnswer(ProtoModel::DeviceBaseInfo info);
/// Reads an answer. Returns false, with the reason in \a error, and leaves \a info unchanged if the
/// datagram is not an answer, the identity is unreadable, or its port is 0.
bool decodeDiscoveryAnswer(std::string_view datagram, ProtoModel::DeviceBaseInfo &info,
                           std::string &error);

} // namespace Tavoro::SSProxy::Wire
