#include <support/tavorocontrol/filetransfer.h>

#include <QtTest>

#include <thread>

using namespace Tavoro;
using Control::File;

namespace {

using ReadIntoCallback = bool (File::*)(int, int, StreamCallback);

[[maybe_unused]] constexpr ReadIntoCallback readIntoCallback = &File::readBinary;

constexpr auto packet = &ScriptedAnswer::packet;
constexpr auto refusal = &ScriptedAnswer::refusal;

QString cancelledText()
{
    return QStringLiteral("Operation has been cancelled.");
}

} // namespace

class tst_FileStreaming : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void streamedReadPassesOnEachPacket();
    void streamedReadReturnsItsFailure();
    void streamedReadOfADeviceThatIsGoneFails();
    void cancelBeforeAStreamedReadFailsItWithoutTraffic();
    void cancelStaysUntilItIsCleared();
    void cancelDoesNotAffectOtherFiles();
    void cancelFromAnotherThreadStopsAStreamedRead();
    void deviceStaysForTheLengthOfAStreamedRead();
    void emptyCallbackThrows();
};

void tst_FileStreaming::streamedReadPassesOnEachPacket()
{
    ControlledFile it;
    answerThreePackets(it);
    QVERIFY(it.control.readBinary(6, 3, recordCallsIn(it.journal)));
    QCOMPARE(linesWith(it, "callback: "),
             (QStringList{streamedCall(true, 1.0 / 3, "one"), streamedCall(true, 2.0 / 3, "two"),
                          streamedCall(true, 1, "three")}));
    QCOMPARE(heads(it), headsOfThreePackets());
    QCOMPARE(bodies(it), (QStringList{QString(), QString(), QString()}));
    QCOMPARE(linesWith(it, "reading: "), QStringList()); // the callback reports
}

void tst_FileStreaming::streamedReadReturnsItsFailure()
{
    ControlledFile it;
    it.device.channel->answer(refusal(9));
    QVERIFY(!it.control.readBinary(6, 3, recordCallsIn(it.journal)));
    QCOMPARE(linesWith(it, "callback: "),
             QStringList(streamedCall(
                 false, 0, {},
                 QStringLiteral("Get file export information failed: hardware error:9 ."))));
}

void tst_FileStreaming::streamedReadOfADeviceThatIsGoneFails()
{
    ControlledFile it;
    it.device.model.reset();
    QVERIFY(!it.control.readBinary(6, 3, recordCallsIn(it.journal)));
    QCOMPARE(
        linesWith(it, "callback: "),
        QStringList(streamedCall(
            false, 0, {},
            QStringLiteral("Get file export information failed: invalid device model data ."))));
}

void tst_FileStreaming::cancelBeforeAStreamedReadFailsItWithoutTraffic()
{
    ControlledFile it;
    it.control.setCancelledState(true);
    QVERIFY(!it.control.readBinary(6, 3, recordCallsIn(it.journal)));
    QCOMPARE(linesWith(it, "callback: "), QStringList(streamedCall(false, 0, {}, cancelledText())));
    QCOMPARE(it.sentCount(), std::size_t(0));
}

void tst_FileStreaming::cancelStaysUntilItIsCleared()
{
    ControlledFile it;
    it.control.setCancelledState(true);
    QVERIFY(!it.control.readBinary(6, 3, recordCallsIn(it.journal)));
    QVERIFY(!it.control.readBinary(6, 3, recordCallsIn(it.journal)));
    it.control.setCancelledState(false);
    QVERIFY(it.control.readBinary(6, 3, recordCallsIn(it.journal)));
}

void tst_FileStreaming::cancelDoesNotAffectOtherFiles()
{
    ControlledFile it;
    it.control.setCancelledState(true);
    File fresh(it.device.model, nullptr);
    QVERIFY(fresh.readBinary(6, 3, recordCallsIn(it.journal)));
}

void tst_FileStreaming::cancelFromAnotherThreadStopsAStreamedRead()
{
    ControlledFile it;
    it.device.channel->answer(packet("one", 3, 0));
    auto second = packet("two", 3, 1);
    second.before = [&it] {
        std::thread([&it] { it.control.setCancelledState(true); }).join();
    };
    it.device.channel->answer(second);
    QVERIFY(!it.control.readBinary(6, 3, recordCallsIn(it.journal)));
    QCOMPARE(linesWith(it, "callback: "),
             (QStringList{streamedCall(true, 1.0 / 3, "one"),
                          streamedCall(false, 1.0 / 3, {}, cancelledText())}));
}

void tst_FileStreaming::deviceStaysForTheLengthOfAStreamedRead()
{
    ControlledFile it;
    answerThreePackets(it);
    const std::weak_ptr<BizModel::Device> device = it.device.model;
    QStringList got;
    QVERIFY(it.control.readBinary(6, 3, [&](bool, double, const std::string &data, QString &) {
        it.device.model.reset();
        got << asText(data)
            << (device.expired() ? QStringLiteral("gone") : QStringLiteral("there"));
    }));
    QCOMPARE(got.join(QLatin1Char(' ')), QStringLiteral("one there two there three there"));
    QVERIFY(device.expired());
}

void tst_FileStreaming::emptyCallbackThrows()
{
    ControlledFile it;
    QVERIFY(throwsBadFunctionCall([&] { it.control.readBinary(6, 3, StreamCallback()); }));
}

QTEST_GUILESS_MAIN(tst_FileStreaming)
#include "tst_filestreaming.moc"
