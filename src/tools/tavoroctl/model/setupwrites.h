#pragma once

#include "setup.h"

#include <tavorooperations/operation.h>

#include <QString>
#include <QStringList>

#include <vector>

namespace Tavoro::Ctl {

/// A write that changes a part of a setup.
struct SetupWrite {
    QString operation;
    QString argument;
    Operations::PreparedCall call;

    /// As a line of a batch.
    QString line() const { return operation + QLatin1Char(' ') + argument; }
};

/// The writes for \a changes, in an order that a device accepts: what is removed first, then what
/// others refer to. \a fault says which of them is not valid.
std::vector<SetupWrite> writesFor(const std::vector<SetupChange> &changes, QString &fault);

} // namespace Tavoro::Ctl
