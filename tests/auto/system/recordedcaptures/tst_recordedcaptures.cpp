// Plays recorded sessions back and checks that the library still interprets them in the same way.

#include <support/tavorobizmodel/modeltext.h>
#include <support/tavorocontrol/wholeread.h>
#include <support/tavorosim/recordeddevice.h>
#include <support/tavorossproxy/tcpconnection.h>

#include <tavorocontrol/autoreportmanager.h>
#include <tavorocontrol/device.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/devicemanager.h>

#include <QTest>

using namespace Tavoro;
using SSProxy::DeviceManager;

namespace {

QString captured(const char *name)
{
    return QStringLiteral(TEST_DATA_DIR "/captures/%1.txt").arg(QLatin1String(name));
}

/// The device of a capture, and a connection to it.
struct Played {
    explicit Played(const char *name) : device(captured(name)), connection(device.port()) { }

    Control::Device control() { return Control::Device(connection.model); }

    RecordedDevice device;
    TcpConnection connection;
};

/// The bodies of all answers to a command, in order.
QString answers(const char *name, quint16 code)
{
    QFile file(captured(name));
    std::vector<SSProxy::Wire::CapturedItem> items;
    std::string error;
    if (!file.open(QIODevice::ReadOnly)
        || !SSProxy::Wire::decodeCapture(file.readAll().toStdString(), items, error))
        qFatal("%s", error.c_str());
    QString bodies;
    for (const auto &item : items) {
        if (!item.isFromClient && item.frame.head.code() == code)
            bodies += QString::fromStdString(item.frame.body);
    }
    return bodies;
}

QString powers(const BizModel::Device &model)
{
    QStringList list;
    for (const auto &power : model.deviceDetail().powers)
        list << QStringLiteral("%1 %2 %3").arg(power.powerId).arg(power.iSignal).arg(power.status);
    return list.join(QStringLiteral(", "));
}

QString list(const QStringList &records)
{
    return QLatin1Char('[') + records.join(QLatin1Char(',')) + QLatin1Char(']');
}

} // namespace

class tst_RecordedCaptures : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void wholeDeviceIsSynchronised();
    void reportsChangeTheModel();
    void truncatedAnswerIsTooShort();
    void channelReconnectsAfterALostConnection();
    void writeUnderTheControlOfOthersIsRefused();
    void splitAnswerIsJoined();
};

void tst_RecordedCaptures::initTestCase()
{
    QVERIFY(Control::AutoReportManager::instance()); // on this thread
}

void tst_RecordedCaptures::cleanup()
{
    auto *const list = BizModel::DeviceList::instance();
    const auto devices = list->devices();
    for (const auto &device : devices)
        list->remove(device);
}

void tst_RecordedCaptures::wholeDeviceIsSynchronised()
{
    Played played("synchronisation");
    QVERIFY(readWhole(*played.connection.model));
    const auto device = listed(*played.connection.model);
    QVERIFY(device && device->isOnline() && device->isSyncDataSuccess());
    const ModelText model(*device);
    QCOMPARE(model.interfaces.size(), 2);
    QCOMPARE(model.detail, answers("synchronisation", 0x1100));
    QCOMPARE(list(model.interfaces), answers("synchronisation", 0x1200));
    QCOMPARE(list(model.screens), answers("synchronisation", 0x1300));
    QCOMPARE(list(model.layers), answers("synchronisation", 0x1400));
    QCOMPARE(list(model.files), QStringLiteral("[]"));
    QString error;
    QVERIFY(played.connection.channel->requestControl(SSProxy::ControlAction::GiveUp, error));
    QCOMPARE(played.device.surprises(), 0);
    QCOMPARE(played.device.unplayed(), 0);
}

