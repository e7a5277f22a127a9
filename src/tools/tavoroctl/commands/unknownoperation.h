#pragma once

#include <QString>

namespace Tavoro::Ctl {

/// The fault of a name that no operation has, with the nearest one.
QString faultOfOperation(const QString &name);

} // namespace Tavoro::Ctl
