// More callers at the same time than the split exchanges that a device can keep: all of them
// succeed. Answers that are too long together for the device: the oldest is lost.

#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/screen.h>

#include <support/common/requestcommand.h>
#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/packetsize.h>
#include <support/tavorosim/simulatedconnection.h>

#include <QLoggingCategory>
#include <QTest>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

using namespace CommandCodes;
using namespace Tavoro;

namespace {

constexpr int callers = 64;
constexpr int rounds = 5;

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

constexpr int mebibyte = 1 << 20;

/// A device that keeps six answers of 10 MiB, which it sends in three packets each.
class LongAnswers : public SimulatedConnection {
public:
    LongAnswers() : SimulatedConnection(packetsOf(4 * mebibyte))
    {
        const QString name(10 * mebibyte, QLatin1Char('n'));
        if (!simulator->execute(QStringLiteral("group 1 ") + name).ok)
            qFatal("the device does not take the name");
    }

    /// Reads the first packets of as many answers as make the device forget an older one.
    void beginReads() const
    {
        for (int i = 0; i < 7; ++i) {
            const auto response = channel->sendSyncRequest(requestCommand(1, groupInfo));
            QCOMPARE(int(response->status), 0);
            QCOMPARE(quint32(response->head().totalCount), 3u);
        }
    }

    bool readGroups(QString &error) const
    {
        ProtoModel::Device::s_DeviceGroupInfos groups;
        return Control::Device(model).readDeviceGroupInfo(groups, error)
            && groups.groupInfos.at(0).groupName.size() == 10 * mebibyte;
    }
};

} // namespace

class tst_SplitCallers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false")); }

    void readsOfManyCallersSucceed();
    void writesOfManyCallersSucceed();
    void answerForgottenBeforeItsLastPacketEndsTheRead();
    void answerForgottenBeforeItsLastPacketEndsTheStreamedRead();
};

void tst_SplitCallers::readsOfManyCallersSucceed()
{
    const SimulatedConnection connection(packetsOf(500));
    const auto readScreens = [&](int /*caller*/, QString &error) {
        std::vector<ProtoModel::Screen::s_ScreenFullDetail> screens;
        return Control::Screen(connection.model).readDetails(1, 0, -1, screens, error)
            && screens.size() == 1;
    };
    QCOMPARE(failuresOf(readScreens), 0);
}

void tst_SplitCallers::writesOfManyCallersSucceed()
{
    const SimulatedConnection connection(packetsOf(500));
    const auto rename = [&](int caller, QString &error) {
        ProtoModel::Screen::s_General general{{4, 4}, {}};
        general.general.name = std::string(1000, static_cast<char>('0' + caller)); // three packets
        return Control::Screen(connection.model).writeScreenGeneral({general}, error);
    };
    QCOMPARE(failuresOf(rename), 0);
}

void tst_SplitCallers::answerForgottenBeforeItsLastPacketEndsTheRead()
{
    const LongAnswers device;
    auto afterTheSecondPacket = std::make_unique<QObject>();
    QObject::connect(
        BizModel::DeviceList::instance(),
        &BizModel::DeviceList::signalReadDataFromHWProgressChanged, afterTheSecondPacket.get(),
        [&] { device.beginReads(); }, Qt::DirectConnection);
    QString error;
    QVERIFY(!device.readGroups(error));
    QCOMPARE(error, QStringLiteral("Get device group information failed: hardware error:6 ."));
    afterTheSecondPacket.reset();
    QVERIFY(device.readGroups(error));
}

void tst_SplitCallers::answerForgottenBeforeItsLastPacketEndsTheStreamedRead()
{
    const LongAnswers device;
    Control::File file(device.model);
    const std::string content(10 * mebibyte, 'c');
    ProtoModel::File::s_FileInfo info;
    info.fileType = 2;
    info.fileId = 1;
    info.size.length = 10 * mebibyte;
    QString error;
    QVERIFY2(file.importFile({info}, error), qPrintable(error));
    QVERIFY2(file.importFileBinary({1, 2}, content, error), qPrintable(error));

    QStringList calls;
    const auto callback = [&](bool ok, double progress, const std::string &data, QString &reason) {
        calls << QStringLiteral("%1 %2 %3").arg(int(ok)).arg(progress, 0, 'f', 2).arg(data.size());
        if (!ok)
            error = reason;
        else if (calls.size() == 1)
            device.beginReads();
    };
    QVERIFY(!file.readBinary(2, 1, callback));
    QCOMPARE(calls, (QStringList{QStringLiteral("1 0.33 4194304"), QStringLiteral("0 0.33 0")}));
    QCOMPARE(error, QStringLiteral("Get file export information failed: hardware error:6 ."));
}

QTEST_GUILESS_MAIN(tst_SplitCallers)
#include "tst_splitcallers.moc"
