#pragma once

#include "argumentreader_p.h"
#include "recordnames_p.h"

#include <tavorooperations/operation.h>

#include <tavorocontrol/proto/codec.h>

#include <QLatin1Char>
#include <QString>

#include <string>
#include <type_traits>
#include <vector>

/// What the parameters of a member function mean for a call by name: arguments, answer, error text.
namespace Tavoro::Operations::Internal {

template <class Parameter>
constexpr bool isChanged =
    std::is_lvalue_reference_v<Parameter> && !std::is_const_v<std::remove_reference_t<Parameter>>;
/// A text argument is constant. One operation takes its error text by value.
template <class Parameter>
constexpr bool isError = std::is_same_v<Parameter, QString &> || std::is_same_v<Parameter, QString>;
/// A read stores its answer in its non-constant record. A write takes every record as an argument.
template <class Parameter, Direction direction>
constexpr bool isAnswer =
    direction == Direction::Read &&isChanged<Parameter> && !isError<Parameter>;
template <class Parameter, Direction direction>
constexpr bool isArgument = !isError<Parameter> && !isAnswer<Parameter, direction>;

/// The name of a type, and a value that shows its keys.
template <class Value>
struct FormOfValue {
    static QString name() { return QString::fromStdString(nameOf<Value>()); }
    static Value sample() { return {}; }
};
/// The sample of a list has one element.
template <class Element>
struct FormOfValue<std::vector<Element>> {
    static QString name()
    {
        return QLatin1Char('[') + FormOfValue<Element>::name() + QLatin1Char(']');
    }
    static std::vector<Element> sample() { return std::vector<Element>(1); }
};
template <>
struct FormOfValue<std::string> {
    static QString name() { return QStringLiteral("JSON"); }
};

template <class Value>
Argument argumentForm()
{
    Argument argument;
    if constexpr (isNumber<Value>) {
        using Range = NumberRange<Value>;
        argument.type =
            std::is_same_v<Value, int> ? QStringLiteral("FILTER") : QStringLiteral("NUMBER");
        argument.minimum = Range::least;
        argument.maximum = Range::most;
    } else if constexpr (std::is_same_v<Value, QString>) {
        argument.type = QStringLiteral("TEXT");
    } else {
        argument.type = FormOfValue<Value>::name();
        ajson::encodeRecord(FormOfValue<Value>::sample(), argument.sample);
    }
    return argument;
}

} // namespace Tavoro::Operations::Internal
