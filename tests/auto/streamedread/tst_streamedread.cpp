#include <requestpath.h>
#include <streamedcalls.h>

#include <QFile>
#include <QThread>
#include <QtTest>

#include <cmath>
#include <thread>

using namespace Tavoro;

namespace {

using Answers = QList<ScriptedAnswer>;

enum Change {
    Nothing,
    ControlIsLost,
    IsCancelled,
    GoesOffline,
};

/// When a change comes: before the call, or while the packet with this index is in flight.
constexpr int beforeTheCall = -1;

/// What a failure tells, before the callback learns of it.
enum Telling {
    SentenceWithStatusBar,
    BareWarning,
    WarningWithDevice,
};

struct FailureRow {
    const char *name;
    Change change;
    int when;
    Answers answers;
    int handedOver; ///< Packets that the callback has had.
    const char *reason;
    Telling telling;
    const char *count; ///< At the end of the log line.
    double progress; ///< Told with the failure.
};

constexpr double third = 1.0 / 3;
constexpr double twoThirds = 2.0 / 3;

constexpr auto packet = &ScriptedAnswer::packet;
constexpr auto refusal = &ScriptedAnswer::refusal;
constexpr auto noResponse = &ScriptedAnswer::noResponse;

ScriptedAnswer one()
{
    return packet("one", 3, 0);
}

ScriptedAnswer two()
{
    return packet("two", 3, 1);
}

ScriptedAnswer three()
{
    return packet("three", 3, 2);
}

QStringList packetCalls(int count)
{
    const QStringList calls{streamedCall(true, third, "one"), streamedCall(true, twoThirds, "two"),
                            streamedCall(true, 1, "three")};
    return calls.mid(0, count);
}

constexpr char cancelled[] = "Operation has been cancelled.";
constexpr char controlled[] = "The device is controlled by others.";
constexpr char offline[] = "The device is offline";
constexpr char noObject[] = "invalid response command model data";

// clang-format off
const FailureRow failureRows[] = {
//   name                                        change         when           answers                                handed over
    {"channel not ready",                        GoesOffline,   beforeTheCall, {},                                    0, offline,                            SentenceWithStatusBar, "", 0},
    {"control lost before the first packet",     ControlIsLost, beforeTheCall, {},                                    0, controlled,                         BareWarning,           "", 0},
    {"no response",                              Nothing,       beforeTheCall, {noResponse()},                        0, noObject,                           SentenceWithStatusBar, "", 0},
    {"status of the device",                     Nothing,       beforeTheCall, {refusal(1)},                          0, "hardware error:1",                 SentenceWithStatusBar, "", 0},
    {"status 68 shows no box",                   Nothing,       beforeTheCall, {refusal(68)},                         0, "hardware error:68",                SentenceWithStatusBar, "", 0},
    {"status of the channel",                    Nothing,       beforeTheCall, {refusal(260)},                        0, "software error: Request timed out", SentenceWithStatusBar, "", 0},
    {"status of the decoder",                    Nothing,       beforeTheCall, {refusal(361)},                        0, "protocol error: Invalid checksum", SentenceWithStatusBar, "", 0},
    {"status without a text",                    Nothing,       beforeTheCall, {refusal(256)},                        0, "N/A",                              SentenceWithStatusBar, "", 0},
    {"control lost in the first packet",         ControlIsLost, 0,             {one()},                               0, controlled,                         BareWarning,           "", third},
    {"cancelled in the first packet",            IsCancelled,   0,             {one()},                               0, cancelled,                          WarningWithDevice,     "", third},
    {"first: status before control",             ControlIsLost, 0,             {refusal(9)},                          0, "hardware error:9",                 SentenceWithStatusBar, "", 0},
    {"first: status before cancel",              IsCancelled,   0,             {refusal(9)},                          0, "hardware error:9",                 SentenceWithStatusBar, "", 0},
    {"first: no response before cancel",         IsCancelled,   0,             {noResponse()},                        0, noObject,                           SentenceWithStatusBar, "", 0},
    {"offline behind the first packet",          GoesOffline,   0,             {one()},                               1, offline,                            SentenceWithStatusBar, "", third},
    {"control lost in the second packet",        ControlIsLost, 1,             {one(), two()},                        1, controlled,                         BareWarning,           "", third},
    {"cancelled in the second packet",           IsCancelled,   1,             {one(), two()},                        1, cancelled,                          WarningWithDevice,     "", third},
    {"second: control before status",            ControlIsLost, 1,             {one(), refusal(9)},                   1, controlled,                         BareWarning,           "", third},
    {"second: cancel before status",             IsCancelled,   1,             {one(), refusal(9)},                   1, cancelled,                          WarningWithDevice,     "", third},
    {"second: cancel before no response",        IsCancelled,   1,             {one(), noResponse()},                 1, cancelled,                          WarningWithDevice,     "", third},
    {"no response to the second packet",         Nothing,       beforeTheCall, {one(), noResponse()},                 1, noObject,                           SentenceWithStatusBar, R"( ",send count/total count:1/3")", third},
    {"second packet refused",                    Nothing,       beforeTheCall, {one(), refusal(67)},                  1, "The current device is already under control", SentenceWithStatusBar, R"( ",send count/total count:1/3")", third},
    {"offline behind the second packet",         GoesOffline,   1,             {one(), two()},                        2, offline,                            SentenceWithStatusBar, "", twoThirds},
    {"control lost in the last packet",          ControlIsLost, 2,             {one(), two(), three()},               2, controlled,                         BareWarning,           "", twoThirds},
    {"cancelled in the last packet",             IsCancelled,   2,             {one(), two(), three()},               2, cancelled,                          WarningWithDevice,     "", twoThirds},
    {"no response to the last packet",           Nothing,       beforeTheCall, {one(), two(), noResponse()},          2, noObject,                           SentenceWithStatusBar, R"( ",send count/total count:2/3")", twoThirds},
    {"last packet refused",                      Nothing,       beforeTheCall, {one(), two(), refusal(357)},          2, "protocol error: Invalid register address", SentenceWithStatusBar, R"( ",send count/total count:2/3")", twoThirds},
};
// clang-format on

/// Streams from a scripted device. The calls of the callback stand among the lines of the outcome,
/// in their order.
class StreamPath : public RequestPath {
public:
    Outcome stream(const Request &request, const StreamCallback &then = {})
    {
        Outcome outcome;
        outcome.ok = helper.sendSyncRequest(device.model, request, tellCallsTo(journal, then));
        outcome.lines = takeLines();
        return outcome;
    }

