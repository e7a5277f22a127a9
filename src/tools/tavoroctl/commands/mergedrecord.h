#pragma once

#include <tavorooperations/operation.h>

#include <QString>

#include <memory>

namespace Tavoro::Ctl {

/// The result of a merge: an argument, or why there is none.
struct MergedRecord {
    QString argument; ///< JSON.
    QString fault; ///< The operation or its argument does not allow a merge.
    QString error; ///< The read failed.
};

/// Completes \a typed, the argument of the write \a operation, with the keys that it lacks: with
/// the present values that \a device returns for the objects that the write changes.
MergedRecord mergeRecord(const std::shared_ptr<BizModel::Device> &device,
                         const Operations::Operation &operation, const QString &typed);

} // namespace Tavoro::Ctl
