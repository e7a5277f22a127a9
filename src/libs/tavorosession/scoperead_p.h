#pragma once

#include <tavorooperations/scope.h>

#include <QString>

#include <functional>
#include <memory>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::SessionInternal {

/// Applies what was read to the device. Returns false, with sentences in the text, if the records
/// have faults. On the device's thread.
using ScopeUpdate = std::function<bool(BizModel::Device &device, QString &error)>;

/// Reads a scope that one read returns, see Operations::readsFor(). Blocks until the device has
/// answered. Returns an empty function if the read fails.
ScopeUpdate readScope(const std::weak_ptr<BizModel::Device> &device,
                      const Operations::Scope &scope);

} // namespace Tavoro::SessionInternal
