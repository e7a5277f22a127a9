#include "console.h"

#include "faultconsole.h"

#include <tavorosim/commands/devicecommands.h>
#include <tavorosim/commands/handlers_p.h>
#include <tavorosim/commands/interfacecommands.h>
#include <tavorosim/commands/maintenancecommands.h>
#include <tavorosim/commands/screencommands.h>
#include <tavorosim/state/ranges.h>

#include <QStringList>

#include <algorithm>
#include <optional>

namespace Tavoro::Sim {

using namespace ProtoModel;

namespace {

using Numbers = std::vector<int>;

/// One word of the console. A handler gets as many arguments as its usage names, and says why it
/// could not do what was asked; nothing when it did.
struct Word {
    const char *name;
    const char *usage;
    const char *effect;
    bool (*takes)(const qint32 &value); ///< What the last argument may be where it is a number.
    QString (*handler)(SimState &state, const QStringList &arguments, Reports &reports);
};

/// All of \a texts as numbers, or nothing if one is none.
std::optional<Numbers> toNumbers(const QStringList &texts)
{
    Numbers numbers;
    for (const QString &text : texts) {
        bool ok = false;
        numbers.push_back(text.toInt(&ok));
        if (!ok)
            return std::nullopt;
    }
    return numbers;
}

bool isDuration(const qint32 &value)
{
    return value >= 0;
}

/// Why the last argument is none that the word takes, nothing when it is.
QString refusalOfLast(const Word &word, const QStringList &arguments)
{
    bool isNumber = false;
    const int value = arguments.last().toInt(&isNumber);
    if (!isNumber || word.takes(value))
        return {};
    const QString name = QString::fromLatin1(word.usage).section(QLatin1Char(' '), -1);
    return QStringLiteral("\"%1\" is no %2").arg(arguments.last(), name);
}

const QString notANumber = QStringLiteral("a number is due");
const QString noSuchObject = QStringLiteral("there is no such thing");
const QString noSuchPicture = QStringLiteral("no source sends such a picture");

QString setPower(SimState &state, const Numbers &numbers, Reports &reports)
{
    std::vector<Device::s_PowerBody> &powers = state.device.powers;
    const auto power = std::find_if(powers.begin(), powers.end(), [&](const auto &candidate) {
        return candidate.powerId == numbers.at(0);
    });
    if (power == powers.end())
        return noSuchObject;
    power->iSignal = numbers.at(1);
    power->status = numbers.at(1);
    reports.push_back(reportPowers(state));
    return {};
}

QString setGenlock(SimState &state, const Numbers &numbers, Reports &reports)
{
    state.device.genlockSignal = {numbers.at(0), numbers.at(0)};
    reports.push_back(reportGenlock(state));
    reports.push_back(reportScreenGenlock(state));
    return {};
}

QString setCard(SimState &state, const Numbers &numbers, Reports &reports)
{
    std::vector<Device::s_subcardBody> &cards = state.device.subcards;
    const auto card = std::find_if(cards.begin(), cards.end(), [&](const auto &candidate) {
        return candidate.slotId == numbers.at(0);
    });
    if (card == cards.end())
        return noSuchObject;
    card->online = numbers.at(1);
    reports.push_back(reportCards({*card}));
    return {};
}

QString setGroup(SimState &state, const QStringList &arguments, Reports &reports)
{
    const std::string id = arguments.at(0).toStdString();
    const std::string name = arguments.at(1).toStdString();
    std::vector<Device::s_DeviceGroupInfoBody> &groups = state.device.groupInfos;
    const auto group = std::find_if(groups.begin(), groups.end(),
                                    [&](const auto &candidate) { return candidate.groupId == id; });
    if (group == groups.end())
        groups.push_back({name, id});
    else
        group->groupName = name;
    reports.push_back(reportGroups(state));
    return {};
}

QString setRelation(SimState &state, const Numbers &numbers, Reports &reports)
{
    for (Device::s_Relation &relation : state.device.interfaceRelation.relation) {
        if (relation.interfaceA != numbers.at(0) && relation.interfaceB != numbers.at(0))
            continue;
        relation.actualInterface = numbers.at(0);
        reports.push_back(reportRelation(state));
        return {};
    }
    return noSuchObject;
}

using Input = Interface::s_InterfaceDetail;

Input *findInput(SimState &state, const Numbers &numbers)
{
    Input *const interface = find(state, s_InterfaceID{numbers[0], numbers[1], 0});
    return interface && interface->general.type == InputInterface ? interface : nullptr;
}

/// A width or a height of a picture.
bool isSide(int pixels)
{
    return pixels >= 1 && isCode(pixels);
}

QString setTiming(SimState & /*state*/, Input &input, const Numbers &numbers, Reports &reports)
{
    const int width = numbers.at(2);
    const int height = numbers.at(3);
    if (!isSide(width) || !isSide(height)) // and their sums are in order
        return noSuchPicture;
    s_TimingDetailBody timing;
    timing.refresh = numbers.at(4);
    timing.horizontal = {width, 88, 44, 1, width + 280};
    timing.vertical = {height, 4, 5, 1, height + 45};
    if (!isTiming(timing))
        return noSuchPicture;
    input.actualTiming = timing;
    reports.push_back(reportTiming(input));
    return {};
}

QString pullCable(SimState &state, Input &input, const Numbers & /*numbers*/, Reports &reports)
{
    if (input.actualTiming.horizontal.addTime != 0)
        countLoss(state, input.interfaceId);
    input.actualTiming = {};
    reports.push_back(reportTiming(input));
    return {};
}

QString setDepth(SimState & /*state*/, Input &input, const Numbers &numbers, Reports &reports)
{
    input.colorDepths.actualColorDepth = numbers.at(2);
    reports.push_back(reportColorDepth(input));
    return {};
}

QString failUpgrade(SimState &state, const Numbers &numbers, Reports & /*reports*/)
{
    state.maintenance.upgrade.failAt(numbers.at(0));
    return {};
}

QString passTime(SimState &state, const Numbers &numbers, Reports &reports)
{
    pass(state, numbers.at(0), reports);
    return {};
}

QString switchPower(SimState &state, const Numbers &numbers, Reports & /*reports*/)
{
    const bool isOn = state.maintenance.power == Power::On;
    if (numbers.at(0) == 0)
        switchOff(state, Power::Off);
    else if (!isOn)
        switchOn(state);
    return {};
}

/// A word whose arguments are all numbers.
template <QString (*handle)(SimState &, const Numbers &, Reports &)>
QString numeric(SimState &state, const QStringList &arguments, Reports &reports)
{
    const auto numbers = toNumbers(arguments);
    return numbers ? handle(state, *numbers, reports) : notANumber;
}

/// A word whose first two numbers name an input.
template <QString (*handle)(SimState &, Input &, const Numbers &, Reports &)>
QString onInput(SimState &state, const Numbers &numbers, Reports &reports)
{
    Input *const input = findInput(state, numbers);
    return input ? handle(state, *input, numbers, reports) : noSuchObject;
}

// clang-format off
constexpr Word words[] = {
//   word        arguments                                effect                                         takes               handler
    {"cable",    "SLOT CONNECTOR",                        "pulls the cable of an input",                 isAnything<qint32>, numeric<onInput<pullCable>>},
    {"card",     "SLOT ONLINE",                           "plugs a card (1) or pulls it (0)",            isFlag,             numeric<setCard>},
    {"depth",    "SLOT CONNECTOR BITS",                   "the source of an input changes its depth",    isCode,             numeric<onInput<setDepth>>},
    {"genlock",  "SIGNAL",                                "genlock comes (1) or is lost (0)",            isFlag,             numeric<setGenlock>},
    {"group",    "ID NAME",                               "names a group, a new one if need be",         isAnything<qint32>, setGroup},
    {"pass",     "MILLISECONDS",                          "so much time passes for the device",          isDuration,         numeric<passTime>},
    {"power",    "ID STATUS",                             "a power supply works (1) or fails (0)",       isFlag,             numeric<setPower>},
    {"relation", "INTERFACE",                             "a pair of interfaces changes over to this",   isAnything<qint32>, numeric<setRelation>},
    {"spoil",    "PERCENT",                               "an upgrade fails when it has come so far",    isPercent,          numeric<failUpgrade>},
    {"switch",   "ON",                                    "switches the device off (0) or on (1)",       isFlag,             numeric<switchPower>},
    {"timing",   "SLOT CONNECTOR WIDTH HEIGHT REFRESH",   "the source of an input sends such a picture", isAnything<qint32>, numeric<onInput<setTiming>>},
};
// clang-format on

} // namespace

QString ConsoleAnswer::line() const
{
    const QString verdict = ok ? QStringLiteral("ok") : QStringLiteral("error");
    return text.isEmpty() ? verdict : verdict + QLatin1Char(' ') + text;
}

ConsoleAnswer executeConsole(SimState &state, FaultRules &faults, const QString &line,
                             Reports &reports)
{
    QStringList parts = line.simplified().split(QLatin1Char(' '));
    const QString name = parts.takeFirst();
    if (name.isEmpty())
        return {};
    if (name == QLatin1String("fault"))
        return executeFault(faults, parts);
    const auto word = std::find_if(std::begin(words), std::end(words), [&](const Word &candidate) {
        return name == QLatin1String(candidate.name);
    });
    if (word == std::end(words))
        return {false, QStringLiteral("no such word: %1").arg(name)};
    const QString usage = QLatin1String(word->usage);
    if (parts.size() != usage.count(QLatin1Char(' ')) + 1)
        return {false, QStringLiteral("usage: %1 %2").arg(name, usage)};
    QString fault = refusalOfLast(*word, parts);
    if (fault.isEmpty())
        fault = word->handler(state, parts, reports);
    return {fault.isEmpty(), fault};
}

QString consoleHelpLine(const QString &call, const char *effect)
{
    return QStringLiteral("  %1 %2\n").arg(call, -44).arg(QLatin1String(effect));
}

QString consoleHelp()
{
    QString help;
    for (const Word &word : words) {
        const QString call =
            QStringLiteral("%1 %2").arg(QLatin1String(word.name), QLatin1String(word.usage));
        help += consoleHelpLine(call, word.effect);
    }
    return help + faultConsoleHelp();
}

} // namespace Tavoro::Sim
