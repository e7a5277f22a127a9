#pragma once

#include "stormcalls.h"

#include <support/tavorosession/sessionbench.h>

#include <QObject>
#include <QStringList>

#include <array>
#include <memory>
#include <vector>

/// A session with many simulated devices: operates them at random, while they go wrong at random.
class Storm {
public:
    /// Opens the devices. The same \a seed makes the same actions.
    Storm(int devices, quint32 seed);
    ~Storm();

    /// Carries out one random action on a random device.
    void step();
    /// Lets all devices work again, and opens those that were closed.
    void end();
    /// Whether all devices are ready and all calls have ended.
    bool isCalm() const;

    const std::vector<Tavoro::DeviceSession *> &walls() const { return m_walls; }
    /// What must not happen: a change of state that is not possible, or a call that ends twice.
    const QStringList &violations() const { return m_violations; }
    /// Number of calls that ended with this kind of outcome.
    int outcomes(Tavoro::Outcome::Kind kind) const { return m_outcomes[kind]; }
    /// Number of times that a device was in this state.
    int states(Tavoro::DeviceState::Kind kind) const { return m_states[kind]; }
    /// Calls, outcomes and states in words.
    QString summary() const;

private:
    struct Action;
    static const std::array<Action, 12> actions;

    Tavoro::Sim::SimulatedDevice &device(std::size_t index);
    Tavoro::DeviceSession &wall(std::size_t index) { return *m_walls[index]; }
    void open(std::size_t index);
    void watchStates(Tavoro::DeviceSession &wall);
    void follow(const Tavoro::PendingCall<Tavoro::Outcome> &call);

    void call(std::size_t index);
    void drag(std::size_t index);
    void callGroup(std::size_t index);
    void cancel(std::size_t index);
    void control(std::size_t index);
    void disturb(std::size_t index);
    void addFault(std::size_t index);
    void switchOff(std::size_t index);
    void read(std::size_t index);
    void reconnect(std::size_t index);
    void close(std::size_t index);
    void reopen(std::size_t index);

    StormRandom m_random;
    std::vector<std::unique_ptr<RunningSimulator>> m_devices;
    Tavoro::Session m_session;
    std::vector<Tavoro::DeviceSession *> m_walls;
    QStringList m_violations;
    std::array<int, 4> m_outcomes{};
    std::array<int, 5> m_states{};
    int m_calls = 0;
    int m_ended = 0;
    QObject m_context; ///< Of the results: the first member that is destroyed.
};
