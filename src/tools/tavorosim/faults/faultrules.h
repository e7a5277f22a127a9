#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>
#include <random>
#include <vector>

namespace Tavoro::Sim {

struct FaultRow;

/// Which exchanges go wrong, and how.
struct FaultRule {
    const FaultRow *fault = nullptr; ///< A row of the table of faults.
    quint32 value = 0; ///< As the row tells.
    std::optional<quint16> code; ///< Empty: all commands.
    quint32 skip = 0; ///< Exchanges that still go right.
    std::optional<quint32> count; ///< Exchanges that still go wrong; empty: all.
    quint32 share = 100; ///< Percent of the exchanges that go wrong.
};

/// Reads a rule:
/// \code
/// FAULT[=VALUE][,code=CODE][,skip=N][,count=N][,share=PERCENT]
/// \endcode
/// CODE is a number (0x1107), the name of a command (DeviceSwap) or "identity". Each limit stands
/// there once. Nothing with the reason in \a error when \a text is no rule.
std::optional<FaultRule> parseFaultRule(const QString &text, QString &error);

/// The rule as parseFaultRule() reads it, with what is left of its numbers.
QString toText(const FaultRule &rule);

/// The rules of a device, in the order in which they are asked. One seed makes one sequence.
class FaultRules {
public:
    void seed(quint32 seed) { m_random.seed(seed); }
    void add(const FaultRule &rule) { m_rules.push_back(rule); }
    void clear() { m_rules.clear(); }
    bool isEmpty() const { return m_rules.empty(); }
    const std::vector<FaultRule> &rules() const { return m_rules; }

    /// The first rule that the next exchange of \a code falls under, counted as used. A rule
    /// without a code is none for the identity. Rules that are used up go.
    std::optional<FaultRule> next(quint16 code);

    /// The same numbers on every machine.
    std::mt19937 &random() { return m_random; }

private:
    std::vector<FaultRule> m_rules;
    std::mt19937 m_random{1};
};

} // namespace Tavoro::Sim
