#pragma once

#include <tavorooperations/export.h>
#include <tavorooperations/operation.h>

#include <QJsonObject>

#include <string>

namespace Tavoro::Operations {

/// Describes an operation for programs in other languages. Any thread; does not block.
///
/// The object has these keys:
/// - \c name, \c code ("0x130E"), \c type ("read" or "write") and \c summary.
/// - \c arguments: a list of objects with \c name and \c schema.
/// - \c answer: the JSON Schema of what a read returns; missing for other operations.
/// - \c changes: what a write changes, a list of objects with \c kind ("screens"), \c keys (see
///   Change::keys) and \c read (the operation that reads it).
/// - \c whyNothingChanges: the reason if a write changes nothing that a read returns.
/// - \c $defs: the records to which the schemas refer, as in recordsDocument().
TAVOROOPERATIONS_EXPORT QJsonObject describe(const Operation &operation);

/// A JSON Schema with a definition for each record that has a codec: the file
/// docs/schema/records.json. Any thread; does not block.
TAVOROOPERATIONS_EXPORT std::string recordsDocument();

} // namespace Tavoro::Operations
