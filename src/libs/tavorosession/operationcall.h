#pragma once

#include <tavorosession/outcome.h>

#include <tavorooperations/operation.h>

#include <QFuture>
#include <QFutureInterface>
#include <QString>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tavoro::BizModel {
class Device;
}

// NOLINTBEGIN(bugprone-forward-declaration-namespace): both namespaces have a class Device.
namespace Tavoro::Control {
class Device;
class File;
} // namespace Tavoro::Control
// NOLINTEND(bugprone-forward-declaration-namespace)

/// \cond
/// The parts of DeviceSession::call() that have to be in a header. Applications do not use them.
namespace Tavoro::SessionInternal {

/// One call of an operation, without its types.
class PendingOperation {
public:
    virtual ~PendingOperation() = default;
    /// Carries the operation out and blocks until it has ended. On the thread of a lane, at most
    /// once.
    virtual bool run(const std::weak_ptr<BizModel::Device> &device, QString &error) = 0;
    /// Delivers the outcome. On the session's thread, once. \a mayRun is true if run() may not have
    /// ended yet; then the arguments still belong to its thread.
    virtual void finish(const Outcome &outcome, bool mayRun) = 0;
    /// True if the application has cancelled the future. Any thread.
    virtual bool isCanceled() const = 0;
    /// True if the operation carries the content of a file, and so belongs to the transfer lane.
    virtual bool isTransfer() const = 0;
    /// The operation in the table; nothing if it is not there.
    virtual std::optional<Operations::Operation> operation() const = 0;
    /// What the call changes on the device. After run() has ended.
    virtual std::vector<Operations::Scope> changes() const = 0;
};

/// The value that a call keeps for a parameter.
template <class Parameter>
using Value = std::remove_cv_t<std::remove_reference_t<Parameter>>;

/// A parameter by which an operation delivers a record.
template <class Parameter>
constexpr bool isOutput =
    std::is_lvalue_reference_v<Parameter> && !std::is_const_v<std::remove_reference_t<Parameter>>;

/// The parts of the type of an operation; empty for other types.
template <class Method>
struct MethodTraits {
    static constexpr bool isOperation = false;
    static constexpr std::size_t count = 0;
};
template <class Class, class... All>
struct MethodTraits<bool (Class::*)(All...)> {
    using Control = Class;
    template <std::size_t index>
    using Parameter = std::tuple_element_t<index, std::tuple<All..., void>>;

    using Last = std::tuple_element_t<sizeof...(All), std::tuple<void, All...>>;
    /// Operations have the error text last. One takes it by value.
    static constexpr bool isOperation =
        std::is_same_v<Last, QString &> || std::is_same_v<Last, QString>;
    /// Parameters without the error text.
    static constexpr std::size_t count = sizeof...(All) - isOperation;
    using Indices = std::make_index_sequence<count>;
};

/// True if an operation delivers a record by its last parameter.
template <class Method>
constexpr bool deliversRecord()
{
    using Traits = MethodTraits<Method>;
    if constexpr (Traits::count > 0)
        return isOutput<typename Traits::template Parameter<Traits::count - 1>>;
    else
        return false;
}

template <class Method, class... Given, std::size_t... index>
constexpr bool areConvertible(std::index_sequence<index...>)
{
    using Traits = MethodTraits<Method>;
    return (std::is_convertible_v<Given, Value<typename Traits::template Parameter<index>>> && ...);
}

/// True if \a Given are the arguments of an operation, except the error text and perhaps the record
/// that it delivers.
template <class Method, class... Given>
constexpr bool areArguments()
{
    constexpr std::size_t wanted = MethodTraits<Method>::count;
    if constexpr (sizeof...(Given) == wanted)
        return areConvertible<Method, Given...>(std::index_sequence_for<Given...>());
    else if constexpr (sizeof...(Given) + 1 == wanted && deliversRecord<Method>())
        return areConvertible<Method, Given...>(std::index_sequence_for<Given...>());
    else
        return false;
}

/// True for a write in the table. Some take their record by reference, as reads do: then the record
/// must not be omitted.
template <class Method>
bool isWrite(Method method)
{
    const auto entry = Operations::find(method);
    return entry && entry->direction() == Operations::Direction::Write;
}

template <class Method, class Indices = typename MethodTraits<Method>::Indices>
class OperationCall;

template <class Method, std::size_t... index>
class OperationCall<Method, std::index_sequence<index...>> final : public PendingOperation {
    using Traits = MethodTraits<Method>;
    using Class = typename Traits::Control;
    using Arguments = std::tuple<Value<typename Traits::template Parameter<index>>...>;

