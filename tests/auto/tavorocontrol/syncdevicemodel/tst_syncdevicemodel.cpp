#include <support/common/markingtranslator.h>
#include <support/tavorocontrol/interferingchannel.h>
#include <support/tavorocontrol/requestpath.h>
#include <support/tavorocontrol/synchronised.h>

#include <tavorossproxy/devicemanager.h>

#include <QtTest>

#include <stdexcept>

using namespace Tavoro;

/// The model after a synchronisation.
class tst_SyncDeviceModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newDeviceEntersTheListComplete();
    void newDeviceIsOwnedByTheListAlone();
    void knownDeviceIsFilledInPlace();
    void knownDeviceIsClearedBeforeTheFirstRequest();
    void unreadPartsOfAKnownDeviceAreRemoved();
    void knownDeviceEmitsNothingWhileItIsFilled();
    void knownDeviceEmitsAgainAfterAnException();
    void modelGetsTheOutcomeOfTheReads();
    void identityComesFromTheChannel();
    void nameOfTheChannelReplacesAMissingName_data();
    void nameOfTheChannelReplacesAMissingName();
    void deviceThatHasLostItsAddressGetsItBack();
    void missingChannelMakesTheDeviceOffline();
    void missingChannelDoesNotChangeTheName();
    void offlineMessageIsTranslated();
    void failedModelStepsAreReported_data();
    void failedModelStepsAreReported();
    void everyModelStepFailsByItself();
    void deviceWithoutAddressDoesNotReachTheModel();
};

namespace {

/// Counts of interfaces, screens, layers and files.
QList<int> counts(const BizModel::Device &device)
{
    return {int(device.interfaces().size()), int(device.screens(30).size()),
            int(device.layers().size()), int(device.files().size())};
}

/// Removes the channel while the last request of a run is in flight.
void loseChannelAtLastRequest(Synchronised &it)
{
    ScriptedAnswer last = ScriptedAnswer::packet("a picture");
    last.before = [&it] {
        it.device.removeChannel();
    };
    it.channel->replyContent(12, 1, last);
}

} // namespace

void tst_SyncDeviceModel::newDeviceEntersTheListComplete()
{
    Synchronised it;
    int appended = 0;
    QList<int> seen;
    connect(
        BizModel::DeviceList::instance(), &BizModel::DeviceList::signalDeviceAppended, this,
        [&](const std::weak_ptr<BizModel::Device> &device) {
            ++appended;
            seen = counts(*device.lock());
            QVERIFY(device.lock()->isOnline());
            QVERIFY(device.lock()->isSyncDataSuccess());
            QVERIFY(!device.lock()->signalsBlocked());
            QVERIFY(device.lock()->activedScreen().lock());
        },
        Qt::DirectConnection);
    it.run();
    BizModel::DeviceList::instance()->disconnect(this);
    QCOMPARE(appended, 1);
    QCOMPARE(seen, (QList<int>{1, 2, 1, 2}));
    QVERIFY(it.listed() != it.device.model);
}

void tst_SyncDeviceModel::newDeviceIsOwnedByTheListAlone()
{
    Synchronised it;
    it.run();
    const std::weak_ptr<BizModel::Device> device = it.listed();
    it.task.resetDevice();
    BizModel::DeviceList::instance()->remove(device);
    QVERIFY(device.expired());
}

void tst_SyncDeviceModel::knownDeviceIsFilledInPlace()
{
    Synchronised it;
    it.makeKnown();
    const QSignalSpy appended(BizModel::DeviceList::instance(),
                              &BizModel::DeviceList::signalDeviceAppended);
    it.run();
    QCOMPARE(it.listed(), it.device.model);
    QVERIFY(appended.isEmpty());
    QCOMPARE(counts(*it.device.model), (QList<int>{1, 2, 1, 2}));
    QVERIFY(it.device.model->isOnline());
}

void tst_SyncDeviceModel::knownDeviceIsClearedBeforeTheFirstRequest()
{
    Synchronised it;
    it.run();
    QCOMPARE(counts(*it.listed()), (QList<int>{1, 2, 1, 2}));
    QList<int> seen;
    ScriptedAnswer clock;
    clock.before = [&] {
        seen = counts(*it.listed());
    };
    it.channel->reply(0xFC0C, clock);
    it.task.resetDevice();
    it.run();
    QCOMPARE(seen, (QList<int>{0, 0, 0, 0}));
    QCOMPARE(counts(*it.listed()), (QList<int>{1, 2, 1, 2}));
}

void tst_SyncDeviceModel::unreadPartsOfAKnownDeviceAreRemoved()
{
    Synchronised it;
    it.run();
    it.task.resetDevice();
    it.channel->reply(0x1300, ScriptedAnswer::refusal(5));
    it.run();
    QCOMPARE(counts(*it.listed()), (QList<int>{1, 0, 0, 2}));

    it.task.resetDevice();
    it.channel->reply(0x1100, ScriptedAnswer::refusal(5));
    it.run();
    QCOMPARE(counts(*it.listed()), (QList<int>{0, 0, 0, 0}));
}

