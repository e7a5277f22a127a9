#pragma once

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

/// What came of a call.
struct CallResult {
    bool ok = true;
    QString error; ///< Why it failed; may be empty, since some operations fail without a word.
    std::string answer; ///< What a read brought: JSON.
};

/// A call whose arguments have been read and found good, but which has not been made.
struct PreparedCall {
    QString fault; ///< What is wrong with the arguments, with its place; empty if nothing is.
    std::function<CallResult(std::weak_ptr<BizModel::Device> device)> run;
};

/// What an operation takes and gives, for people.
struct OperationForm {
    QStringList arguments; ///< What stands for each argument of a call: "FILTER", "TEXT", a record.
    QString answer; ///< The record that is printed, empty for writes.
    std::string sample; ///< The record that is taken, every key at its default; empty if none is.
};

/// How an operation is called and told; the same for all that look alike.
struct OperationCalls {
    PreparedCall (*prepare)(const QStringList &arguments);
    OperationForm (*form)();
};

/// One operation of one control class.
struct Operation {
    const char *name; ///< Class and member: "Device.writeSwap".
    SSProxy::Command command; ///< The code that it sends.
    OperationCalls calls;
};

/// All operations, those of one class together.
struct OperationRange {
    const Operation *first;
    const Operation *last;
    const Operation *begin() const { return first; }
    const Operation *end() const { return last; }
};
OperationRange allOperations();

/// The operation of this name, null when there is none.
const Operation *findOperation(const QString &name);

} // namespace Tavoro::Ctl
