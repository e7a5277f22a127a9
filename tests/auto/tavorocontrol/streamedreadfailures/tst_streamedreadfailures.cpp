#include <support/tavorocontrol/streampath.h>
#include <support/tavorocontrol/streamreasons.h>

#include <QtTest>

using namespace Tavoro;

namespace {

constexpr Reason underControl{"The current device is already under control"};
constexpr Reason badRegister{"protocol error: Invalid register address"};
constexpr Reason noObject{"invalid response command model data"};

/// When a change happens: before the call, or while the packet with this index is in flight.
constexpr int beforeTheCall = -1;

struct FailureRow {
    const char *name;
    Change change;
    int when;
    Answers answers;
    int handedOver; ///< Packets passed to the callback.
    double progress; ///< Reported with the failure.
    Reason reason;
    int count = 0; ///< Index of the packet, of 3, at the end of the log line.
};

// clang-format off
const FailureRow failureRows[] = {
//   name                                    change         when           answers                       handed over, progress, reason, packet
    {"channel not ready",                    GoesOffline,   beforeTheCall, {},                           0,  0,         offline},
    {"control lost before the first packet", ControlIsLost, beforeTheCall, {},                           0,  0,         controlled},
    {"no response",                          Nothing,       beforeTheCall, {noResponse()},               0,  0,         noObject},
    {"status of the device",                 Nothing,       beforeTheCall, {refusal(1)},                 0,  0,         {"hardware error:1"}},
    {"status 68 shows no box",               Nothing,       beforeTheCall, {refusal(68)},                0,  0,         {"hardware error:68"}},
    {"status of the channel",                Nothing,       beforeTheCall, {refusal(260)},               0,  0,         {"software error: Request timed out"}},
    {"status of the decoder",                Nothing,       beforeTheCall, {refusal(361)},               0,  0,         {"protocol error: Invalid checksum"}},
    {"status without a text",                Nothing,       beforeTheCall, {refusal(256)},               0,  0,         {"N/A"}},
    {"control lost in the first packet",     ControlIsLost, 0,             {one()},                      0,  third,     controlled},
    {"cancelled in the first packet",        IsCancelled,   0,             {one()},                      0,  third,     cancelled},
    {"first: status before control",         ControlIsLost, 0,             {refusal(9)},                 0,  0,         {"hardware error:9"}},
    {"first: status before cancel",          IsCancelled,   0,             {refusal(9)},                 0,  0,         {"hardware error:9"}},
    {"first: no response before cancel",     IsCancelled,   0,             {noResponse()},               0,  0,         noObject},
    {"offline after the first packet",       GoesOffline,   0,             {one()},                      1,  third,     offline},
    {"control lost in the second packet",    ControlIsLost, 1,             {one(), two()},               1,  third,     controlled},
    {"cancelled in the second packet",       IsCancelled,   1,             {one(), two()},               1,  third,     cancelled},
    {"second: control before status",        ControlIsLost, 1,             {one(), refusal(9)},          1,  third,     controlled},
    {"second: cancel before status",         IsCancelled,   1,             {one(), refusal(9)},          1,  third,     cancelled},
    {"second: cancel before no response",    IsCancelled,   1,             {one(), noResponse()},        1,  third,     cancelled},
    {"no response to the second packet",     Nothing,       beforeTheCall, {one(), noResponse()},        1,  third,     noObject, 1},
    {"second packet refused",                Nothing,       beforeTheCall, {one(), refusal(67)},         1,  third,     underControl, 1},
    {"offline after the second packet",      GoesOffline,   1,             {one(), two()},               2,  twoThirds, offline},
    {"control lost in the last packet",      ControlIsLost, 2,             {one(), two(), three()},      2,  twoThirds, controlled},
    {"cancelled in the last packet",         IsCancelled,   2,             {one(), two(), three()},      2,  twoThirds, cancelled},
    {"no response to the last packet",       Nothing,       beforeTheCall, {one(), two(), noResponse()}, 2,  twoThirds, noObject, 2},
    {"last packet refused",                  Nothing,       beforeTheCall, {one(), two(), refusal(357)}, 2,  twoThirds, badRegister, 2},
};
// clang-format on

/// The lines of a failure, the callback's included.
QStringList failureLines(const FailureRow &row)
{
    const QString reason = QString::fromLatin1(row.reason.words);
    const QString words =
        row.reason.reporting == SentenceWithStatusBar ? sentence(row.reason.words) : reason;
    const QString count = row.count == 0
        ? QString()
        : QStringLiteral(R"( ",send count/total count:%1/3")").arg(row.count);
    const QString call = streamedCall(false, row.progress, {}, words);
    switch (row.reason.reporting) {
    case SentenceWithStatusBar:
        return {
            QStringLiteral(R"(warning: TavoroCmd {device} "BC(fa), FC(4)." "%1" " lables: 7"%2)")
                .arg(words, count),
            QStringLiteral("status bar 2 for 5000 ms: ") + words, call};
    case BareWarning:
        return {QStringLiteral(R"(warning: "%1")").arg(words), call};
    case WarningWithDevice:
        return {QStringLiteral(R"(warning: "TavoroCmd stopped :%1" {device})").arg(words), call};
    }
    return {};
}

} // namespace

Q_DECLARE_METATYPE(const FailureRow *)

class tst_StreamedReadFailures : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void failuresAreReported_data();
    void failuresAreReported();
    void nullRequestIsCheckedBeforeTheDevice();
    void missingDeviceIsReportedToTheCallback();

    void errorTextIsLocalToTheCall();
    void emptyCallbackThrowsAtTheFirstReport_data();
    void emptyCallbackThrowsAtTheFirstReport();
};

void tst_StreamedReadFailures::failuresAreReported_data()
{
    QTest::addColumn<const FailureRow *>("row");
    for (const FailureRow &row : failureRows)
        QTest::newRow(row.name) << &row;
}

void tst_StreamedReadFailures::failuresAreReported()
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

void tst_StreamedReadFailures::nullRequestIsCheckedBeforeTheDevice()
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

void tst_StreamedReadFailures::missingDeviceIsReportedToTheCallback()
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

void tst_StreamedReadFailures::errorTextIsLocalToTheCall()
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

void tst_StreamedReadFailures::emptyCallbackThrowsAtTheFirstReport_data()
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

void tst_StreamedReadFailures::emptyCallbackThrowsAtTheFirstReport()
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

QTEST_GUILESS_MAIN(tst_StreamedReadFailures)
#include "tst_streamedreadfailures.moc"