    void answer(const Answers &answers)
    {
        for (const ScriptedAnswer &scripted : answers)
            device.channel->answer(scripted);
    }

    void make(Change change)
    {
        switch (change) {
        case Nothing:
            break;
        case ControlIsLost:
            device.channel->master = false;
            break;
        case IsCancelled:
            helper.setCancelledState(true);
            break;
        case GoesOffline:
            device.channel->ready = false;
            break;
        }
    }
};

StreamPath::Request exportRequest()
{
    return RequestPath::request(3, 0xFA04);
}

constexpr char requestLine[] =
    R"(info: TavoroCmd {device} "BC(fa), FC(4)." "Get file export information.arg2 values:" 4 3 2 1 " lables: 7")";
constexpr char successLine[] =
    R"(info: TavoroCmd {device} "BC(fa), FC(4)." "Get file export information successfully." " lables: 7")";
constexpr char successShown[] =
    "status bar 0 for 5000 ms: Get file export information successfully.";

QString sentence(const char *reason)
{
    return QStringLiteral("Get file export information failed: %1 .")
        .arg(QString::fromLatin1(reason));
}

/// The lines of a failure, the callback's included.
QStringList failureLines(const FailureRow &row)
{
    const QString words = row.telling == SentenceWithStatusBar ? sentence(row.reason)
                                                               : QString::fromLatin1(row.reason);
    const QString call = streamedCall(false, row.progress, {}, words);
    switch (row.telling) {
    case SentenceWithStatusBar:
        return {
            QStringLiteral(R"(warning: TavoroCmd {device} "BC(fa), FC(4)." "%1" " lables: 7"%2)")
                .arg(words, QString::fromLatin1(row.count)),
            QStringLiteral("status bar 2 for 5000 ms: ") + words, call};
    case BareWarning:
        return {QStringLiteral(R"(warning: "%1")").arg(words), call};
    case WarningWithDevice:
        return {QStringLiteral(R"(warning: "TavoroCmd stopped :%1" {device})").arg(words), call};
    }
    return {};
}

/// Makes each packet when it is asked for, so that nobody but the reader can hold the object.
class LargeObject : public ScriptedChannel {
public:
    static constexpr std::size_t packetSize = 4 << 20;

