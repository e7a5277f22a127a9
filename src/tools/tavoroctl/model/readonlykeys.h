#pragma once

#include <tavorooperations/scope.h>

#include <QString>

namespace Tavoro::Ctl {

/// Whether no write sets the value at \a path, such as "subcards[0].online", in the record of an
/// object of \a kind: the device measures it, or it belongs to its hardware.
bool isReadOnly(Operations::ScopeKind kind, const QString &path);

} // namespace Tavoro::Ctl
