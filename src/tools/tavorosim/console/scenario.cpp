#include "scenario.h"

#include "console.h"

#include <tavorosim/state/numbers.h>
#include <tavorosim/state/texts.h>

#include <QDir>
#include <QFile>

#include <limits>

static void initializeScenarios() // Q_INIT_RESOURCE works only outside namespaces.
{
    Q_INIT_RESOURCE(scenarios);
}

namespace Tavoro::Sim {

namespace {

const QString folder = QStringLiteral(":/tavorosim/scenarios");

/// Adds \a line to the scenario. Returns why it is not valid; nothing if it is.
QString addLine(Scenario &scenario, int number, const QString &line)
{
    const QString first = line.section(QLatin1Char(' '), 0, 0);
    if (scenario.isRepeated)
        return Texts::tr("\"repeat\" must be the last line");
    if (line == QLatin1String("repeat")) {
        scenario.isRepeated = true;
        return {};
    }
    Scenario::Step &last = scenario.steps.back();
    if (first != QLatin1String("wait")) {
        last.line = number;
        last.command = line;
        scenario.steps.emplace_back();
        return consoleFault(line);
    }
    const auto pause = toNumber(line.section(QLatin1Char(' '), 1));
    if (!pause || *pause < 0 || *pause > std::numeric_limits<int>::max() - last.pause)
        return Texts::tr("usage: wait MILLISECONDS");
    last.pause += static_cast<int>(*pause);
    return {};
}

/// A scenario without a pause that repeats would never let the device serve its clients.
bool hasPause(const Scenario &scenario)
{
    for (const Scenario::Step &step : scenario.steps) {
        if (step.pause > 0)
            return true;
    }
    return false;
}

} // namespace

std::optional<Scenario> parseScenario(const QString &text, QString &error)
{
    Scenario scenario;
    scenario.steps.emplace_back();
    int number = 0;
    for (const QString &written : text.split(QLatin1Char('\n'))) {
        const QString line = written.simplified();
        ++number;
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const QString fault = addLine(scenario, number, line);
        if (!fault.isEmpty()) {
            error = Texts::tr("line %1: %2").arg(number).arg(fault);
            return std::nullopt;
        }
    }
    if (scenario.isRepeated && !hasPause(scenario)) {
        error = Texts::tr("a scenario that repeats needs a pause (wait MILLISECONDS)");
        return std::nullopt;
    }
    return scenario;
}

std::optional<Scenario> readScenario(const QString &nameOrFile, QString &error)
{
    const bool isName = scenarioNames().contains(nameOrFile);
    QFile file(isName ? QStringLiteral("%1/%2.txt").arg(folder, nameOrFile) : nameOrFile);
    if (!file.open(QIODevice::ReadOnly)) {
        error = Texts::tr("cannot read it: %1; the scenarios of the program are %2")
                    .arg(file.errorString(), scenarioNames().join(QLatin1String(", ")));
        return std::nullopt;
    }
    auto scenario = parseScenario(QString::fromUtf8(file.readAll()), error);
    if (scenario)
        scenario->name = nameOrFile;
    return scenario;
}

QStringList scenarioNames()
{
    initializeScenarios();
    QStringList names;
    const QStringList files = QDir(folder).entryList(QDir::Files, QDir::Name);
    for (const QString &file : files)
        names.append(file.section(QLatin1Char('.'), 0, 0));
    return names;
}

} // namespace Tavoro::Sim
