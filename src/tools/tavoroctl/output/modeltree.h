#pragma once

#include <QString>

#include <string>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Ctl {

/// The model of a device as a tree, by the relations of the model.
QString modelTree(const BizModel::Device &device);

/// The same as one object: "device", "interfaces", "screens", "layers" and "files".
std::string modelJson(const BizModel::Device &device);

} // namespace Tavoro::Ctl
