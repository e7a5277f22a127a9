#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>
#include <random>
#include <vector>

namespace Tavoro::Sim {

struct FaultRow;

/// Selects exchanges, and a fault for them.
struct FaultRule {
    const FaultRow *fault = nullptr; ///< A row of the table of faults.
    quint32 value = 0; ///< The value of the fault; the row gives its meaning.
    std::optional<quint16> code; ///< Empty: all commands.
    quint32 skip = 0; ///< Exchanges that are skipped first.
    std::optional<quint32> count; ///< Exchanges that get the fault; empty: all.
    quint32 share = 100; ///< Percent of the other exchanges that get the fault, at random.
};

/// Reads a rule:
/// \code
/// FAULT[=VALUE][,code=CODE][,skip=N][,count=N][,share=PERCENT]
/// \endcode
/// CODE is a number (0x1107), the name of a command (DeviceSwap) or "identity". Each limit is given
/// once at most. Returns nothing and sets \a error when \a text is not a rule.
std::optional<FaultRule> parseFaultRule(const QString &text, QString &error);

/// The rule as parseFaultRule() reads it, with its remaining counts.
QString toText(const FaultRule &rule);

/// The rules of a device, in the order in which they apply. One seed makes one sequence.
class FaultRules {
public:
    void seed(quint32 seed) { m_random.seed(seed); }
    void add(const FaultRule &rule) { m_rules.push_back(rule); }
    void clear() { m_rules.clear(); }
    bool isEmpty() const { return m_rules.empty(); }
    const std::vector<FaultRule> &rules() const { return m_rules; }

    /// The first rule that applies to the next exchange of \a code; counts the exchange. A rule
    /// without a code does not apply to the identity. A rule is removed when its count is used up.
    std::optional<FaultRule> next(quint16 code);

    /// The same numbers on every machine.
    std::mt19937 &random() { return m_random; }

private:
    std::vector<FaultRule> m_rules;
    std::mt19937 m_random{1};
};

} // namespace Tavoro::Sim