    static constexpr auto resultType()
    {
        if constexpr (deliversRecord<Method>())
            return static_cast<Answer<std::tuple_element_t<Traits::count - 1, Arguments>> *>(
                nullptr);
        else
            return static_cast<Outcome *>(nullptr);
    }

public:
    using Result = std::remove_pointer_t<decltype(resultType())>;

    template <class... Given>
    explicit OperationCall(Method method, Given &&...given) : m_method(method)
    {
        static_assert(std::is_constructible_v<Class, std::weak_ptr<BizModel::Device>>,
                      "call(): the operation is not a member of a control class");
        setArguments(std::make_index_sequence<sizeof...(Given)>(), std::forward<Given>(given)...);
        if constexpr (sizeof...(Given) < Traits::count)
            m_lacksRecord = isWrite(method);
        m_promise.reportStarted();
    }

    QFuture<Result> future() { return m_promise.future(); }

    bool run(const std::weak_ptr<BizModel::Device> &device, QString &error) override
    {
        if (m_lacksRecord) {
            error = QStringLiteral("the record to write is missing");
            return false;
        }
        Class control(device);
        return (control.*m_method)(std::get<index>(m_arguments)..., error);
    }

    void finish(const Outcome &outcome, bool mayRun) override
    {
        if constexpr (deliversRecord<Method>()) {
            using Record = std::tuple_element_t<Traits::count - 1, Arguments>;
            m_promise.reportResult(Result(
                outcome, mayRun ? Record() : std::move(std::get<Traits::count - 1>(m_arguments))));
        } else {
            m_promise.reportResult(outcome);
        }
        m_promise.reportFinished();
    }

    bool isCanceled() const override { return m_promise.isCanceled(); }

    bool isTransfer() const override
    {
        return std::is_same_v<
                   Class,
                   Control::
                       File> && (std::is_same_v<std::tuple_element_t<index, Arguments>, std::string> || ...);
    }

    std::optional<Operations::Operation> operation() const override
    {
        return Operations::find(m_method);
    }

    std::vector<Operations::Scope> changes() const override
    {
        return Operations::changedBy(m_method, std::get<index>(m_arguments)...);
    }

private:
    template <std::size_t... position, class... Given>
    void setArguments(std::index_sequence<position...>, Given &&...given)
    {
        ((std::get<position>(m_arguments) =
              static_cast<std::tuple_element_t<position, Arguments>>(std::forward<Given>(given))),
         ...);
    }

    const Method m_method;
    Arguments m_arguments; ///< Belong to the lane's thread until run() has ended.
    bool m_lacksRecord = false;
    mutable QFutureInterface<Result> m_promise;
};

/// Makes the call of an operation. A wrong first argument or wrong types do not compile.
template <class Method, class... Given>
auto makeCall(Method method, Given &&...given)
{
    constexpr bool isOperation = MethodTraits<Method>::isOperation;
    static_assert(
        isOperation,
        "call(): the first argument is not an operation: a member of a control class that "
        "returns bool and has the error text, a QString &, as its last parameter");
    constexpr bool fits = areArguments<Method, Given...>();
    static_assert(!isOperation || fits,
                  "call(): the arguments do not match the parameters of the operation, which are "
                  "those before the error text");
    if constexpr (isOperation && fits)
        return std::make_shared<OperationCall<Method>>(method, std::forward<Given>(given)...);
    else
        return std::shared_ptr<OperationCall<bool (Control::Device::*)(QString &)>>();
}

/// True if the only argument of an operation can be converted to its only parameter.
template <class Method, class... Given>
constexpr bool isSingleArgument = MethodTraits<Method>::count == 1 && sizeof...(Given) == 1
    && areArguments<Method, Given...>();

} // namespace Tavoro::SessionInternal
/// \endcond
