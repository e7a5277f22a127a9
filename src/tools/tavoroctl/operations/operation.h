#pragma once

#include "recordargument.h"

#include <tavorossproxy/commandcodes.h>

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <string>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Ctl {

/// The result of a call.
struct CallResult {
    bool ok = true;
    QString error; ///< Why the call failed. May be empty: some operations fail without a text.
    std::string answer; ///< The answer of a read as JSON; empty for a write.
};

/// A call whose arguments are valid, or the reason why they are not. Nothing has been sent yet.
struct PreparedCall {
    QString fault; ///< What is wrong with the arguments, and where; empty if they are valid.
    std::function<CallResult(std::weak_ptr<BizModel::Device> device)> run;
};

/// The arguments and the answer of an operation, for display.
struct OperationForm {
    QStringList arguments; ///< One word per argument: "FILTER", "NUMBER", "TEXT" or a record.
    QString answer; ///< The record that a read prints; empty for a write.
    std::string
        sample; ///< The record that the operation takes, every key at its default; or empty.
};

/// How an operation is called and described. Operations with the same parameters share the code.
struct OperationCalls {
    PreparedCall (*prepare)(const QStringList &arguments, MissingKeys missing);
    OperationForm (*form)();
};

/// One operation of one control class.
struct Operation {
    const char *name; ///< Class and member: "Device.writeSwap".
    SSProxy::Command command; ///< The code that the request carries.
    OperationCalls calls;
};

/// All operations, grouped by class.
struct OperationRange {
    const Operation *first;
    const Operation *last;
    const Operation *begin() const { return first; }
    const Operation *end() const { return last; }
};
OperationRange allOperations();

/// The operation with this name; null if there is none.
const Operation *findOperation(const QString &name);

} // namespace Tavoro::Ctl
