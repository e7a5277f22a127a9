#pragma once

#include <tavorosim/console/consoleanswer.h>
#include <tavorosim/console/scenario.h>

#include <QObject>
#include <QTimer>

#include <cstddef>
#include <functional>

namespace Tavoro::Sim {

/// Carries out a scenario. Its pauses follow the time of this machine.
class ScenarioRunner : public QObject {
    Q_OBJECT

public:
    /// Carries out a line of the console.
    using Execute = std::function<ConsoleAnswer(const QString &line)>;

    ScenarioRunner(Scenario scenario, Execute execute, QObject *parent = nullptr);

private:
    void scheduleStep();
    void carryOutStep();

    const Scenario m_scenario;
    const Execute m_execute;
    QTimer m_pause;
    std::size_t m_step = 0;
};

} // namespace Tavoro::Sim
