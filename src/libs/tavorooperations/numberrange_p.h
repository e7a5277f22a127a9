#pragma once

#include <QString>

#include <optional>

namespace Tavoro::Operations::Internal {

/// The least and the greatest value of a number.
struct NumberLimits {
    qint64 least = 0;
    qint64 most = 0;
};

/// The limits of the number at \a path, such as "[0].window.x", in a record of the type \a type,
/// see Argument::type. Nothing if there is no number.
std::optional<NumberLimits> limitsAt(const QString &type, const QString &path);

} // namespace Tavoro::Operations::Internal
