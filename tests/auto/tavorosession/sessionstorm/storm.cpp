#include "storm.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/device.h>

#include <algorithm>
#include <numeric>
#include <utility>

using namespace Tavoro;
using namespace std::chrono_literals;

namespace {

// clang-format off
// All faults that end by themselves, or that the channel ends.
constexpr const char *faults[] = {
    "status=8", "late=100", "silent", "ignore", "stall", "drop-request", "drop-before", "drop-within",
    "drop-after", "wrong-flag", "wrong-version", "wrong-head-checksum", "wrong-length", "wrong-length=1",
    "wrong-index", "wrong-checksum", "wrong-kind", "wrong-type", "wrong-code", "wrong-tag", "wrong-stream",
    "other-tag", "packets", "swap-packets", "twice", "truncate", "garble=100000", "stop-reading=300", "reboot", "flood=100",
};
// Reads of a device, writes of the storm, and any exchange.
constexpr const char *exchanges[] = {
    ",code=0x1100", ",code=0x1200", ",code=0x1300", ",code=0x1400", ",code=0xFA00", ",code=0xFA04", ",code=0xFC0C",
    ",code=0x1107", ",code=0x130D", ",code=0x130E", ",code=0x1309", ",code=0x1405", ",code=identity", "", "",
};
// What a device reports.
constexpr const char *disturbances[] = {
    "power 1 0", "power 1 1", "genlock 0", "genlock 1", "timing 1 1 1920 1080 60", "timing 1 1 1280 720 50",
    "depth 1 1 10", "depth 1 1 8", "group 3 stage", "group 3 hall",
};
constexpr const char *stateNames[] = {"Disconnected", "Connecting", "Reading", "Ready", "Lost"};
// Row: the state before. Column: the state after.
constexpr bool mayFollow[5][5] = {
//                   Disconnected Connecting Reading Ready  Lost
/* Disconnected */  {false,       true,      false,  false, false},
/* Connecting   */  {true,        false,     true,   false, false},
/* Reading      */  {true,        false,     false,  true,  true},
/* Ready        */  {true,        false,     true,   false, true},
/* Lost         */  {true,        false,     true,   false, false},
};
// clang-format on

SessionBench::Options stormOptions()
{
    SessionBench::Options options = SessionBench::fastOptions();
    options.channel.identityTimeout = 500ms;
    options.channel.keepAliveInterval = 200ms;
    options.channel.keepAliveTimeout = 1s;
    options.channel.stalledAnswerTimeout = 500ms;
    options.channel.maxRequestTime = 5s;
    options.outcomeTime = 3s;
    return options;
}

} // namespace

struct Storm::Action {
    int weight; ///< How often it is carried out, compared with the others.
    void (Storm::*carryOut)(std::size_t index);
};

// clang-format off
const std::array<Storm::Action, 12> Storm::actions{{
    {40, &Storm::call},
    {10, &Storm::drag},
    {5,  &Storm::callGroup},
    {3,  &Storm::cancel},
    {5,  &Storm::control},
    {15, &Storm::disturb},
    {5,  &Storm::addFault},
    {2,  &Storm::switchOff},
    {3,  &Storm::read},
    {2,  &Storm::reconnect},
    {1,  &Storm::close},
    {1,  &Storm::reopen},
}};
// clang-format on

Storm::Storm(int devices, quint32 seed) : m_random(seed), m_session(stormOptions())
{
    for (int i = 1; i <= devices; ++i) {
        Sim::SimOptions options = SessionBench::smallDevice(static_cast<quint8>(i));
        options.seed = seed;
        m_devices.push_back(std::make_unique<RunningSimulator>(options));
        m_walls.push_back(nullptr);
        open(m_walls.size() - 1);
    }
}

Storm::~Storm()
{
    const auto listed = BizModel::DeviceList::instance()->devices();
    for (const auto &device : listed)
        BizModel::DeviceList::instance()->remove(device);
}

Sim::SimulatedDevice &Storm::device(std::size_t index)
{
    return *m_devices[index]->simulator;
}

void Storm::open(std::size_t index)
{
    m_walls[index] = m_session.open(QStringLiteral("127.0.0.1"), device(index).port());
    watchStates(wall(index));
}

