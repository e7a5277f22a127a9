#include <support/tavorocontrol/requestpath.h>

#include <QtTest>

namespace {

enum Overload {
    Get,
    Set,
};

enum Situation {
    Connected,
    NotReady,
    LostLater,
    DeviceGone,
};

/// What a refused exchange reports, and in which order.
enum Order {
    LogThenStatusBar,
    StatusBarThenLog,
    StatusBarBoxThenLog,
};

struct FailureRow {
    const char *name;
    Overload overload;
    Situation situation;
    QList<ScriptedAnswer> answers;
    const char *reason;
    Order order;
    int packet = 0; ///< Index of the packet, of 3, at the end of the log line.
};

constexpr auto refusal = &ScriptedAnswer::refusal;
constexpr auto noResponse = &ScriptedAnswer::noResponse;

ScriptedAnswer firstOf(quint32 totalCount)
{
    return ScriptedAnswer::packet("first", totalCount);
}

constexpr auto before = "text from before";
constexpr auto beforeResult = "result from before";

// clang-format off
const FailureRow failureRows[] = {
//   name                              call situation  answers                     reason                                         order, packet
    {"read, model device gone",        Get, DeviceGone, {},                         "invalid device model data",                   LogThenStatusBar},
    {"read, channel not ready",        Get, NotReady,   {},                         "The device is offline",                       LogThenStatusBar},
    {"read, null response",            Get, Connected,  {noResponse()},             "invalid response command model data",         LogThenStatusBar},
    {"read, status of the device",     Get, Connected,  {refusal(1)},               "hardware error:1",                            LogThenStatusBar},
    {"read, controlled by others",     Get, Connected,  {refusal(67)},              "The current device is already under control", LogThenStatusBar},
    {"read, status 68 shows no box",   Get, Connected,  {refusal(68)},              "hardware error:68",                           LogThenStatusBar},
    {"read, status of the channel",    Get, Connected,  {refusal(260)},             "software error: Request timed out",           LogThenStatusBar},
    {"read, status of the decoder",    Get, Connected,  {refusal(361)},             "protocol error: Invalid checksum",            LogThenStatusBar},
    {"read, status without a text",    Get, Connected,  {refusal(256)},             "N/A",                                         LogThenStatusBar},
    {"read, lost after first packet",  Get, LostLater,  {firstOf(3)},               "The device is offline",                       LogThenStatusBar},
    {"read, null second packet",       Get, Connected,  {firstOf(3), noResponse()}, "invalid response command model data",         LogThenStatusBar, 1},
    {"read, refused second packet",    Get, Connected,  {firstOf(3), refusal(68)},  "hardware error:68",                           LogThenStatusBar, 1},
    {"write, model device gone",       Set, DeviceGone, {},                         "invalid device model data",                   LogThenStatusBar},
    {"write, channel not ready",       Set, NotReady,   {},                         "The device is offline",                       LogThenStatusBar},
    {"write, null response",           Set, Connected,  {noResponse()},             "invalid response command model data",         LogThenStatusBar},
    {"write, status of the device",    Set, Connected,  {refusal(255)},             "hardware error:255",                          StatusBarThenLog},
    {"write, controlled by others",    Set, Connected,  {refusal(67)},              "The current device is already under control", StatusBarThenLog},
    {"write, device data updated",     Set, Connected,  {refusal(68)},              "hardware error:68",                           StatusBarBoxThenLog},
    {"write, status of the channel",   Set, Connected,  {refusal(259)},             "software error: Channel disconnected",        StatusBarThenLog},
    {"write, status without a text",   Set, Connected,  {refusal(300)},             "N/A",                                         StatusBarThenLog},
};
// clang-format on

} // namespace

Q_DECLARE_METATYPE(const FailureRow *)
Q_DECLARE_METATYPE(std::string)

class tst_ControlHelper : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void failuresAreReported_data();
    void failuresAreReported();
    void failedReadKeepsReceivedData();
    void nullRequestNeverReachesTheStatusBar();
    void nullRequestIsCheckedBeforeTheDevice();
    void readWithoutChannelIsTrueAndEmpty();
    void writeWithoutChannelIsTrueAndSilent();
    void successDoesNotChangeTheError();
    void writeShowsSuccessOnRequest_data();
    void writeShowsSuccessOnRequest();
    void writeFailureIsAlwaysShown();
    void messageBoxComesOnlyFromStatus68OfWrites();
    void nothingIsSentTwice();
    void cancelledStateDoesNotStopPlainExchanges();
};

