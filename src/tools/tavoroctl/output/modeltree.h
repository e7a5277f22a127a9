#pragma once

#include <QString>

#include <string>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Ctl {

/// What the model knows of a device, as a tree for people: what belongs to what by the model's own
/// relations.
QString modelTree(const BizModel::Device &device);

/// The same as one object: "device", "interfaces", "screens", "layers" and "files".
std::string modelJson(const BizModel::Device &device);

} // namespace Tavoro::Ctl