    std::shared_ptr<SSProxy::DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<SSProxy::DeviceRequestCommand> request) override
    {
        auto response = std::make_shared<SSProxy::DeviceResponseCommand>();
        response->head() = request->head();
        response->head().totalCount = packets;
        response->body().assign(packetSize, 'x');
        return response;
    }

    quint32 packets = 1;
};

/// Most memory that the process has held so far, 0 where the system does not tell.
qint64 peakResidentBytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = status.readAll();
    const auto line = text.indexOf("VmHWM:");
    const QByteArray kibibytes = text.mid(line).split('\n').first().simplified().split(' ').at(1);
    return kibibytes.toLongLong() * 1024;
}

/// Sanitizers keep freed memory aside, which is not the reader's.
constexpr bool hasSanitizer =
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    true;
#else
    false;
#endif

} // namespace

Q_DECLARE_METATYPE(const FailureRow *)
Q_DECLARE_METATYPE(ScriptedAnswer)

class tst_StreamedRead : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void failures_data();
    void failures();
    void cancelledBeforeTheCallComesBeforeEverythingElse();
    void nullRequestComesBeforeMissingDevice();
    void deviceThatIsGoneIsToldToTheCallback();
    void deviceWithoutChannelCountsAsDone();
    void cancelledStateStaysUntilItIsCleared();

    void onePacketGivesExactlyOneCallback();
    void threePacketsGiveThreeCallbacksThenSuccess();
    void progressIsTheShareDone();
    void countsOfTheFirstAnswerDecide_data();
    void countsOfTheFirstAnswerDecide();
    void countsOfFurtherAnswersAreNotExamined();
    void changesInFlightOfTheOnlyPacketComeTooLate_data();
    void changesInFlightOfTheOnlyPacketComeTooLate();
    void packetWithoutBytesIsHandedOver();
    void rawBytesAreHandedOverAsTheyAre();

    void requestsRepeatTheHeadAndCountThePackets();
    void headIsTakenOnceBehindTheFirstCallback();
    void onlyTheFirstRequestHasTheTimeoutOfTheTable();
    void contentIsLoggedForJsonOnly_data();
    void contentIsLoggedForJsonOnly();

    void controlLostBetweenPacketsStopsBeforeTheNextRequest();
    void cancelBetweenPacketsStopsBeforeTheNextRequest();
    void controlIsLookedAtBeforeTheCancelledState();
    void offlineComesBeforeControlAtTheFirstPacket();
    void controlComesBeforeOfflineAtFurtherPackets();
    void cancelFromAnotherThreadDropsThePacketInFlight();

    void errorTextIsLocalToTheCall();
    void callbackRunsOnTheCallersThread();
    void callbackIsReleasedBeforeReturn();
    void emptyCallbackThrowsAtTheFirstReport_data();
    void emptyCallbackThrowsAtTheFirstReport();

    void oneGibibyteTakesTheMemoryOfAFewPackets();
};

void tst_StreamedRead::failures_data()
{
    QTest::addColumn<const FailureRow *>("row");
    for (const FailureRow &row : failureRows)
        QTest::newRow(row.name) << &row;
}

void tst_StreamedRead::failures()
{
    QFETCH(const FailureRow *, row);
    StreamPath path;
    Answers answers = row->answers;
    if (row->when == beforeTheCall && row->change != Nothing)
        path.make(row->change);
    else if (row->when != beforeTheCall)
        answers[row->when].before = [&] {
            path.make(row->change);
        };
    path.answer(answers);

    const auto outcome = path.stream(exportRequest());
    QVERIFY(!outcome.ok);
    QCOMPARE(outcome.lines,
             textLines({requestLine}) + packetCalls(row->handedOver) + failureLines(*row));
    QCOMPARE(path.device.channel->sent().size(), std::size_t(answers.size()));
}

