#pragma once

#include <QVariant>

#include <optional>

namespace Tavoro::Models {

/// Returns \a current with what \a value replaces: all of it, or, if it is a map, the fields that
/// \a value contains. Returns nothing if \a value has other fields or cannot be converted.
std::optional<QVariant> mergedValue(const QVariant &current, const QVariant &value);

} // namespace Tavoro::Models
