#pragma once

#include "knownrecords.h"

#include <QJsonArray>
#include <QJsonValue>
#include <QString>

#include <optional>

namespace Tavoro::Panel {

/// A call of a write by its name in the table of operations.
struct Write {
    QString operation; ///< "Layer.writeWindow".
    QJsonValue argument;
};

/// A device whose change is to be undone, and what is known of it.
struct UndoContext {
    const BizModel::Device &device;
    const KnownRecords &known;
};

/// One operation whose effect can be undone.
struct UndoOperation {
    const char *operation; ///< The name in the table of operations.
    const char *text; ///< What the operator did, to be translated.
    RecordKind kind; ///< What the argument describes: one object, or a list of them.
    /// Returns the write that restores what the records change; nothing if that is not known.
    std::optional<Write> (*reverse)(const UndoOperation &row, const UndoContext &context,
                                    const QJsonArray &written);
    /// The key whose whole value the argument is; empty if the argument consists of records.
    const char *key = "";

    /// The text, translated.
    QString stepText() const;
    /// The records in the argument of a write. Each has the keys of its object's identity.
    QJsonArray recordsIn(const QJsonValue &argument) const;
    /// The write that undoes \a write; nothing if it is not known.
    std::optional<Write> reversed(const UndoContext &context, const Write &write) const;
};

/// The row of an operation; null if it cannot be undone.
const UndoOperation *findUndoOperation(const QString &operation);

} // namespace Tavoro::Panel