void tst_ControlHelper::failuresAreReported_data()
{
    QTest::addColumn<const FailureRow *>("row");
    for (const FailureRow &row : failureRows)
        QTest::newRow(row.name) << &row;
}

void tst_ControlHelper::failuresAreReported()
{
    QFETCH(const FailureRow *, row);
    RequestPath path;
    ScriptedChannel &channel = *path.device.channel;
    channel.ready = row->situation != NotReady;
    for (ScriptedAnswer answer : row->answers) {
        if (row->situation == LostLater)
            answer.before = [&channel] {
                channel.ready = false;
            };
        channel.answer(answer);
    }
    const bool gone = row->situation == DeviceGone;
    if (gone)
        path.device.model.reset();

    const auto outcome = row->overload == Get ? path.read(RequestPath::request(1, 0x1100))
                                              : path.write(RequestPath::request(2, 0x1107, "abcd"));

    const QString sentence =
        QStringLiteral("%1 failed: %2 .")
            .arg(row->overload == Get ? QStringLiteral("Get device detail information")
                                      : QStringLiteral("Set device swap status information"),
                 QString::fromLatin1(row->reason));
    const QString count = row->packet == 0
        ? QString()
        : QStringLiteral(R"( ",send count/total count:%1/3")").arg(row->packet);
    const QString logged =
        QStringLiteral(R"(warning: TavoroCmd %1"BC(11), FC(%2)." "%3" " lables: 7"%4)")
            .arg(gone ? QString() : QStringLiteral("{device} "),
                 row->overload == Get ? QStringLiteral("0") : QStringLiteral("7"), sentence, count);
    const QString shown = QStringLiteral("status bar 2 for 5000 ms: ") + sentence;
    const QString box =
        QStringLiteral("message box 1: Device data has been updated, please synchronize now.");
    QStringList lines = outcome.lines;
    if (!gone)
        QVERIFY(lines.takeFirst().startsWith(QStringLiteral("info: TavoroCmd {device} ")));

    QVERIFY(!outcome.ok);
    QCOMPARE(outcome.error, sentence);
    switch (row->order) {
    case LogThenStatusBar:
        QCOMPARE(lines, (QStringList{logged, shown}));
        break;
    case StatusBarThenLog:
        QCOMPARE(lines, (QStringList{shown, logged}));
        break;
    case StatusBarBoxThenLog:
        QCOMPARE(lines, (QStringList{shown, box, logged}));
        break;
    }
    QCOMPARE(channel.sent().size(), std::size_t(row->answers.size()));
}

void tst_ControlHelper::failedReadKeepsReceivedData()
{
    RequestPath path;
    path.device.channel->answer(refusal(9));
    QCOMPARE(path.read(RequestPath::request(1, 0x1100)).result, std::string(beforeResult));

    path.device.channel->answer(firstOf(4));
    path.device.channel->answerBody("second");
    path.device.channel->answer(refusal(9));
    QCOMPARE(path.read(RequestPath::request(1, 0x1100)).result, std::string("firstsecond"));
}

void tst_ControlHelper::nullRequestNeverReachesTheStatusBar()
{
    RequestPath path;
    const QStringList warning{QStringLiteral(R"(warning: "TavoroCmd :Invalid request command")")};
    for (const auto &outcome : {path.read(nullptr), path.write(nullptr)}) {
        QVERIFY(!outcome.ok);
        QCOMPARE(outcome.error, QStringLiteral("Invalid request command"));
        QCOMPARE(outcome.lines, warning);
    }
    QVERIFY(path.device.channel->sent().empty());
}

void tst_ControlHelper::nullRequestIsCheckedBeforeTheDevice()
{
    RequestPath path;
    path.device.model.reset();
    QCOMPARE(path.read(nullptr).error, QStringLiteral("Invalid request command"));
    QCOMPARE(path.write(nullptr).error, QStringLiteral("Invalid request command"));
}

void tst_ControlHelper::readWithoutChannelIsTrueAndEmpty()
{
    RequestPath path;
    path.device.removeChannel();
    const auto outcome = path.read(RequestPath::request(1, 0x1100));
    QVERIFY(outcome.ok);
    QCOMPARE(outcome.error, QString::fromLatin1(before));
    QCOMPARE(outcome.result, std::string());
    QCOMPARE(outcome.lines.size(), 2);
    QCOMPARE(
        outcome.lines.last(),
        QStringLiteral(R"(debug: find Tavoro Device Channel false. ip address is : "192.0.2.7")"));
}