void Storm::watchStates(DeviceSession &wall)
{
    QObject::connect(&wall, &DeviceSession::stateChanged, &m_context,
                     [this, &wall, before = wall.state().kind]() mutable {
                         const DeviceState::Kind now = wall.state().kind;
                         const bool isConnected =
                             now == DeviceState::Reading || now == DeviceState::Ready;
                         if (!mayFollow[before][now])
                             m_violations << QStringLiteral("%1 after %2")
                                                 .arg(QLatin1String(stateNames[now]),
                                                      QLatin1String(stateNames[before]));
                         if (wall.device() && wall.device()->isOnline() != isConnected)
                             m_violations << QStringLiteral("online flag of a device that is %1")
                                                 .arg(QLatin1String(stateNames[now]));
                         ++m_states[now];
                         before = now;
                     });
}

void Storm::follow(const PendingCall<Outcome> &call)
{
    ++m_calls;
    call.then(&m_context, [this, hasEnded = false](const Outcome &outcome) mutable {
        if (std::exchange(hasEnded, true))
            m_violations << QStringLiteral("ended twice: ") + outcome.text();
        ++m_ended;
        ++m_outcomes[outcome.kind()];
    });
}

void Storm::step()
{
    const int all =
        std::accumulate(actions.begin(), actions.end(), 0,
                        [](int sum, const Action &action) { return sum + action.weight; });
    int number = m_random.number(all);
    const Action *action = actions.data();
    while (number >= action->weight)
        number -= (action++)->weight;
    const auto count = static_cast<int>(m_walls.size());
    (this->*action->carryOut)(static_cast<std::size_t>(m_random.number(count)));
}

void Storm::end()
{
    for (std::size_t i = 0; i < m_walls.size(); ++i) {
        device(i).execute(QStringLiteral("fault clear"));
        device(i).execute(QStringLiteral("switch 1"));
        wall(i).open();
        wall(i).reconnectNow();
    }
}

bool Storm::isCalm() const
{
    return m_ended == m_calls
        && std::all_of(m_walls.begin(), m_walls.end(),
                       [](const DeviceSession *wall) { return wall->isReady(); });
}

QString Storm::summary() const
{
    QStringList parts{QStringLiteral("%1 calls").arg(m_calls)};
    constexpr const char *kinds[] = {"done", "refused", "not sent", "unknown"};
    for (std::size_t i = 0; i < m_outcomes.size(); ++i)
        parts << QStringLiteral("%1 %2").arg(m_outcomes[i]).arg(QLatin1String(kinds[i]));
    for (std::size_t i = 0; i < m_states.size(); ++i)
        parts << QStringLiteral("%1 times %2").arg(m_states[i]).arg(QLatin1String(stateNames[i]));
    return parts.join(QStringLiteral(", "));
}

void Storm::call(std::size_t index)
{
    follow(callAny(wall(index), m_random));
}

void Storm::drag(std::size_t index)
{
    for (int i = 0; i < 5; ++i)
        follow(dragTBar(wall(index), m_random));
}

void Storm::callGroup(std::size_t index)
{
    const std::size_t next = (index + 1) % m_walls.size();
    const ProtoModel::Device::s_swap swap;
    m_session.callAll({m_walls[index], m_walls[next]}, &Control::Device::writeSwap, swap)
        .then(&m_context, [this](const GroupOutcome &group) {
            if (group.outcomes.size() != 2)
                m_violations << QStringLiteral("a group without all outcomes");
        });
}

void Storm::cancel(std::size_t index)
{
    callAny(wall(index), m_random).future().cancel();
}

void Storm::control(std::size_t index)
{
    constexpr PendingCall<Outcome> (DeviceSession::*requests[])() = {
        &DeviceSession::takeControl, &DeviceSession::forceControl, &DeviceSession::releaseControl};
    follow((wall(index).*m_random.pick(requests))());
}

void Storm::disturb(std::size_t index)
{
    device(index).execute(QLatin1String(m_random.pick(disturbances)));
}

void Storm::addFault(std::size_t index)
{
    const QString rule =
        QStringLiteral("fault add %1%2,count=%3")
            .arg(QLatin1String(m_random.pick(faults)), QLatin1String(m_random.pick(exchanges)))
            .arg(m_random.number(2) + 1);
    device(index).execute(rule); // some faults do not apply to each exchange
}

void Storm::switchOff(std::size_t index)
{
    const bool isOn = !m_random.chance(3);
    device(index).execute(isOn ? QStringLiteral("switch 1") : QStringLiteral("switch 0"));
}

void Storm::read(std::size_t index)
{
    wall(index).readAgain();
}

void Storm::reconnect(std::size_t index)
{
    wall(index).reconnectNow();
}

void Storm::close(std::size_t index)
{
    if (m_random.chance(2))
        wall(index).close();
    else
        wall(index).open();
}

void Storm::reopen(std::size_t index)
{
    delete m_walls[index];
    open(index);
}
