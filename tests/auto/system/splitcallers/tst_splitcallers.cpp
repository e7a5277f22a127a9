// More callers at the same time than the split exchanges that a device can keep: all of them
// succeed.

#include <tavorocontrol/screen.h>

#include <support/tavorosim/simulatedconnection.h>

#include <QLoggingCategory>
#include <QTest>

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

using namespace Tavoro;

namespace {

constexpr int callers = 64;
constexpr int rounds = 5;

Sim::SimOptions smallPackets()
{
    Sim::SimOptions options;
    options.packetSize = 500;
    return options;
}

/// Runs \a operation in many threads at once, several times in each, and counts its failures.
int failuresOf(const std::function<bool(int caller, QString &error)> &operation)
{
    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    for (int caller = 0; caller < callers; ++caller) {
        threads.emplace_back([&, caller] {
            for (int i = 0; i < rounds; ++i) {
                QString error;
                failures += operation(caller, error) ? 0 : 1;
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    return failures;
}

} // namespace

class tst_SplitCallers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false")); }

    void readsOfManyCallersSucceed();
    void writesOfManyCallersSucceed();
};

void tst_SplitCallers::readsOfManyCallersSucceed()
{
    const SimulatedConnection connection(smallPackets());
    const auto readScreens = [&](int /*caller*/, QString &error) {
        std::vector<ProtoModel::Screen::s_ScreenFullDetail> screens;
        return Control::Screen(connection.model).readDetails(1, 0, -1, screens, error)
            && screens.size() == 1;
    };
    QCOMPARE(failuresOf(readScreens), 0);
}

void tst_SplitCallers::writesOfManyCallersSucceed()
{
    const SimulatedConnection connection(smallPackets());
    const auto rename = [&](int caller, QString &error) {
        ProtoModel::Screen::s_General general{{4, 4}, {}};
        general.general.name = std::string(1000, static_cast<char>('0' + caller)); // three packets
        return Control::Screen(connection.model).writeScreenGeneral({general}, error);
    };
    QCOMPARE(failuresOf(rename), 0);
}

QTEST_GUILESS_MAIN(tst_SplitCallers)
#include "tst_splitcallers.moc"