void tst_ControlHelper::writeWithoutChannelIsTrueAndSilent()
{
    RequestPath path;
    path.device.removeChannel();
    const auto outcome = path.write(RequestPath::request(2, 0x1107, R"({"swap":1})"));
    QVERIFY(outcome.ok);
    QCOMPARE(outcome.error, QString::fromLatin1(before));
    QCOMPARE(outcome.lines.size(), 1); // the request alone
    QVERIFY(outcome.lines.first().startsWith(QStringLiteral("info: ")));
}

void tst_ControlHelper::successDoesNotChangeTheError()
{
    RequestPath path;
    const auto readOutcome = path.read(RequestPath::request(1, 0x1100));
    QVERIFY(readOutcome.ok);
    QCOMPARE(readOutcome.error, QString::fromLatin1(before));
    const auto writeOutcome = path.write(RequestPath::request(2, 0x1107, "abcd"));
    QVERIFY(writeOutcome.ok);
    QCOMPARE(writeOutcome.error, QString::fromLatin1(before));
}

void tst_ControlHelper::writeShowsSuccessOnRequest_data()
{
    QTest::addColumn<bool>("showSuccess");
    QTest::addColumn<std::string>("body");

    QTest::newRow("one packet, shown") << true << std::string("abcd");
    QTest::newRow("one packet, not shown") << false << std::string("abcd");
    QTest::newRow("split, shown") << true << std::string("abcdefgh");
    QTest::newRow("split, not shown") << false << std::string("abcdefgh");
}

void tst_ControlHelper::writeShowsSuccessOnRequest()
{
    QFETCH(const bool, showSuccess);
    QFETCH(const std::string, body);
    RequestPath path;
    path.device.channel->info.maxPacketSize = 4;
    const auto outcome = path.write(RequestPath::request(2, 0x1107, body), showSuccess);
    QVERIFY(outcome.ok);
    const QString shown = QStringLiteral(
        "status bar 0 for 5000 ms: Set device swap status information successfully.");
    QCOMPARE(outcome.lines.contains(shown), showSuccess);
    QCOMPARE(outcome.lines.filter(QStringLiteral("status bar")).size(), showSuccess ? 1 : 0);
    QCOMPARE(outcome.lines.filter(QStringLiteral("info: ")).size(), 2);
}

void tst_ControlHelper::writeFailureIsAlwaysShown()
{
    RequestPath path;
    path.device.channel->answer(refusal(5));
    const auto outcome = path.write(RequestPath::request(2, 0x1107, "abcd"), false);
    QVERIFY(!outcome.ok);
    QCOMPARE(outcome.lines.filter(QStringLiteral("status bar 2")).size(), 1);
}

void tst_ControlHelper::messageBoxComesOnlyFromStatus68OfWrites()
{
    RequestPath path;
    for (quint16 status = 1; status <= 400; ++status) {
        path.device.channel->answer(refusal(status));
        const auto written = path.write(RequestPath::request(2, 0x1107, "abcd"));
        QCOMPARE(written.lines.filter(QStringLiteral("message box")).size(), status == 68 ? 1 : 0);
        path.device.channel->answer(refusal(status));
        const auto read = path.read(RequestPath::request(1, 0x1100));
        QVERIFY(read.lines.filter(QStringLiteral("message box")).isEmpty());
    }
}

void tst_ControlHelper::nothingIsSentTwice()
{
    RequestPath path;
    path.device.channel->answer(refusal(260));
    path.write(RequestPath::request(2, 0x1107, "abcd"));
    path.device.channel->answer(refusal(260));
    path.read(RequestPath::request(1, 0x1100));
    QCOMPARE(path.device.channel->sent().size(), std::size_t(2));
}

void tst_ControlHelper::cancelledStateDoesNotStopPlainExchanges()
{
    RequestPath path;
    path.helper.setCancelledState(true);
    QVERIFY(path.read(RequestPath::request(1, 0x1100)).ok);
    QVERIFY(path.write(RequestPath::request(2, 0x1107, "abcd")).ok);
}

QTEST_GUILESS_MAIN(tst_ControlHelper)
#include "tst_controlhelper.moc"
