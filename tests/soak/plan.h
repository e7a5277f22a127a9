#pragma once

#include <QStringList>

#include <optional>

/// The extent of a soak test.
struct Plan {
    int devices;
    int rounds; ///< At least 2: each round is compared with the first.
    int seconds; ///< Duration of a round.
    unsigned seed;
};

/// Parses the command line \a arguments; "--help" prints the options and ends the process.
/// Returns nothing, with the reason in \a fault, if an argument is invalid.
std::optional<Plan> readPlan(const QStringList &arguments, QString &fault);