void tst_StreamedRead::cancelledBeforeTheCallComesBeforeEverythingElse()
{
    StreamPath path;
    path.make(IsCancelled);
    const QStringList lines{QStringLiteral(R"(warning: "Operation has been cancelled.")"),
                            streamedCall(false, 0, {}, QString::fromLatin1(cancelled))};
    const auto verifyStopped = [&](const StreamPath::Request &request) {
        const auto outcome = path.stream(request);
        QVERIFY(!outcome.ok);
        QCOMPARE(outcome.lines, lines);
    };
    verifyStopped(exportRequest());
    verifyStopped(nullptr);
    path.make(GoesOffline);
    verifyStopped(exportRequest());
    path.device.removeChannel();
    verifyStopped(exportRequest());
    path.device.model.reset();
    verifyStopped(exportRequest());
    QVERIFY(path.device.channel->sent().empty());
}

void tst_StreamedRead::nullRequestComesBeforeMissingDevice()
{
    StreamPath path;
    const QStringList lines{QStringLiteral(R"(warning: "TavoroCmd :Invalid request command")"),
                            streamedCall(false, 0, {}, QStringLiteral("Invalid request command"))};
    const auto refused = path.stream(nullptr);
    QVERIFY(!refused.ok);
    QCOMPARE(refused.lines, lines);

    path.device.model.reset();
    const auto refusedWithoutDevice = path.stream(nullptr);
    QVERIFY(!refusedWithoutDevice.ok);
    QCOMPARE(refusedWithoutDevice.lines, lines);
}

void tst_StreamedRead::deviceThatIsGoneIsToldToTheCallback()
{
    StreamPath path;
    path.device.model.reset();
    const auto outcome = path.stream(exportRequest());
    QVERIFY(!outcome.ok);
    const QString words = sentence("invalid device model data");
    QCOMPARE(
        outcome.lines,
        (QStringList{
            QStringLiteral(R"(warning: TavoroCmd "BC(fa), FC(4)." "%1" " lables: 7")").arg(words),
            QStringLiteral("status bar 2 for 5000 ms: ") + words,
            streamedCall(false, 0, {}, words)}));
    QVERIFY(path.device.channel->sent().empty());
}

void tst_StreamedRead::deviceWithoutChannelCountsAsDone()
{
    StreamPath path;
    path.device.removeChannel();
    const auto outcome = path.stream(exportRequest());
    QVERIFY(outcome.ok);
    QCOMPARE(outcome.lines,
             textLines({requestLine,
                        R"(debug: find Tavoro Device Channel false. ip address is : "192.0.2.7")"})
                 << streamedCall(true, 1, {}));
}

void tst_StreamedRead::cancelledStateStaysUntilItIsCleared()
{
    StreamPath path;
    path.helper.setCancelledState(true);
    QVERIFY(!path.stream(exportRequest()).ok);
    QVERIFY(!path.stream(exportRequest()).ok);
    QVERIFY(path.device.channel->sent().empty());
    path.helper.setCancelledState(false);
    QVERIFY(path.stream(exportRequest()).ok);
}

void tst_StreamedRead::onePacketGivesExactlyOneCallback()
{
    StreamPath path;
    path.answer({packet("all", 1, 0)});
    const auto outcome = path.stream(exportRequest());
    QVERIFY(outcome.ok);
    QCOMPARE(outcome.lines,
             textLines({requestLine, successLine, successShown}) << streamedCall(true, 1, "all"));
}

void tst_StreamedRead::threePacketsGiveThreeCallbacksThenSuccess()
{
    StreamPath path;
    path.answer({one(), two(), three()});
    const auto outcome = path.stream(exportRequest());
    QVERIFY(outcome.ok);
    QCOMPARE(outcome.lines,
             textLines({requestLine}) + packetCalls(3) + textLines({successLine, successShown}));
}

void tst_StreamedRead::progressIsTheShareDone()
{
    StreamPath path;
    path.answer({packet("a", 7, 0)});
    std::vector<double> shares;
    QVERIFY(path.stream(exportRequest(),
                        [&](bool, double progress, const std::string &, QString &) {
                            shares.push_back(progress);
                        })
                .ok);
    QCOMPARE(shares,
             (std::vector<double>{1.0 / 7, 2.0 / 7, 3.0 / 7, 4.0 / 7, 5.0 / 7, 6.0 / 7, 1.0}));
}

