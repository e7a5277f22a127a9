// Control of a device between two clients, from the operations of the library to the simulated
// device and back.

#include <support/common/requestcommand.h>
#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/simulatedconnection.h>

#include <tavorocontrol/screen.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QTest>

#include <mutex>
#include <utility>
#include <vector>

using namespace CommandCodes;
using namespace Tavoro;
using namespace Tavoro::SSProxy;

namespace {

using States = std::vector<bool>;

/// What the manager reports about a channel, on the channels' thread.
class ReportedControl {
public:
    ReportedControl()
    {
        auto *const manager = DeviceManager::instance();
        QObject::connect(
            manager, &DeviceManager::masterControlChanged, &m_context,
            [log = m_log](const std::weak_ptr<DeviceChannel> &channel, bool isMaster) {
                const std::lock_guard lock(log->mutex);
                log->entries.emplace_back(channel, isMaster);
            },
            Qt::DirectConnection);
    }

    States of(const std::shared_ptr<DeviceChannel> &channel) const
    {
        States states;
        const std::lock_guard lock(m_log->mutex);
        for (const auto &[reported, isMaster] : m_log->entries) {
            if (reported.lock() == channel)
                states.push_back(isMaster);
        }
        return states;
    }

private:
    struct Log {
        std::mutex mutex;
        std::vector<std::pair<std::weak_ptr<DeviceChannel>, bool>> entries; // guarded by mutex
    };

    const std::shared_ptr<Log> m_log = std::make_shared<Log>();
    QObject m_context;
};

} // namespace

class tst_ControlLoopback : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void lossOfControlIsReportedAndRefusesOperations();
    void requestForControlNamesWhoHoldsIt();
    void forcedControlIsReportedAndRefusesTheOther();

private:
    bool freeze(QString &error)
    {
        return Control::Screen(m_client->model).writeFreeze({{{1, 1}, 1}}, error);
    }
    bool request(ControlAction action, QString &error)
    {
        const auto &model = *m_client->model;
        return DeviceManager::instance()->sendTavoroControlRequest(model.IPAddress(), model.MAC(),
                                                                   model.sn(), action, error);
    }
    int otherWrites();

    std::unique_ptr<ReportedControl> m_reported;
    std::unique_ptr<SimulatedConnection> m_client; // known to the manager
    std::shared_ptr<NetworkChannel> m_other; // unknown to the manager
};

void tst_ControlLoopback::init()
{
    m_reported = std::make_unique<ReportedControl>();
    m_client = std::make_unique<SimulatedConnection>();
    m_other = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), m_client->simulator->port());
    QString error;
    QVERIFY2(m_other->waitUntilReady(10000, error), qPrintable(error));
}

void tst_ControlLoopback::cleanup()
{
    m_other->stopChannel();
    m_other.reset();
    m_client.reset();
    m_reported.reset();
}

/// The status of a write by the other client.
int tst_ControlLoopback::otherWrites()
{
    return m_other->sendSyncRequest(requestCommand(2, deviceSwap, swapOff))->status;
}

void tst_ControlLoopback::lossOfControlIsReportedAndRefusesOperations()
{
    QCOMPARE(otherWrites(), 0);
    QTRY_COMPARE(m_reported->of(m_client->channel), States{false});
    QVERIFY(!m_client->channel->isMasterControl());
    QString error;
    QVERIFY(!freeze(error));
    QCOMPARE(error,
             QStringLiteral("Set screen freeze information failed: "
                            "The current device is already under control ."));
    QVERIFY(m_other->isMasterControl());
    QCOMPARE(m_reported->of(m_other), States{});
}

void tst_ControlLoopback::requestForControlNamesWhoHoldsIt()
{
    QCOMPARE(otherWrites(), 0);
    const auto &model = *m_client->model;
    QString error;
    QVERIFY(!DeviceManager::instance()->sendTavoroControlRequest(model.IPAddress(), model.MAC(),
                                                                 model.sn(), error));
    const QString sentence =
        QStringLiteral("The device at 127.0.0.1:%1 is controlled by 127.0.0.1:")
            .arg(m_client->simulator->port());
    QVERIFY2(error.startsWith(sentence), qPrintable(error));
    QVERIFY2(error.mid(sentence.size()).chopped(1).toUShort() > 0, qPrintable(error));
    QVERIFY(error.endsWith(QLatin1Char('.')));
}

void tst_ControlLoopback::forcedControlIsReportedAndRefusesTheOther()
{
    QCOMPARE(otherWrites(), 0);
    QTRY_COMPARE(m_reported->of(m_client->channel), States{false});
    QString error;
    QVERIFY2(request(ControlAction::Force, error), qPrintable(error));
    QTRY_COMPARE(m_reported->of(m_client->channel), (States{false, true}));
    QTRY_COMPARE(m_reported->of(m_other), States{false});
    QCOMPARE(otherWrites(), 67);
    QVERIFY2(freeze(error), qPrintable(error));
}

QTEST_GUILESS_MAIN(tst_ControlLoopback)
#include "tst_controlloopback.moc"
