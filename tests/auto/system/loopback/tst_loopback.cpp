// The whole path: an operation of the library, the channel, TCP, the simulated device, and back;
// and a report from the device into the model.

#include <support/tavorosim/packetsize.h>
#include <support/tavorosim/simulatedconnection.h>

#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/autoreportmanager.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/interface.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/screen.h>

#include <QSignalSpy>
#include <QTest>

#include <atomic>
#include <thread>
#include <vector>

using namespace Tavoro;
using Tavoro::BizModel::DeviceList;
using Tavoro::Sim::SimOptions;

class tst_Loopback : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void writtenTextIsReadBack();
    void longAnswersAndLongWritesAreSplitIntoPackets();
    void allIsReadAsASynchronisationReadsIt();
    void filtersReachTheDevice();
    void removeAllReachesTheDevice();
    void aRefusalIsReturnedAsAText();
    void threadsShareAChannelWithoutMixingAnswers();
    void splitWritesOfThreadsStayInTheirOrder();
    void reportsReachTheModel();
    void aDeviceThatIsGoneFailsTheOperation();
};

namespace {

std::string nameOf(const SimulatedConnection &connection)
{
    ProtoModel::Device::s_DeviceDetail detail;
    QString error;
    return Control::Device(connection.model).readDetails(detail, error) ? detail.general.name
                                                                        : error.toStdString();
}

} // namespace

void tst_Loopback::writtenTextIsReadBack()
{
    SimulatedConnection connection;
    Control::Device device(connection.model);
    QString error;
    QVERIFY2(device.writeDeviceGeneral({{"East", 1}}, error), qPrintable(error));
    QCOMPARE(nameOf(connection), std::string("East"));
}

void tst_Loopback::longAnswersAndLongWritesAreSplitIntoPackets()
{
    SimulatedConnection connection(packetsOf(100));
    QSignalSpy received(DeviceList::instance(), &DeviceList::signalReadDataFromHWProgressChanged);
    QSignalSpy sent(DeviceList::instance(), &DeviceList::signalSendData2HWProgressChanged);
    const std::string name(120, 'x'); // In a body of 149 bytes.
    QString error;
    QVERIFY(Control::Device(connection.model).writeDeviceGeneral({{name, 1}}, error));
    QCOMPARE(sent.count(), 2);
    QCOMPARE(sent.last().at(0).toDouble(), 1.0);
    QCOMPARE(nameOf(connection), name);
    QVERIFY(received.count() > 10);
    QCOMPARE(received.last().at(0).toDouble(), 1.0);
}

void tst_Loopback::allIsReadAsASynchronisationReadsIt()
{
    SimulatedConnection connection;
    QString error;
    std::vector<ProtoModel::Interface::s_InterfaceDetail> interfaces;
    std::vector<ProtoModel::Screen::s_ScreenFullDetail> screens;
    std::vector<ProtoModel::Layer::s_LayerFullDetail> layers;
    QVERIFY(Control::Interface(connection.model).readDetails(0, -1, interfaces, error));
    QVERIFY(Control::Screen(connection.model).readDetails(-1, 0, -1, screens, error));
    QVERIFY(Control::Layer(connection.model).readDetails(-1, -1, -1, -1, layers, error));
    QCOMPARE(int(interfaces.size()), 16);
    QCOMPARE(int(screens.size()), 4);
    QCOMPARE(int(layers.size()), 32);
}

void tst_Loopback::filtersReachTheDevice()
{
    SimulatedConnection connection;
    Control::Layer layer(connection.model);
    QString error;
    std::vector<ProtoModel::Layer::s_LayerFullDetail> programme;
    QVERIFY(layer.readDetails(2, 2, 4, -1, programme, error));
    QCOMPARE(int(programme.size()), 4);
    for (const ProtoModel::Layer::s_LayerFullDetail &found : programme) {
        QCOMPARE(int(found.layerIdenti.screenId), 2);
        QCOMPARE(found.layerIdenti.sceneType, 4);
    }
}

void tst_Loopback::removeAllReachesTheDevice()
{
    SimulatedConnection connection;
    Control::Layer layer(connection.model);
    QString error;
    QVERIFY(layer.writeRemoved({}, error)); // An empty list removes nothing.
    QVERIFY(layer.writeRemovedAll(2, 2, error));
    std::vector<ProtoModel::Layer::s_LayerFullDetail> layers;
    QVERIFY(layer.readDetails(-1, -1, -1, -1, layers, error));
    QCOMPARE(int(layers.size()), 24);
}

