#pragma once

#include <string>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Python {

/// The records of a device in the model as members of a JSON object: device, interfaces, screens,
/// layers, files. The contents of files are left out. Any thread.
std::string modelMembers(const BizModel::Device &device);

} // namespace Tavoro::Python