void tst_RecordedCaptures::reportsChangeTheModel()
{
    Played played("reports");
    const auto model = played.connection.model;
    BizModel::DeviceList::instance()->append(model);
    QStringList reports;
    const auto connection =
        connect(DeviceManager::instance(), &DeviceManager::parseDeviceAutoReportFinished, this,
                [&](const auto &, const auto &report) {
                    reports << QStringLiteral("%1%2 %3")
                                   .arg(report->head().BC, 0, 16)
                                   .arg(report->head().FC, 2, 16, QLatin1Char('0'))
                                   .arg(QString::fromStdString(report->body()));
                });
    QString error;
    QVERIFY(played.control().writeSwap({0}, error));
    QTRY_COMPARE(
        reports,
        (QStringList{QStringLiteral(R"(1103 {"powers":[{"powerId":1,"iSignal":0,"status":0},)"
                                    R"({"powerId":2,"iSignal":1,"status":1}]})"),
                     QStringLiteral(R"(1105 {"genlockSignal":{"extSignalIn":0,"status":0}})"),
                     QStringLiteral(R"(1313 [{"screenId":1,"screenType":1,)"
                                    R"("genlockSignal":{"status":0}}])"),
                     QStringLiteral(R"(1209 [{"slotId":1,"connectorId":1,"splitId":0,)"
                                    R"("colorDepths":{"actualColorDepth":10,)"
                                    R"("presetColorDepth":255}}])")}));
    QCOMPARE(powers(*model), QStringLiteral("1 0 0, 2 1 1"));

    ProtoModel::Device::s_DeviceGroupInfos groups;
    QVERIFY(played.control().readDeviceGroupInfo(groups, error));
    QTRY_COMPARE(reports.size(), 5);
    QCOMPARE(reports.last(),
             QStringLiteral(R"(1103 {"powers":[{"powerId":1,"iSignal":1,"status":1},)"
                            R"({"powerId":2,"iSignal":1,"status":1}]})"));
    QTRY_COMPARE(powers(*model), QStringLiteral("1 1 1, 2 1 1"));
    disconnect(connection);
    QCOMPARE(played.device.surprises(), 0);
    QCOMPARE(played.device.unplayed(), 0);
}

void tst_RecordedCaptures::truncatedAnswerIsTooShort()
{
    Played played("halfanswer");
    QString error;
    QVERIFY(!played.control().readDeviceDetails(error));
    QCOMPARE(error,
             QStringLiteral("Get device detail information failed: "
                            "protocol error: Return data is too short ."));
    QCOMPARE(played.device.unplayed(), 0);
}

void tst_RecordedCaptures::channelReconnectsAfterALostConnection()
{
    Played played("lost");
    QString error;
    QVERIFY(!played.control().writeSwap({0}, error));
    QCOMPARE(error,
             QStringLiteral("Set device swap status information failed: "
                            "software error: Channel disconnected ."));
    QTRY_COMPARE(played.connection.channel->statistics().connections, quint64(2));
    ProtoModel::Device::s_DeviceGroupInfos groups;
    QVERIFY(played.control().readDeviceGroupInfo(groups, error));
    QVERIFY(groups.groupInfos.empty());
    QCOMPARE(played.device.unplayed(), 0);
}

void tst_RecordedCaptures::writeUnderTheControlOfOthersIsRefused()
{
    Played played("refused");
    QString error;
    QVERIFY(!played.control().writeSwap({1}, error));
    QCOMPARE(error,
             QStringLiteral("Set device swap status information failed: "
                            "The current device is already under control ."));
    QCOMPARE(played.device.unplayed(), 0);
}

void tst_RecordedCaptures::splitAnswerIsJoined()
{
    Played played("splitread");
    QString error;
    QVERIFY(played.control().readDeviceDetails(error));
    QCOMPARE(ModelText(*played.connection.model).detail, answers("splitread", 0x1100));
    QCOMPARE(played.device.surprises(), 0);
    QCOMPARE(played.device.unplayed(), 0);
}

QTEST_GUILESS_MAIN(tst_RecordedCaptures)
#include "tst_recordedcaptures.moc"