void tst_Loopback::aRefusalIsReturnedAsAText()
{
    SimulatedConnection connection;
    QString error;
    QVERIFY(!Control::Screen(connection.model).writeFreeze({{{9, 1}, 1}}, error));
    QCOMPARE(error, QStringLiteral("Set screen freeze information failed: hardware error:3 ."));
}

void tst_Loopback::threadsShareAChannelWithoutMixingAnswers()
{
    SimulatedConnection connection(packetsOf(500));
    std::atomic<int> wrongAnswers{0};
    const auto readScreen = [&](int id) {
        Control::Screen screen(connection.model);
        for (int i = 0; i < 20; ++i) {
            QString error;
            std::vector<ProtoModel::Screen::s_ScreenFullDetail> screens;
            const bool isRight = screen.readDetails(id, 0, -1, screens, error)
                && screens.size() == 1 && screens[0].screenId == id;
            wrongAnswers += isRight ? 0 : 1;
        }
    };
    const auto writeScreen = [&] {
        Control::Screen screen(connection.model);
        for (int i = 0; i < 20; ++i) {
            ProtoModel::Screen::s_General general{{4, 4}, {}};
            general.general.name = std::string(1000, char('a' + i)); // In three packets.
            QString error;
            wrongAnswers += screen.writeScreenGeneral({general}, error) ? 0 : 1;
        }
    };
    std::vector<std::thread> threads;
    for (int id = 1; id <= 4; ++id)
        threads.emplace_back(readScreen, id);
    threads.emplace_back(writeScreen);
    for (std::thread &thread : threads)
        thread.join();
    QCOMPARE(wrongAnswers.load(), 0);
}

/// A packet out of its order would be refused, and one in another's write would show in a name.
void tst_Loopback::splitWritesOfThreadsStayInTheirOrder()
{
    constexpr int writers = 3;
    SimulatedConnection connection(packetsOf(500));
    std::atomic<int> failures{0};
    const auto nameFor = [](int id) {
        return std::string(4000, static_cast<char>('a' + id)); // In nine packets.
    };
    const auto rename = [&](int id) {
        Control::Screen screen(connection.model);
        ProtoModel::Screen::s_General general{{static_cast<quint8>(id), id}, {}};
        general.general.name = nameFor(id);
        for (int i = 0; i < 20; ++i) {
            QString error;
            failures += screen.writeScreenGeneral({general}, error) ? 0 : 1;
        }
    };
    std::vector<std::thread> threads;
    for (int id = 1; id <= writers; ++id)
        threads.emplace_back(rename, id);
    for (auto &thread : threads)
        thread.join();
    QCOMPARE(failures.load(), 0);
    for (int id = 1; id <= writers; ++id) {
        QString error;
        std::vector<ProtoModel::Screen::s_ScreenFullDetail> screens;
        QVERIFY(Control::Screen(connection.model).readDetails(id, 0, -1, screens, error));
        QCOMPARE(screens.size(), std::size_t(1));
        QCOMPARE(screens[0].general.name, nameFor(id));
    }
}

void tst_Loopback::reportsReachTheModel()
{
    QVERIFY(Control::AutoReportManager::instance());
    SimulatedConnection connection;
    DeviceList::instance()->append(connection.model);
    QString error;
    QVERIFY(Control::Device(connection.model).readDeviceDetails(error));
    QCOMPARE(connection.model->deviceDetail().powers.at(1).status, 1);
    QVERIFY(connection.simulator->execute(QStringLiteral("power 2 0")).ok);
    QTRY_COMPARE(connection.model->deviceDetail().powers.at(1).status, 0);
    QVERIFY(connection.simulator->execute(QStringLiteral("genlock 0")).ok);
    QTRY_COMPARE(connection.model->deviceDetail().genlockSignal.status, 0);
    DeviceList::instance()->remove(connection.model);
}

void tst_Loopback::aDeviceThatIsGoneFailsTheOperation()
{
    SimulatedConnection connection;
    connection.simulator.reset();
    QString error;
    QVERIFY(!Control::Screen(connection.model).writeFreeze({{{1, 1}, 1}}, error));
    // The loss may be noticed before or after the request.
    const QStringList sentences{
        QStringLiteral("Set screen freeze information failed: The device is offline ."),
        QStringLiteral("Set screen freeze information failed: software error: Channel "
                       "disconnected .")};
    QVERIFY2(sentences.contains(error), qPrintable(error));
}

QTEST_GUILESS_MAIN(tst_Loopback)
#include "tst_loopback.moc"
