#pragma once

#include "effect_p.h"
#include "operation_p.h"
#include "parameters_p.h"

#include <QLatin1Char>
#include <QString>

#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

/// Derives the code of a row of the operation table from the member function.
namespace Tavoro::Operations::Internal {

/// References to the arguments among \a values, which also have the answer and the error text.
template <Direction direction, class... Parameters>
auto argumentsAmong(const std::decay_t<Parameters> &...values)
{
    const auto pick = [](auto isWanted, const auto &value) {
        if constexpr (decltype(isWanted)::value)
            return std::tie(value);
        else
            return std::tuple<>();
    };
    return std::tuple_cat(pick(std::bool_constant<isArgument<Parameters, direction>>(), values)...);
}

/// The scopes that a write with the referenced arguments changes.
template <const Effect &effect, class... Arguments>
std::vector<NamedScope> scopesChanged(const std::tuple<const Arguments &...> &arguments)
{
    std::vector<NamedScope> scopes;
    for (const ChangedKind &changed : effect) {
        if (changed.extent == Extent::All)
            scopes.push_back({allOf(changed.kind), ""});
        if constexpr (effect.isNamed()) {
            if (changed.extent == Extent::Named) {
                const auto named =
                    std::apply([&](const auto &...each) { return scopesOf(changed.kind, each...); },
                               arguments);
                scopes.insert(scopes.end(), named.begin(), named.end());
            }
        }
    }
    return scopes;
}

template <Direction direction, const Effect &effect, class Member>
struct MemberCodeOf;

template <Direction direction, const Effect &effect, class Control, class... Parameters>
struct MemberCodeOf<direction, effect, bool (Control::*)(Parameters...)> {
    using Member = bool (Control::*)(Parameters...);
    using Values = std::tuple<std::decay_t<Parameters>...>;

    static auto argumentsOf(const Values &values)
    {
        return std::apply(argumentsAmong<direction, Parameters...>, values);
    }
    using Arguments = decltype(argumentsOf(std::declval<Values>()));

    static PreparedCall prepare(Member member, const QStringList &words, MissingKeys missing)
    {
        Values values;
        ArgumentReader reader(words, missing);
        std::apply([&](auto &...value) { (readInto<Parameters>(reader, value), ...); }, values);
        PreparedCall call{reader.fault(), reader.lacksKeys(), {}, {}};
        if (!call.fault.isEmpty())
            return call;
        call.changes = changedBy(argumentsOf(values));
        call.run = [=](const std::weak_ptr<BizModel::Device> &device) {
            return run(member, device, values);
        };
        return call;
    }

    static OperationForm form()
    {
        OperationForm form;
        (addTo<Parameters>(form), ...);
        const Values samples{sampleOf<std::decay_t<Parameters>>()...};
        for (const NamedScope &scope : scopesChanged<effect>(argumentsOf(samples)))
            form.changes.push_back({scope.scope.kind, wordsOf(scope.keys)});
        return form;
    }

    static std::vector<Scope> changedBy(const Arguments &arguments)
    {
        std::vector<Scope> scopes;
        for (const NamedScope &scope : scopesChanged<effect>(arguments))
            scopes.push_back(scope.scope);
        return scopes;
    }

private:
    static CallResult run(Member member, const std::weak_ptr<BizModel::Device> &device,
                          Values values)
    {
        Control control(device, nullptr);
        CallResult result;
        std::apply(
            [&](auto &...value) {
                result.ok = (control.*member)(value...);
                (collect<Parameters>(value, result), ...);
            },
            values);
        return result;
    }

    template <class Parameter>
    static void readInto(ArgumentReader &reader, std::decay_t<Parameter> &value)
    {
        if constexpr (isArgument<Parameter, direction>)
            reader.read(value);
    }

    template <class Parameter>
    static void collect(const std::decay_t<Parameter> &value, CallResult &result)
    {
        constexpr bool isText = std::is_same_v<Parameter, std::string &>;
        if constexpr (isError<Parameter>)
            result.error = value;
        else if constexpr (isAnswer<Parameter, direction> && isText)
            result.answer = value;
        else if constexpr (isAnswer<Parameter, direction>)
            ajson::encodeRecord(value, result.answer);
    }

    template <class Parameter>
    static void addTo(OperationForm &form)
    {
        using Value = std::decay_t<Parameter>;
        if constexpr (isAnswer<Parameter, direction>)
            form.answer = FormOfValue<Value>::name();
        else if constexpr (isArgument<Parameter, direction>)
            form.arguments.push_back(argumentForm<Value>());
    }

    /// A value that has the keys of the type: a list has one element.
    template <class Value>
    static Value sampleOf()
    {
        if constexpr (IsList<Value>::value)
            return FormOfValue<Value>::sample();
        else
            return {};
    }
};

/// The functions of a row, one set for each member.
template <Direction direction, const Effect &effect, auto member>
struct RowCode {
    using Code = MemberCodeOf<direction, effect, std::remove_cv_t<decltype(member)>>;

    static bool isMember(const std::type_info &type, const void *other)
    {
        using Member = typename Code::Member;
        return type == typeid(Member) && *static_cast<const Member *>(other) == member;
    }
    static PreparedCall prepare(const QStringList &words, MissingKeys missing)
    {
        return Code::prepare(member, words, missing);
    }
    static std::vector<Scope> changedBy(const void *arguments)
    {
        return Code::changedBy(*static_cast<const typename Code::Arguments *>(arguments));
    }

    static constexpr MemberCode functions{direction,  isMember,  prepare,
                                          Code::form, changedBy, effect.whyNothingChanges()};
};

constexpr Effect noEffect("");

template <auto member>
constexpr MemberCode reads = RowCode<Direction::Read, noEffect, member>::functions;
template <auto member, const Effect &effect>
constexpr MemberCode writes = RowCode<Direction::Write, effect, member>::functions;

} // namespace Tavoro::Operations::Internal
