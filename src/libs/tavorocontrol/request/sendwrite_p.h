#pragma once

#include <tavorossproxy/devicecommand.h>

#include <QString>

#include <memory>
#include <string>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control::Internal {

/// Sends \a request with \a body and waits. Splits a body that is longer than the channel's packet.
///
/// \a body may be the body of \a request itself. If it is not, it is copied packet by packet: the
/// content of a file never stands in memory twice.
bool sendWrite(const std::weak_ptr<BizModel::Device> &device,
               const std::shared_ptr<SSProxy::DeviceRequestCommand> &request,
               const std::string &body, QString &error, bool showSuccess);

} // namespace Tavoro::Control::Internal
