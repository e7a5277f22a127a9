#pragma once

#include <tavorossproxy/devicecommand.h>

#include <QString>

#include <memory>
#include <string>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control::Internal {

/// Sends \a request with \a body and waits for the answer. Splits a body that is longer than the
/// channel's packet size.
///
/// \a body may be the body of \a request itself. Otherwise it is copied packet by packet, so that
/// memory never holds the content of a file twice.
bool sendWrite(const std::weak_ptr<BizModel::Device> &device,
               const std::shared_ptr<SSProxy::DeviceRequestCommand> &request,
               const std::string &body, QString &error, bool showSuccess);

} // namespace Tavoro::Control::Internal