void tst_StreamedRead::countsOfTheFirstAnswerDecide_data()
{
    QTest::addColumn<quint32>("totalCount");
    QTest::addColumn<quint32>("sendCount");
    QTest::addColumn<QStringList>("calls");

    const QString a = streamedCall(true, 1, "a");
    const QString b = streamedCall(true, twoThirds, "b");
    const QString c = streamedCall(true, 1, "c");
    // clang-format off
    QTest::newRow("both counts left at 0")         << 0U << 0U << QStringList{streamedCall(true, INFINITY, "a")};
    QTest::newRow("one of one")                    << 1U << 0U << QStringList{a};
    QTest::newRow("total 1, beyond its end")       << 1U << 5U << QStringList{streamedCall(true, 6, "a")};
    QTest::newRow("first of two")                  << 2U << 0U << QStringList{streamedCall(true, 0.5, "a"), streamedCall(true, 1, "b")};
    QTest::newRow("last of two: complete")         << 2U << 1U << QStringList{a};
    QTest::newRow("second of three: asked from 1") << 3U << 1U << QStringList{streamedCall(true, twoThirds, "a"), b, c};
    QTest::newRow("last of three: complete")       << 3U << 2U << QStringList{a};
    // clang-format on
}

void tst_StreamedRead::countsOfTheFirstAnswerDecide()
{
    QFETCH(const quint32, totalCount);
    QFETCH(const quint32, sendCount);
    QFETCH(const QStringList, calls);
    StreamPath path;
    path.answer({packet("a", totalCount, sendCount), packet("b", 1, 0), packet("c", 1, 0)});
    const auto outcome = path.stream(exportRequest());
    QVERIFY(outcome.ok);
    QCOMPARE(outcome.lines.filter(QStringLiteral("callback: ")), calls);
    QCOMPARE(path.device.channel->sent().size(), std::size_t(calls.size()));
}

void tst_StreamedRead::countsOfFurtherAnswersAreNotExamined()
{
    StreamPath path;
    path.answer({one(), packet("two", 2, 1), packet("three", 0, 77)});
    const auto outcome = path.stream(exportRequest());
    QVERIFY(outcome.ok);
    QCOMPARE(outcome.lines.filter(QStringLiteral("callback: ")), packetCalls(3));
}

void tst_StreamedRead::changesInFlightOfTheOnlyPacketComeTooLate_data()
{
    QTest::addColumn<int>("change");
    QTest::newRow("control lost") << int(ControlIsLost);
    QTest::newRow("cancelled") << int(IsCancelled);
    QTest::newRow("offline") << int(GoesOffline);
}

void tst_StreamedRead::changesInFlightOfTheOnlyPacketComeTooLate()
{
    QFETCH(const int, change);
    StreamPath path;
    auto only = packet("all", 1, 0);
    only.before = [&] {
        path.make(Change(change));
    };
    path.answer({only});
    const auto outcome = path.stream(exportRequest());
    QVERIFY(outcome.ok);
    QCOMPARE(outcome.lines.last(), streamedCall(true, 1, "all"));
}

void tst_StreamedRead::packetWithoutBytesIsHandedOver()
{
    StreamPath path;
    path.answer({one(), packet("", 3, 1), three()});
    const auto outcome = path.stream(exportRequest());
    QCOMPARE(outcome.lines.filter(QStringLiteral("callback: ")).at(1),
             streamedCall(true, twoThirds, ""));
}

void tst_StreamedRead::rawBytesAreHandedOverAsTheyAre()
{
    using namespace std::string_literals;
    StreamPath path;
    path.answer({packet("\0\xFF"s, 2, 0), packet("\n\0"s, 2, 1)});
    std::string all;
    path.stream(exportRequest(),
                [&](bool, double, const std::string &data, QString &) { all += data; });
    QCOMPARE(all, "\0\xFF\n\0"s);
}

