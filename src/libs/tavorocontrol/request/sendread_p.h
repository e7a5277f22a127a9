#pragma once

#include <tavorossproxy/devicecommand.h>

#include <QString>

#include <memory>
#include <string>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control::Internal {

/// Sends \a request, waits for the answer, and joins its packets in \a result.
bool sendRead(const std::weak_ptr<BizModel::Device> &device,
              const std::shared_ptr<SSProxy::DeviceRequestCommand> &request, std::string &result,
              QString &error);

} // namespace Tavoro::Control::Internal
