#pragma once

#include "argumentreader.h"
#include "operation.h"

#include <tavorocontrol/proto/codec.h>

#include <tuple>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

/// Derives the rows of the operation table from the member functions: the parameters of a member
/// determine the arguments of a call and what it prints.
namespace Tavoro::Ctl {

/// A read stores its answer in its non-constant record. A write takes every record as an argument.
enum class Direction {
    Read,
    Write,
};

template <class Parameter>
constexpr bool isChanged =
    std::is_lvalue_reference_v<Parameter> && !std::is_const_v<std::remove_reference_t<Parameter>>;
/// A text argument is constant. One operation takes its error text by value.
template <class Parameter>
constexpr bool isError = std::is_same_v<Parameter, QString &> || std::is_same_v<Parameter, QString>;
template <class Parameter, Direction direction>
constexpr bool isAnswer =
    direction == Direction::Read &&isChanged<Parameter> && !isError<Parameter>;

/// The name of a record without the common namespace: "Device::s_swap".
QString recordName(const std::type_info &type);

template <class Value>
struct FormOfValue {
    static QString name() { return recordName(typeid(Value)); }
    static Value sample() { return {}; }
};
/// The sample of a list has one element.
template <class Element>
struct FormOfValue<std::vector<Element>> {
    static QString name()
    {
        return QLatin1Char('[') + recordName(typeid(Element)) + QLatin1Char(']');
    }
    static std::vector<Element> sample() { return std::vector<Element>(1); }
};
template <>
struct FormOfValue<std::string> {
    static QString name() { return QStringLiteral("JSON"); }
};

template <class Parameter, Direction direction>
void readParameter(ArgumentReader &reader, std::decay_t<Parameter> &value)
{
    if constexpr (!isError<Parameter> && !isAnswer<Parameter, direction>)
        reader.read(value);
}

template <class Parameter, Direction direction>
void collect(const std::decay_t<Parameter> &value, CallResult &result)
{
    if constexpr (isError<Parameter>)
        result.error = value;
    else if constexpr (isAnswer<Parameter, direction> && std::is_same_v<Parameter, std::string &>)
        result.answer = value;
    else if constexpr (isAnswer<Parameter, direction>)
        ajson::encodeRecord(value, result.answer);
}

template <class Parameter, Direction direction>
void describe(OperationForm &form)
{
    using Value = std::decay_t<Parameter>;
    if constexpr (isAnswer<Parameter, direction>) {
        form.answer = FormOfValue<Value>::name();
    } else if constexpr (std::is_same_v<Value, int>) {
        form.arguments += QStringLiteral("FILTER");
    } else if constexpr (std::is_integral_v<Value> || std::is_enum_v<Value>) {
        form.arguments += QStringLiteral("NUMBER");
    } else if constexpr (std::is_same_v<Value, QString>) {
        if constexpr (!isError<Parameter>)
            form.arguments += QStringLiteral("TEXT");
    } else {
        form.arguments += FormOfValue<Value>::name();
        ajson::encodeRecord(FormOfValue<Value>::sample(), form.sample);
    }
}

template <Direction direction, class Control, class... Parameters>
PreparedCall prepareCall(bool (Control::*member)(Parameters...), const QStringList &arguments,
                         MissingKeys missing)
{
    std::tuple<std::decay_t<Parameters>...> values;
    ArgumentReader reader(arguments, missing);
    std::apply([&](auto &...value) { (readParameter<Parameters, direction>(reader, value), ...); },
               values);
    const auto run = [member, values](const std::weak_ptr<BizModel::Device> &device) mutable {
        Control control(device, nullptr);
        CallResult result;
        std::apply(
            [&](auto &...value) {
                result.ok = (control.*member)(value...);
                (collect<Parameters, direction>(value, result), ...);
            },
            values);
        return result;
    };
    return {reader.fault(), run};
}

template <Direction direction, class Control, class... Parameters>
OperationForm describeCall(bool (Control::* /*member*/)(Parameters...))
{
    OperationForm form;
    (describe<Parameters, direction>(form), ...);
    return form;
}

template <Direction direction, auto member>
PreparedCall prepare(const QStringList &arguments, MissingKeys missing)
{
    return prepareCall<direction>(member, arguments, missing);
}

template <Direction direction, auto member>
OperationForm form()
{
    return describeCall<direction>(member);
}

template <auto member>
constexpr OperationCalls reads = {prepare<Direction::Read, member>, form<Direction::Read, member>};
template <auto member>
constexpr OperationCalls writes = {prepare<Direction::Write, member>,
                                   form<Direction::Write, member>};

} // namespace Tavoro::Ctl
