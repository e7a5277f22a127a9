#pragma once

#include <tavorocontrol/export.h>

#include <memory>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control {

/// Sets whether the lines that the library logs about \a device contain the bodies of requests,
/// answers and reports, which may be long. They do by default. Any thread; does not block.
TAVOROCONTROL_EXPORT void setBodiesLogged(const std::shared_ptr<BizModel::Device> &device,
                                          bool areLogged);
/// Whether the lines about \a device contain bodies. Any thread; does not block.
TAVOROCONTROL_EXPORT bool areBodiesLogged(const BizModel::Device &device);

} // namespace Tavoro::Control
