#include "faultrules.h"

#include "faulttable.h"

#include <tavorosim/commands/commandnames.h>
#include <tavorosim/state/numbers.h>
#include <tavorosim/state/texts.h>

#include <QStringList>

#include <algorithm>
#include <limits>

namespace Tavoro::Sim {

namespace {

/// A name and the value after the first "=".
struct Setting {
    explicit Setting(const QString &text)
        : name(text.section(QLatin1Char('='), 0, 0)),
          value(text.section(QLatin1Char('='), 1)),
          hasValue(text.contains(QLatin1Char('=')))
    { }

    QString name;
    QString value;
    bool hasValue;
};

bool setNumber(const QString &text, quint32 min, quint32 max, quint32 &number)
{
    const std::optional<qint64> read = toNumber(text);
    if (!read || *read < min || *read > max)
        return false;
    number = static_cast<quint32>(*read);
    return true;
}

constexpr quint32 highestNumber = std::numeric_limits<quint32>::max();

bool setCode(FaultRule &rule, const QString &value)
{
    rule.code = findCode(value);
    return rule.code.has_value();
}

bool setSkip(FaultRule &rule, const QString &value)
{
    return setNumber(value, 0, highestNumber, rule.skip);
}

bool setCount(FaultRule &rule, const QString &value)
{
    return setNumber(value, 1, highestNumber, rule.count.emplace());
}

bool setShare(FaultRule &rule, const QString &value)
{
    return setNumber(value, 1, 100, rule.share);
}

#define TEXT(text) QT_TRANSLATE_NOOP("Sim", text)

struct LimitRow {
    const char *name;
    bool (*set)(FaultRule &rule, const QString &value);
    const char *range;
};

// clang-format off
constexpr LimitRow limitRows[] = {
    {"code",  setCode,  TEXT("0x1 to 0xFFFF, or the name of a command")},
    {"skip",  setSkip,  TEXT("0 to 4294967295")},
    {"count", setCount, TEXT("1 to 4294967295")},
    {"share", setShare, TEXT("1 to 100")},
};
// clang-format on

bool setFault(FaultRule &rule, const Setting &setting, QString &error)
{
    rule.fault = findFault(setting.name);
    if (!rule.fault) {
        error = Texts::tr("unknown fault: \"%1\"").arg(setting.name);
        return false;
    }
    const FaultRow &row = *rule.fault;
    rule.value = row.defaultValue;
    if (!setting.hasValue && !row.needsValue())
        return true;
    if (row.takesValue() && setNumber(setting.value, row.min, row.max, rule.value))
        return true;
    error = row.takesValue()
        ? Texts::tr("%1 takes a number from %2 to %3").arg(setting.name).arg(row.min).arg(row.max)
        : Texts::tr("%1 takes no value").arg(setting.name);
    return false;
}

bool setLimit(FaultRule &rule, const Setting &setting, QString &error)
{
    const auto row =
        std::find_if(std::begin(limitRows), std::end(limitRows), [&](const LimitRow &candidate) {
            return setting.name == QLatin1String(candidate.name);
        });
    if (row != std::end(limitRows) && row->set(rule, setting.value))
        return true;
    error = row == std::end(limitRows)
        ? Texts::tr("unknown limit: \"%1\"").arg(setting.name)
        : Texts::tr("\"%1\" is not a valid %2 (%3)")
              .arg(setting.value, setting.name, Texts::tr(row->range));
    return false;
}

bool setLimits(FaultRule &rule, const QStringList &parts, QString &error)
{
    QStringList given;
    for (const QString &part : parts) {
        const Setting setting(part);
        if (given.contains(setting.name)) {
            error = Texts::tr("%1 is given twice").arg(setting.name);
            return false;
        }
        if (!setLimit(rule, setting, error))
            return false;
        given.append(setting.name);
    }
    return true;
}

/// The identity answer has no status to set.
bool isStatusOfIdentity(const FaultRule &rule)
{
    return rule.code == identityCode && rule.fault == findFault(QStringLiteral("status"));
}

} // namespace

std::optional<FaultRule> parseFaultRule(const QString &text, QString &error)
{
    QStringList parts = text.split(QLatin1Char(','));
    FaultRule rule;
    if (!setFault(rule, Setting(parts.takeFirst()), error) || !setLimits(rule, parts, error))
        return std::nullopt;
    if (isStatusOfIdentity(rule)) {
        error = Texts::tr("the identity answer has no status");
        return std::nullopt;
    }
    return rule;
}

QString toText(const FaultRule &rule)
{
    QString text = QLatin1String(rule.fault->name);
    if (rule.fault->takesValue())
        text += QStringLiteral("=%1").arg(rule.value);
    if (rule.code)
        text += QStringLiteral(",code=%1").arg(nameOfCode(*rule.code));
    if (rule.skip > 0)
        text += QStringLiteral(",skip=%1").arg(rule.skip);
    if (rule.count)
        text += QStringLiteral(",count=%1").arg(*rule.count);
    if (rule.share < 100)
        text += QStringLiteral(",share=%1").arg(rule.share);
    return text;
}

std::optional<FaultRule> FaultRules::next(quint16 code)
{
    for (auto rule = m_rules.begin(); rule != m_rules.end(); ++rule) {
        if (rule->code ? *rule->code != code : code == identityCode)
            continue;
        if (rule->skip > 0) { // without a random number, or more exchanges would be skipped
            --rule->skip;
            continue;
        }
        if (rule->share < 100 && m_random() % 100 >= rule->share)
            continue;
        FaultRule used = *rule;
        if (rule->count && --*rule->count == 0)
            m_rules.erase(rule);
        return used;
    }
    return std::nullopt;
}

} // namespace Tavoro::Sim
