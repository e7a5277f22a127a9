#pragma once

#include <tavorooperations/operation.h>

#include <QString>
#include <QStringList>

#include <typeinfo>
#include <vector>

namespace Tavoro::Operations::Internal {

/// What the parameters of an operation, and the records among them, determine.
struct OperationForm {
    std::vector<Argument> arguments; ///< Without their names.
    QString answer;
    std::vector<Change> changes;
};

/// What the compiler derives from a member function.
struct MemberCode {
    Direction direction;
    bool (*isMember)(const std::type_info &type, const void *member);
    PreparedCall (*prepare)(const QStringList &arguments, MissingKeys missing);
    OperationForm (*form)();
    /// \a arguments points to a tuple of references to them.
    std::vector<Scope> (*changedBy)(const void *arguments);
    const char *whyNothingChanges;
};

/// One operation of one control class.
struct OperationRow {
    const char *name; ///< Class and member: "Device.writeSwap".
    MemberCode code;
    SSProxy::Command command;
    const char *arguments; ///< Their names, separated by blanks.
};

/// The words of a list in the table.
QStringList wordsOf(const char *list);

/// What the operation with this name does, in one sentence; empty if there is no such operation.
const char *summaryOf(const char *name);

} // namespace Tavoro::Operations::Internal