// The model emits only that it was cleared, before the first request.
void tst_SyncDeviceModel::knownDeviceEmitsNothingWhileItIsFilled()
{
    Synchronised it;
    it.makeKnown();
    QList<int> requestsBefore;
    connect(
        it.device.model.get(), &BizModel::Device::deviceDataChanged, this,
        [&] { requestsBefore << int(it.asked().size()); }, Qt::DirectConnection);
    it.run();
    QVERIFY(!requestsBefore.isEmpty());
    QCOMPARE(requestsBefore.count(0), int(requestsBefore.size()));
    QVERIFY(!it.device.model->signalsBlocked());
}

void tst_SyncDeviceModel::knownDeviceEmitsAgainAfterAnException()
{
    const auto channel = std::make_shared<InterferingChannel>();
    Synchronised it(channel);
    it.makeKnown();
    channel->watched = it.device.model;
    channel->interfere = [] {
        throw std::runtime_error("out of memory");
    };
    QVERIFY(it.runThrows());
    QVERIFY(!it.device.model->signalsBlocked());
}

void tst_SyncDeviceModel::modelGetsTheOutcomeOfTheReads()
{
    Synchronised it;
    it.channel->reply(0xFC0C, ScriptedAnswer::refusal(5));
    it.run();
    QVERIFY(!it.listed()->isSyncDataSuccess());
    QVERIFY(it.task.isSyncSucess()); // the outcome is that of the layers

    // Conversely, all reads succeed, but the layers name a screen that does not exist.
    it.task.resetDevice();
    it.channel->reply(0xFC0C, {});
    it.channel->replyBody(0x1400, R"([{"layerIdenti":{"screenId":200,"screenType":1}}])");
    it.run();
    QVERIFY(it.listed()->isSyncDataSuccess());
    QVERIFY(!it.task.isSyncSucess());
}

void tst_SyncDeviceModel::identityComesFromTheChannel()
{
    Synchronised it;
    it.makeKnown();
    it.device.model->setName(QStringLiteral("old"));
    it.device.model->setModelId(1);
    // The detail of the device names it last.
    it.channel->replyBody(0x1100, R"({"general":{"name":"desk","status":1}})");
    it.channel->info.protocolVersion = 9;
    it.run();
    QCOMPARE(it.listed()->name(), QStringLiteral("desk"));
    QCOMPARE(it.listed()->modelId(), quint16(0x7701));
    QCOMPARE(it.listed()->tcpProtocolVersion(), quint16(9));
    QCOMPARE(it.listed()->IPAddress(), it.ip());
}

void tst_SyncDeviceModel::nameOfTheChannelReplacesAMissingName_data()
{
    QTest::addColumn<QString>("channelName");
    QTest::addColumn<QString>("readName");
    QTest::addColumn<QString>("name");

    const QString none = QStringLiteral("N/A");
    const QString proxy = QStringLiteral("proxy");
    const QString desk = QStringLiteral("desk");
    QTest::newRow("no name") << proxy << none << proxy;
    QTest::newRow("neither") << QString() << none << none;
    QTest::newRow("both") << proxy << desk << desk;
    QTest::newRow("empty is a name") << proxy << QString() << QString();
}

void tst_SyncDeviceModel::nameOfTheChannelReplacesAMissingName()
{
    QFETCH(const QString, channelName);
    QFETCH(const QString, readName);
    QFETCH(const QString, name);
    Synchronised it;
    it.channel->info.name = channelName.toStdString();
    it.channel->replyBody(0x1100,
                          R"({"general":{"name":")" + readName.toStdString() + R"(","status":1}})");
    it.run();
    QCOMPARE(it.task.deviceDetail().general.name, name.toStdString());
    QCOMPARE(it.listed()->name(), name);
}

void tst_SyncDeviceModel::deviceThatHasLostItsAddressGetsItBack()
{
    const auto channel = std::make_shared<InterferingChannel>();
    Synchronised it(channel);
    it.makeKnown();
    channel->watched = it.device.model;
    channel->interfere = [&] {
        it.device.model->setIPAddress(QString());
    };
    it.run();
    QCOMPARE(it.device.model->IPAddress(), it.ip());
    QCOMPARE(it.listed(), it.device.model);
}

void tst_SyncDeviceModel::missingChannelMakesTheDeviceOffline()
{
    Synchronised it;
    it.makeKnown();
    it.device.model->setDeviceOnlineFlag(true);
    loseChannelAtLastRequest(it);
    it.run();
    QCOMPARE(it.lines(),
             modelStep(textLines({"warning: Sync device model failed, device offline",
                                  "status bar 2 for 5000 ms: Device offline"})));
    QVERIFY(!it.listed()->isOnline());
    QVERIFY(it.listed()->isSyncDataSuccess());
    QCOMPARE(counts(*it.listed()),
             (QList<int>{1, 2, 1, 2})); // the model step continues with what was read
    QVERIFY(it.task.isSyncSucess());
}