void tst_StreamedRead::requestsRepeatTheHeadAndCountThePackets()
{
    StreamPath path;
    const auto request = exportRequest();
    path.answer({one()});
    QVERIFY(path.stream(request).ok);
    const auto sent = path.device.channel->sent();
    QCOMPARE(sent.size(), std::size_t(3));
    const auto hex = [&](std::size_t i, int first, int last) {
        return QByteArray::fromStdString(sent[i].headBytes(first, last)).toHex();
    };
    QCOMPARE(hex(0, 18, 35),
             QByteArray("a1a2"
                        "03"
                        "00000000"
                        "00000000"
                        "04fa"
                        "01020304"
                        "a5"));
    QCOMPARE(hex(1, 18, 35),
             QByteArray("a1a2"
                        "03"
                        "03000000"
                        "01000000"
                        "04fa"
                        "01020304"
                        "a5"));
    QCOMPARE(hex(2, 18, 35),
             QByteArray("a1a2"
                        "03"
                        "03000000"
                        "02000000"
                        "04fa"
                        "01020304"
                        "a5"));
    // What stands in front is not copied: the tag of each packet is the channel's to give.
    QCOMPARE(hex(1, 0, 17), QByteArray(36, '0'));
    QCOMPARE(hex(2, 0, 17), QByteArray(36, '0'));
    for (const SentRequest &packetSent : sent)
        QCOMPARE(packetSent.body, std::string());
}

void tst_StreamedRead::headIsTakenOnceBehindTheFirstCallback()
{
    StreamPath path;
    const auto request = exportRequest();
    path.answer({one()});
    path.stream(request, [&](bool, double progress, const std::string &, QString &) {
        request->head().arg2[0] = progress < 0.5 ? 98 : 99;
    });
    const auto sent = path.device.channel->sent();
    QCOMPARE(sent.size(), std::size_t(3));
    QCOMPARE(int(sent[0].head.arg2[0]), 1);
    QCOMPARE(int(sent[1].head.arg2[0]), 98);
    QCOMPARE(int(sent[2].head.arg2[0]), 98);
}

void tst_StreamedRead::onlyTheFirstRequestHasTheTimeoutOfTheTable()
{
    StreamPath path;
    path.device.model->deviceConfig().timeouts = {
        std::make_shared<BizModel::s_CommandTimeout>(BizModel::s_CommandTimeout{0xFA, 0x04, 250})};
    path.answer({packet("a", 2, 0)});
    const auto request = exportRequest();
    request->setTimeout(20000); // overridden
    QVERIFY(path.stream(request).ok);
    const auto sent = path.device.channel->sent();
    QCOMPARE(sent.size(), std::size_t(2));
    QCOMPARE(sent[0].timeout, 250);
    QCOMPARE(sent[1].timeout, SSProxy::DeviceRequestCommand().timeout());
}

