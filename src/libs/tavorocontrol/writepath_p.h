#pragma once

#include <tavorossproxy/devicecommand.h>

#include <QString>

#include <memory>
#include <string>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control::Internal {

/// Sends \a request with \a body, in packets where the channel takes no more at a time, and waits.
///
/// \a body may be the request's own. If it is not, it is copied packet by packet: a content as long
/// as a file never stands in memory twice.
bool sendWrite(const std::weak_ptr<BizModel::Device> &device,
               const std::shared_ptr<SSProxy::DeviceRequestCommand> &request,
               const std::string &body, QString &error, bool showSuccess);

} // namespace Tavoro::Control::Internal
