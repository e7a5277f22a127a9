#include "console.h"

#include "faultconsole.h"

#include <tavorosim/commands/devicecommands.h>
#include <tavorosim/commands/handlers_p.h>
#include <tavorosim/commands/interfacecommands.h>
#include <tavorosim/commands/maintenancecommands.h>
#include <tavorosim/commands/screencommands.h>
#include <tavorosim/faults/faultrules.h>
#include <tavorosim/state/ranges.h>
#include <tavorosim/state/texts.h>

#include <QStringList>

#include <algorithm>
#include <optional>

namespace Tavoro::Sim {

using namespace ProtoModel;

namespace {

#define TEXT(text) QT_TRANSLATE_NOOP("Sim", text)

using Numbers = std::vector<int>;

/// One command of the console. A handler gets as many arguments as its usage names, and returns why
/// it could not carry the command out; nothing if it did.
struct ConsoleCommand {
    const char *name;
    const char *usage;
    const char *effect;
    bool (*isValid)(const qint32 &value); ///< Checks the last argument if it is a number.
    const char *range; ///< The values that isValid accepts.
    QString (*handler)(SimState &state, const QStringList &arguments, Reports &reports);
};

/// All of \a texts as numbers; nothing if one is not a number.
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

/// Why the last argument is not valid; nothing if it is.
QString checkLastArgument(const ConsoleCommand &command, const QStringList &arguments)
{
    bool isNumber = false;
    const int value = arguments.last().toInt(&isNumber);
    if (!isNumber || command.isValid(value))
        return {};
    const QString name = QString::fromLatin1(command.usage).section(QLatin1Char(' '), -1);
    return Texts::tr("\"%1\" is not a valid %2 (%3)")
        .arg(arguments.last(), name, Texts::tr(command.range));
}

QString notANumber()
{
    return Texts::tr("expected a number");
}

QString noSuchObject()
{
    return Texts::tr("no such object");
}

QString unsupportedTiming()
{
    return Texts::tr("timing not supported");
}

QString setPower(SimState &state, const Numbers &numbers, Reports &reports)
{
    std::vector<Device::s_PowerBody> &powers = state.device.powers;
    const auto power = std::find_if(powers.begin(), powers.end(), [&](const auto &candidate) {
        return candidate.powerId == numbers.at(0);
    });
    if (power == powers.end())
        return noSuchObject();
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
        return noSuchObject();
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
    return noSuchObject();
}

using Input = Interface::s_InterfaceDetail;

Input *findInput(SimState &state, const Numbers &numbers)
{
    Input *const interface = find(state, s_InterfaceID{numbers[0], numbers[1], 0});
    return interface && interface->general.type == InputInterface ? interface : nullptr;
}

/// True if \a pixels is a valid width or height of a picture.
bool isPictureSize(int pixels)
{
    return pixels >= 1 && isUInt16(pixels);
}

QString setTiming(SimState & /*state*/, Input &input, const Numbers &numbers, Reports &reports)
{
    const int width = numbers.at(2);
    const int height = numbers.at(3);
    if (!isPictureSize(width) || !isPictureSize(height)) // so that the sums below do not overflow
        return unsupportedTiming();
    s_TimingDetailBody timing;
    timing.refresh = numbers.at(4);
    timing.horizontal = {width, 88, 44, 1, width + 280};
    timing.vertical = {height, 4, 5, 1, height + 45};
    if (!isTiming(timing))
        return unsupportedTiming();
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

QString advanceClock(SimState &state, const Numbers &numbers, Reports &reports)
{
    advanceTime(state, numbers.at(0), reports);
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

/// A command whose arguments are all numbers.
template <QString (*handle)(SimState &, const Numbers &, Reports &)>
QString numeric(SimState &state, const QStringList &arguments, Reports &reports)
{
    const auto numbers = toNumbers(arguments);
    return numbers ? handle(state, *numbers, reports) : notANumber();
}

/// A command whose first two numbers name an input.
template <QString (*handle)(SimState &, Input &, const Numbers &, Reports &)>
QString onInput(SimState &state, const Numbers &numbers, Reports &reports)
{
    Input *const input = findInput(state, numbers);
    return input ? handle(state, *input, numbers, reports) : noSuchObject();
}

constexpr auto anyNumber = isAnything<qint32>;

// clang-format off
constexpr ConsoleCommand consoleCommands[] = {
//   command     arguments               effect                                              valid       range               handler
    {"cable",    "SLOT CONNECTOR",       TEXT("pulls the cable of an input"),                anyNumber,  "",                 numeric<onInput<pullCable>>},
    {"card",     "SLOT ONLINE",          TEXT("plugs a card (1) or pulls it (0)"),           isFlag,     TEXT("0 or 1"),     numeric<setCard>},
    {"depth",    "SLOT CONNECTOR BITS",  TEXT("sets the colour depth of an input's source"), isUInt16,   TEXT("0 to 65535"), numeric<onInput<setDepth>>},
    {"genlock",  "SIGNAL",               TEXT("sets (1) or removes (0) the genlock signal"), isFlag,     TEXT("0 or 1"),     numeric<setGenlock>},
    {"group",    "ID NAME",              TEXT("names a group, and adds it if it is new"),    anyNumber,  "",                 setGroup},
    {"pass",     "MILLISECONDS",         TEXT("advances the device's clock"),                isDuration, TEXT("0 or more"),  numeric<advanceClock>},
    {"power",    "ID STATUS",            TEXT("makes a power supply work (1) or fail (0)"),  isFlag,     TEXT("0 or 1"),     numeric<setPower>},
    {"relation", "INTERFACE",            TEXT("switches a pair of interfaces to this one"),  anyNumber,  "",                 numeric<setRelation>},
    {"spoil",    "PERCENT",              TEXT("makes the upgrade fail at this progress"),    isPercent,  TEXT("0 to 100"),   numeric<failUpgrade>},
    {"switch",   "ON",                   TEXT("switches the device off (0) or on (1)"),      isFlag,     TEXT("0 or 1"),     numeric<switchPower>},
    {"timing",   "SLOT CONNECTOR WIDTH HEIGHT REFRESH",
                                         TEXT("sets the timing of an input's source"),       anyNumber,  "",                 numeric<onInput<setTiming>>},
};
// clang-format on

/// A line of the console in its parts.
struct ConsoleLine {
    explicit ConsoleLine(const QString &line)
        : arguments(line.simplified().split(QLatin1Char(' '))), name(arguments.takeFirst())
    { }

    bool isEmpty() const { return name.isEmpty(); }
    bool isFault() const { return name == QLatin1String("fault"); }

    QStringList arguments;
    QString name;
};

/// The command of a line; null if there is none of this name.
const ConsoleCommand *findCommand(const QString &name)
{
    const auto command =
        std::find_if(std::begin(consoleCommands), std::end(consoleCommands),
                     [&](const ConsoleCommand &row) { return name == QLatin1String(row.name); });
    return command == std::end(consoleCommands) ? nullptr : command;
}

QString commandFault(const ConsoleCommand *command, const ConsoleLine &line)
{
    if (!command)
        return Texts::tr("unknown command: %1").arg(line.name);
    const QString usage = QLatin1String(command->usage);
    if (line.arguments.size() != usage.count(QLatin1Char(' ')) + 1)
        return Texts::tr("usage: %1 %2").arg(line.name, usage);
    return checkLastArgument(*command, line.arguments);
}

} // namespace

ConsoleAnswer executeConsole(SimState &state, FaultRules &faults, const QString &line,
                             Reports &reports)
{
    const ConsoleLine parts(line);
    if (parts.isEmpty())
        return {};
    if (parts.isFault())
        return executeFault(faults, parts.arguments);
    const ConsoleCommand *const command = findCommand(parts.name);
    QString fault = commandFault(command, parts);
    if (fault.isEmpty())
        fault = command->handler(state, parts.arguments, reports);
    return {fault.isEmpty(), fault};
}

QString consoleFault(const QString &line)
{
    const ConsoleLine parts(line);
    if (parts.isEmpty())
        return {};
    if (!parts.isFault())
        return commandFault(findCommand(parts.name), parts);
    FaultRules rules; // Not those of a device.
    const ConsoleAnswer answer = executeFault(rules, parts.arguments);
    return answer.ok ? QString() : answer.text;
}

QString consoleHelp()
{
    QString help;
    for (const ConsoleCommand &command : consoleCommands) {
        const QString call =
            QStringLiteral("%1 %2").arg(QLatin1String(command.name), QLatin1String(command.usage));
        help += consoleHelpLine(call, command.effect);
    }
    return help + faultConsoleHelp();
}

} // namespace Tavoro::Sim
