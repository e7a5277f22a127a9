#include "scenariorunner.h"

#include <tavorosim/state/simlog.h>

#include <utility>

namespace Tavoro::Sim {

ScenarioRunner::ScenarioRunner(Scenario scenario, Execute execute, QObject *parent)
    : QObject(parent), m_scenario(std::move(scenario)), m_execute(std::move(execute)), m_pause(this)
{
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &ScenarioRunner::carryOutStep);
    scheduleStep();
}

void ScenarioRunner::scheduleStep()
{
    m_pause.start(m_scenario.steps.at(m_step).pause);
}

void ScenarioRunner::carryOutStep()
{
    const Scenario::Step &step = m_scenario.steps.at(m_step);
    const ConsoleAnswer answer = m_execute(step.command);
    if (!answer.ok)
        qCWarning(simLog, "scenario \"%s\", line %d: %s", qUtf8Printable(m_scenario.name),
                  step.line, qUtf8Printable(answer.text));
    ++m_step;
    if (m_step == m_scenario.steps.size() && m_scenario.isRepeated)
        m_step = 0;
    if (m_step < m_scenario.steps.size())
        scheduleStep();
}

} // namespace Tavoro::Sim
