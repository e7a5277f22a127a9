#pragma once

#include <QStringList>

#include <optional>

/// How much a soak does.
struct Plan {
    int devices;
    int rounds; ///< At least 2: each is compared with the first.
    int seconds; ///< Of a round.
    unsigned seed;
};

/// What the command line \a arguments ask for; "--help" shows its options and ends the process.
/// Nothing with the reason in \a fault when it cannot be done.
std::optional<Plan> readPlan(const QStringList &arguments, QString &fault);
