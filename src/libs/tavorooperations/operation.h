#pragma once

#include <tavorooperations/export.h>
#include <tavorooperations/scope.h>

#include <tavorossproxy/commandcodes.h>

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <typeinfo>
#include <vector>

namespace Tavoro::BizModel {
class Device;
}

/// The operations of the control classes as a table: each can be found by its name or by its
/// member function, described, and called with JSON.
///
/// The table has every member of Control::Device, Interface, Screen, Layer, Preset, File and
/// Auxiliary that exchanges JSON with the device. It has not: the members that transfer the content
/// of a file, that apply a report, or that request control.
///
/// All functions may be called on any thread. Only PreparedCall::run and call() block.
namespace Tavoro::Operations {

namespace Internal {
struct OperationRow;
}

/// Whether an operation asks the device for something or changes it.
enum class Direction : quint8 {
    Read, ///< Returns a record, or applies it to the model.
    Write, ///< Changes the device. The device accepts it only from the client that holds control.
};

/// How keys that are missing in a record are handled.
///
/// The codec leaves their fields at the defaults, so a device would receive values that the caller
/// did not give.
enum class MissingKeys : quint8 {
    Refused, ///< The call is not made.
    SentAsDefaults, ///< The defaults are sent, see Argument::sample.
};

/// An argument of an operation.
struct Argument {
    /// The name of the parameter in the control class: "screens".
    QString name;
    /// "FILTER" for a filter of a read (-1 to 255), "NUMBER", "TEXT", or the name of a record as in
    /// recordsDocument(): "Device::s_swap", or "[Screen::s_FTB]" for a list.
    QString type;
    qint64 minimum = 0; ///< The least value of a number.
    qint64 maximum = 0; ///< The greatest value of a number.
    /// A record as JSON, every key at its default; a list has one element. Empty for other types.
    std::string sample;
};

/// What a write changes, as far as the write itself determines it.
struct Change {
    /// The kind of the objects.
    ScopeKind kind = ScopeKind::Device;
    /// The keys of the argument that identify the objects, in the order of Scope::identity:
    /// "screenType", "screenId". Each is a path in a record of the argument, or the name of an
    /// argument. Empty if the write changes every object of this kind.
    QStringList keys;
};

/// The result of a call.
struct CallResult {
    /// Whether the operation succeeded.
    bool ok = true;
    /// Why it failed, as a sentence.
    QString error;
    /// The answer of a read as JSON; empty for a write.
    std::string answer;
};

/// A call whose arguments are valid, or the reason why they are not. Nothing has been sent yet.
struct PreparedCall {
    /// What is wrong with the arguments, and where: "Device.writeSwap, argument 1: line 1, column
    /// 9: 300 would be sent as 44; the range is 0 to 255". Empty if they are valid.
    QString fault;
    /// Whether keys are missing and nothing else is wrong: the call would be valid with
    /// MissingKeys::SentAsDefaults.
    bool lacksKeys = false;
    /// What the call changes on the device.
    std::vector<Scope> changes;
    /// Makes the call on the calling thread, and blocks as the operation does. May be called
    /// several times. Empty if the arguments are not valid.
    std::function<CallResult(const std::weak_ptr<BizModel::Device> &device)> run;
};

/// One operation of a control class. A value that refers to the table.
class TAVOROOPERATIONS_EXPORT Operation {
public:
    /// \cond
    explicit Operation(const Internal::OperationRow &row) : m_row(&row) { }
    /// \endcond

    /// Class and member: "Device.writeSwap".
    QString name() const;
    /// What it does on the device, in one sentence.
    QString summary() const;
    /// The code that the request carries.
    SSProxy::Command command() const;
    /// Whether it reads or writes.
    Direction direction() const;
    /// The arguments of a call, without the answer and the error text.
    std::vector<Argument> arguments() const;
    /// The type of the answer of a read, in the form of Argument::type; "JSON" for the text as the
    /// device sent it. Empty for a write, and for a read that only changes the model.
    QString answer() const;

    /// What a write changes in the part of a device that the model keeps. Empty for a read, and for
    /// a write that has a whyNothingChanges().
    std::vector<Change> changes() const;
    /// Why the reads of a device return the same before and after this write; empty for all other
    /// operations.
    QString whyNothingChanges() const;

    /// Checks the arguments of a call. Each of \a arguments is JSON: a number, a record or a list.
    ///
    /// A record is sent as it is, or not at all: a key that is unknown or missing, or a value that
    /// the codec would change, is a fault.
    PreparedCall prepare(const QStringList &arguments,
                         MissingKeys missing = MissingKeys::Refused) const;

    /// \cond
    std::vector<Scope> changedBy(const void *arguments) const;
    /// \endcond

    /// Whether both are the same operation.
    friend bool operator==(const Operation &one, const Operation &other)
    {
        return one.m_row == other.m_row;
    }
    /// Whether they are different operations.
    friend bool operator!=(const Operation &one, const Operation &other)
    {
        return one.m_row != other.m_row;
    }

private:
    const Internal::OperationRow *m_row;
};

/// All operations, by class, in the order Device, Interface, Screen, Layer, Preset, File,
/// Auxiliary.
TAVOROOPERATIONS_EXPORT std::vector<Operation> all();

/// The operation with this name, such as "Device.writeSwap"; nothing if there is none.
TAVOROOPERATIONS_EXPORT std::optional<Operation> find(const QString &name);

/// \cond
TAVOROOPERATIONS_EXPORT std::optional<Operation> findMember(const std::type_info &type,
                                                            const void *member);
/// \endcond

/// The operation that is this member of a control class; nothing if it is not in the table:
/// \code
/// find(&Control::Screen::writeTake)->name(); // "Screen.writeTake"
/// \endcode
template <class Class, class... Parameters>
std::optional<Operation> find(bool (Class::*member)(Parameters...))
{
    return findMember(typeid(member), &member);
}

/// What the write \a member changes when it is called with \a arguments: all its arguments but the
/// error text. Empty if it changes nothing that a read returns, for reads, and for members that are
/// not in the table.
/// \code
/// changedBy(&Control::Screen::writeTake, effects); // the layers of the screens in the list
/// \endcode
template <class Class, class... Parameters, class... Arguments>
std::vector<Scope> changedBy(bool (Class::*member)(Parameters...), const Arguments &...arguments)
{
    static_assert(
        std::is_same_v<std::tuple<std::decay_t<Parameters>...>, std::tuple<Arguments..., QString>>,
        "the arguments have the types of the member's parameters, without its error");
    const std::optional<Operation> operation = find(member);
    const std::tuple<const Arguments &...> references(arguments...);
    return operation ? operation->changedBy(&references) : std::vector<Scope>();
}

/// Finds and prepares an operation, and calls it on the calling thread. See Operation::prepare()
/// for \a arguments. Fails without sending anything if there is no such operation, or if the
/// arguments are not valid.
TAVOROOPERATIONS_EXPORT CallResult call(const std::weak_ptr<BizModel::Device> &device,
                                        const QString &name, const QStringList &arguments = {},
                                        MissingKeys missing = MissingKeys::Refused);

} // namespace Tavoro::Operations