void tst_StreamedRead::contentIsLoggedForJsonOnly_data()
{
    QTest::addColumn<int>("requestType");
    QTest::addColumn<int>("firstAnswerType");
    QTest::addColumn<quint32>("totalCount");
    QTest::addColumn<QString>("requested");
    QTest::addColumn<QString>("succeeded");

    const QString args = QStringLiteral(R"("Get file export information.arg2 values:" 4 3 2 1)");
    const QString plain = QStringLiteral(R"( " lables: 7")");
    // It is the type of the first answer that counts, not that of the request or of later answers.
    // clang-format off
    QTest::newRow("binary, one packet")  << 3 << 3 << 1U << args << plain;
    QTest::newRow("binary, two packets") << 3 << 3 << 2U << args << plain;
    QTest::newRow("JSON, one packet")    << 1 << 1 << 1U << args << R"( " lables: 7, content:" "[")";
    QTest::newRow("JSON, two packets")   << 1 << 1 << 2U << args << R"( " lables: 7" "]")";
    QTest::newRow("JSON for binary")     << 3 << 1 << 1U << args << R"( " lables: 7, content:" "[")";
    QTest::newRow("binary for JSON")     << 1 << 3 << 2U << args << plain;
    QTest::newRow("a write streamed")    << 2 << 2 << 1U << R"("Get file export information.")" << plain;
    QTest::newRow("counts that claim no packet") << 1 << 1 << 0U << args << R"( " lables: 7" "[")";
    // clang-format on
}

void tst_StreamedRead::contentIsLoggedForJsonOnly()
{
    QFETCH(const int, requestType);
    QFETCH(const int, firstAnswerType);
    QFETCH(const quint32, totalCount);
    QFETCH(const QString, requested);
    StreamPath path;
    auto first = packet("[", totalCount, 0);
    first.type = quint8(firstAnswerType);
    auto second = packet("]", totalCount, 1);
    second.type = quint8(firstAnswerType == 1 ? 3 : 1);
    path.answer({first, second});

    const auto outcome = path.stream(RequestPath::request(quint8(requestType), 0xFA04));
    QVERIFY(outcome.ok);
    const auto infos = outcome.lines.filter(QRegularExpression(QStringLiteral("^info: ")));
    QCOMPARE(infos.size(), 2);
    QVERIFY2(infos.at(0).contains(QStringLiteral("\"BC(fa), FC(4).\" ") + requested),
             qPrintable(infos.at(0)));
    QTEST(infos.at(1).section(QStringLiteral("successfully.\""), 1), "succeeded");
}

void tst_StreamedRead::controlLostBetweenPacketsStopsBeforeTheNextRequest()
{
    StreamPath path;
    path.answer({one()});
    const auto outcome =
        path.stream(exportRequest(), [&](bool, double, const std::string &, QString &) {
            path.make(ControlIsLost);
        });
    QVERIFY(!outcome.ok);
    QCOMPARE(outcome.lines.mid(2),
             (QStringList{QStringLiteral(R"(warning: "The device is controlled by others.")"),
                          streamedCall(false, third, {}, QString::fromLatin1(controlled))}));
    QCOMPARE(path.device.channel->sent().size(), std::size_t(1));
}

void tst_StreamedRead::cancelBetweenPacketsStopsBeforeTheNextRequest()
{
    StreamPath path;
    path.answer({one(), two()});
    const auto outcome =
        path.stream(exportRequest(), [&](bool, double progress, const std::string &, QString &) {
            if (progress > 0.5)
                path.make(IsCancelled);
        });
    QVERIFY(!outcome.ok);
    QCOMPARE(outcome.lines.last(),
             streamedCall(false, twoThirds, {}, QString::fromLatin1(cancelled)));
    QCOMPARE(path.device.channel->sent().size(), std::size_t(2));
}

void tst_StreamedRead::controlIsLookedAtBeforeTheCancelledState()
{
    for (int inFlight = 0; inFlight < 2; ++inFlight) {
        StreamPath path;
        Answers answers{one(), two()};
        answers[inFlight].before = [&path] {
            path.make(IsCancelled);
            path.make(ControlIsLost);
        };
        path.answer(answers);
        const auto outcome = path.stream(exportRequest());
        QCOMPARE(outcome.lines.last(),
                 streamedCall(false, third, {}, QString::fromLatin1(controlled)));
    }
}

void tst_StreamedRead::offlineComesBeforeControlAtTheFirstPacket()
{
    StreamPath path;
    path.make(GoesOffline);
    path.make(ControlIsLost);
    QCOMPARE(path.stream(exportRequest()).lines.last(),
             streamedCall(false, 0, {}, sentence(offline)));
}

void tst_StreamedRead::controlComesBeforeOfflineAtFurtherPackets()
{
    StreamPath path;
    path.answer({one()});
    const auto outcome =
        path.stream(exportRequest(), [&](bool, double, const std::string &, QString &) {
            path.make(GoesOffline);
            path.make(ControlIsLost);
        });
    QCOMPARE(outcome.lines.last(), streamedCall(false, third, {}, QString::fromLatin1(controlled)));
}

void tst_StreamedRead::cancelFromAnotherThreadDropsThePacketInFlight()
{
    StreamPath path;
    auto second = two();
    second.before = [&path] {
        std::thread([&path] { path.helper.setCancelledState(true); }).join();
    };
    path.answer({one(), second, three()});
    const auto outcome = path.stream(exportRequest());
    QVERIFY(!outcome.ok);
    QCOMPARE(outcome.lines.filter(QStringLiteral("callback: ")),
             packetCalls(1) << streamedCall(false, third, {}, QString::fromLatin1(cancelled)));
    QVERIFY(outcome.lines.filter(QStringLiteral("status bar ")).isEmpty());
    QCOMPARE(path.device.channel->sent().size(), std::size_t(2));
}

void tst_StreamedRead::errorTextIsLocalToTheCall()
{
    StreamPath path;
    for (int call = 0; call < 2; ++call) {
        QStringList seen;
        path.answer({one(), two(), refusal(9)});
        path.stream(exportRequest(), [&](bool, double, const std::string &, QString &error) {
            seen << error;
            error = QStringLiteral("written by the callback");
        });
        QCOMPARE(seen,
                 (QStringList{QString(), QStringLiteral("written by the callback"),
                              sentence("hardware error:9")}));
    }
}

void tst_StreamedRead::callbackRunsOnTheCallersThread()
{
    StreamPath path;
    path.answer({one()});
    std::thread::id caller;
    std::vector<std::thread::id> callbacks;
    std::thread([&] {
        caller = std::this_thread::get_id();
        path.stream(exportRequest(), [&](bool, double, const std::string &, QString &) {
            callbacks.push_back(std::this_thread::get_id());
        });
    }).join();
    QCOMPARE(callbacks, std::vector<std::thread::id>(3, caller));
}

void tst_StreamedRead::callbackIsReleasedBeforeReturn()
{
    StreamPath path;
    const auto token = std::make_shared<int>();
    const StreamCallback callback = [token](bool, double, const std::string &, QString &) {
    };
    const long before = token.use_count();
    QVERIFY(path.helper.sendSyncRequest(path.device.model, exportRequest(), callback));
    QCOMPARE(token.use_count(), before);
}

void tst_StreamedRead::emptyCallbackThrowsAtTheFirstReport_data()
{
    QTest::addColumn<int>("change");
    QTest::addColumn<bool>("hasRequest");
    QTest::addColumn<bool>("hasChannel");
    QTest::addColumn<ScriptedAnswer>("answer");
    QTest::addColumn<int>("sent");

    // clang-format off
    QTest::newRow("cancelled")            << int(IsCancelled)   << true  << true  << packet("", 1, 0) << 0;
    QTest::newRow("null request")         << int(Nothing)       << false << true  << packet("", 1, 0) << 0;
    QTest::newRow("no channel")           << int(Nothing)       << true  << false << packet("", 1, 0) << 0;
    QTest::newRow("channel not ready")    << int(GoesOffline)   << true  << true  << packet("", 1, 0) << 0;
    QTest::newRow("control lost")         << int(ControlIsLost) << true  << true  << packet("", 1, 0) << 0;
    QTest::newRow("refusal")              << int(Nothing)       << true  << true  << refusal(1)       << 1;
    QTest::newRow("only packet")          << int(Nothing)       << true  << true  << packet("", 1, 0) << 1;
    QTest::newRow("first of two packets") << int(Nothing)       << true  << true  << packet("", 2, 0) << 1;
    // clang-format on
}

void tst_StreamedRead::emptyCallbackThrowsAtTheFirstReport()
{
    QFETCH(const int, change);
    QFETCH(const bool, hasRequest);
    QFETCH(const bool, hasChannel);
    QFETCH(const ScriptedAnswer, answer);
    StreamPath path;
    path.make(Change(change));
    if (!hasChannel)
        path.device.removeChannel();
    path.answer({answer});
    const auto request = hasRequest ? exportRequest() : nullptr;
    QVERIFY(throwsBadFunctionCall(
        [&] { path.helper.sendSyncRequest(path.device.model, request, StreamCallback()); }));
    QTEST(int(path.device.channel->sent().size()), "sent");
}

void tst_StreamedRead::oneGibibyteTakesTheMemoryOfAFewPackets()
{
    if (hasSanitizer || peakResidentBytes() == 0)
        QSKIP("the process's peak memory tells nothing here");
    const MessageCatcher quiet;
    const auto object = std::make_shared<LargeObject>();
    const ScriptedDevice device(7, object);
    Control::ControlHelper helper;
    const auto peakOfReading = [&](std::size_t size) {
        object->packets = quint32(size / LargeObject::packetSize);
        std::size_t got = 0;
        const bool ok = helper.sendSyncRequest(
            device.model, exportRequest(),
            [&](bool, double, const std::string &data, QString &) { got += data.size(); });
        return ok && got == size ? peakResidentBytes() : -1;
    };
    const qint64 small = peakOfReading(3 * LargeObject::packetSize);
    const qint64 large = peakOfReading(std::size_t(1) << 30);
    QVERIFY(small > 0);
    QVERIFY(large > 0);
    QVERIFY2(large - small < 4 * qint64(LargeObject::packetSize),
             qPrintable(QStringLiteral("small %1, large %2").arg(small).arg(large)));
}

QTEST_GUILESS_MAIN(tst_StreamedRead)
#include "tst_streamedread.moc"