void tst_SyncDeviceModel::missingChannelDoesNotChangeTheName()
{
    Synchronised it;
    it.channel->replyBody(0x1100, R"({"general":{"status":1}})");
    loseChannelAtLastRequest(it);
    it.run();
    QCOMPARE(it.task.deviceDetail().general.name, std::string("N/A"));
    QCOMPARE(it.listed()->name(), QStringLiteral("N/A"));
    QCOMPARE(it.listed()->modelId(), quint16(0x7701)); // as before the synchronisation
}

void tst_SyncDeviceModel::offlineMessageIsTranslated()
{
    MarkingTranslator translator("Tavoro::Control::SyncDeviceTask");
    QVERIFY(QCoreApplication::installTranslator(&translator));
    Synchronised it;
    loseChannelAtLastRequest(it);
    it.run();
    QVERIFY(
        it.journal.lines().contains(QStringLiteral("status bar 2 for 5000 ms: <Device offline>")));
    // The log line is not translated.
    QVERIFY(it.journal.lines().contains(
        QStringLiteral("warning: Sync device model failed, device offline")));
}

namespace {

struct ModelRow {
    const char *name;
    quint16 code;
    const char *body; ///< Contains one identity twice.
    const char *warning;
    bool success;
};

// clang-format off
const std::vector<ModelRow> modelRows = {
    {"device",     0x1100, R"({"general":{"status":1},"subcards":[{"slotId":4},{"slotId":4}]})",
     R"(warning: Create device model failed, "Subcard 4 occurs twice.")", true},
    {"interfaces", 0x1200, R"([{"interfaceId":{"slotId":1,"connectorId":2}},{"interfaceId":{"slotId":1,"connectorId":2}}])",
     R"(warning: Create interface model failed, "Interface 1/2/0 occurs twice.")", true},
    {"files",      0xFA00, R"([{"fileId":4,"fileType":10},{"fileId":4,"fileType":10}])",
     R"(warning: Create file model failed, "File 4 of type 10 occurs twice.")", true},
    {"screens",    0x1300, R"([{"screenId":1,"screenType":1},{"screenId":1,"screenType":1}])",
     R"(warning: Create screen model failed, "Screen 1 of type 1 occurs twice.")", true},
    {"layers",     0x1400, R"([{"layerIdenti":{"screenId":9,"screenType":1,"layerId":5,"sceneType":4}}])",
     R"(warning: Create layer model failed, "Layer 5 of type 0 in scene 4 on screen 9 of type 1: the device does not have the screen.")", false},
};
// clang-format on

} // namespace

void tst_SyncDeviceModel::failedModelStepsAreReported_data()
{
    QTest::addColumn<int>("row");
    for (std::size_t i = 0; i < modelRows.size(); ++i)
        QTest::newRow(modelRows[i].name) << int(i);
}

void tst_SyncDeviceModel::failedModelStepsAreReported()
{
    QFETCH(const int, row);
    const ModelRow &step = modelRows[std::size_t(row)];
    Synchronised it;
    it.channel->replyBody(step.code, step.body);
    it.run();
    const QString warning = QString::fromLatin1(step.warning);
    QCOMPARE(it.lines(), modelStep({warning}));
    QCOMPARE(it.task.isSyncSucess(), step.success);
    QVERIFY(it.listed()->isSyncDataSuccess()); // all reads succeeded
    QCOMPARE(it.task.errorMsg(), warning.section(QLatin1Char('"'), 1, 1));
}

// In the order of the model steps, which differs from that of the reads.
void tst_SyncDeviceModel::everyModelStepFailsByItself()
{
    Synchronised it;
    QStringList warnings;
    for (const ModelRow &step : modelRows) {
        it.channel->replyBody(step.code, step.body);
        warnings << QString::fromLatin1(step.warning);
    }
    it.run();
    QCOMPARE(it.lines(), modelStep(warnings));
    QCOMPARE(counts(*it.listed()), (QList<int>{1, 1, 0, 1})); // the valid part is in the model
}

void tst_SyncDeviceModel::deviceWithoutAddressDoesNotReachTheModel()
{
    Synchronised it;
    it.device.removeChannel();
    it.channel->info.ip.clear();
    SSProxy::DeviceManager::instance()->addDeviceChannel(it.channel);
    QVERIFY(it.task.setDevice(QString(), it.mac(), it.sn()));
    it.task.run();
    QCOMPARE(it.asked().size(), 8);
    QCOMPARE(it.lines(),
             textLines({"info: Sync device init model begin.",
                        "warning: Sync device model failed,Device ip invalid."}));
    QVERIFY(!it.task.isSyncSucess());
    QVERIFY(BizModel::DeviceList::instance()->devices().isEmpty());
}

QTEST_GUILESS_MAIN(tst_SyncDeviceModel)
#include "tst_syncdevicemodel.moc"
