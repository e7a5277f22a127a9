#include <support/tavorocontrol/requestpath.h>

#include <QtTest>

namespace {

using Bodies = std::vector<std::string>;

constexpr auto packet = &ScriptedAnswer::packet;

/// Bytes 18 to 35 of the head of RequestPath::request(), with the two counts of a packet.
std::string headBytes(const std::string &type, const std::string &counts, const std::string &codes)
{
    return "a1a2" + type + counts + codes + "01020304" + "a5";
}

std::string hex(const std::string &bytes)
{
    return QByteArray::fromStdString(bytes).toHex().toStdString();
}

Bodies bodiesOf(const std::vector<SentRequest> &sent)
{
    Bodies bodies;
    for (const SentRequest &request : sent)
        bodies.push_back(request.body);
    return bodies;
}

QStringList progressOf(const RequestPath::Outcome &outcome)
{
    return outcome.lines.filter(QRegularExpression(QStringLiteral("^(reading|sending): ")));
}

} // namespace

Q_DECLARE_METATYPE(std::string)

class tst_SplitExchange : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readRequestsThePacketsThatTheFirstAnswerCounts_data();
    void readRequestsThePacketsThatTheFirstAnswerCounts();
    void totalCountOf3CausesTwoFollowUpRequests();
    void countsOfFurtherAnswersAreNotExamined();
    void readJoinsRawBytes();
    void readDoesNotChangeResponsesThatTheChannelKeeps();

    void writeIsSplitAtTheLimit_data();
    void writeIsSplitAtTheLimit();
    void emptyBodyTakesTheOnePacketPath();
    void oneByteAboveTheLimitIsSentInTwoPackets();
    void splitWriteNeverSendsTheRequestItself();
    void refusedSecondPacketOfAWriteLeavesTheBareText_data();
    void refusedSecondPacketOfAWriteLeavesTheBareText();
    void splitWriteWithoutResponseCountsFromOne();
    void splitWriteGoingOfflineIsReportedWithoutCount();
    void limitIsThatOfTheChannel();
};

void tst_SplitExchange::readRequestsThePacketsThatTheFirstAnswerCounts_data()
{
    QTest::addColumn<quint32>("totalCount");
    QTest::addColumn<quint32>("sendCount");
    QTest::addColumn<std::string>("result");
    QTest::addColumn<QStringList>("progress");

    const QStringList none;
    const QStringList half = textLines({"reading: 1"});
    const QStringList thirds = textLines({"reading: 0.666667", "reading: 1"});
    // clang-format off
    QTest::newRow("both counts left at 0")         << 0U << 0U << std::string("a")   << none;
    QTest::newRow("one of one")                    << 1U << 0U << std::string("a")   << none;
    QTest::newRow("total 1, beyond its end")       << 1U << 5U << std::string("a")   << none;
    QTest::newRow("first of two")                  << 2U << 0U << std::string("ab")  << half;
    QTest::newRow("last of two: complete")         << 2U << 1U << std::string("a")   << none;
    QTest::newRow("first of three")                << 3U << 0U << std::string("abc") << thirds;
    QTest::newRow("second of three: asked from 1") << 3U << 1U << std::string("abc") << thirds;
    QTest::newRow("last of three: complete")       << 3U << 2U << std::string("a")   << none;
    // clang-format on
}

void tst_SplitExchange::readRequestsThePacketsThatTheFirstAnswerCounts()
{
    QFETCH(const quint32, totalCount);
    QFETCH(const quint32, sendCount);
    QFETCH(const std::string, result);
    QFETCH(const QStringList, progress);
    RequestPath path;
    path.device.channel->answer(packet("a", totalCount, sendCount));
    path.device.channel->answerBody("b");
    path.device.channel->answerBody("c");

    const auto outcome = path.read(RequestPath::request(1, 0x1100));
    QVERIFY(outcome.ok);
    QCOMPARE(outcome.result, result);
    QCOMPARE(progressOf(outcome), progress);
    QCOMPARE(path.device.channel->sent().size(), result.size());
}

void tst_SplitExchange::totalCountOf3CausesTwoFollowUpRequests()
{
    RequestPath path;
    path.device.channel->answer(packet("a", 3, 0));
    const auto outcome = path.read(RequestPath::request(3, 0xFA04));
    QVERIFY(outcome.ok);

    const auto sent = path.device.channel->sent();
    QCOMPARE(sent.size(), std::size_t(3));
    QCOMPARE(hex(sent[0].headBytes(18, 35)), headBytes("03", "0000000000000000", "04fa"));
    QCOMPARE(hex(sent[1].headBytes(18, 35)), headBytes("03", "0300000001000000", "04fa"));
    QCOMPARE(hex(sent[2].headBytes(18, 35)), headBytes("03", "0300000002000000", "04fa"));
    // The bytes before are not copied: the channel gives each packet its tag.
    QCOMPARE(hex(sent[0].headBytes(0, 17)), std::string("00000007") + std::string(28, '0'));
    QCOMPARE(hex(sent[1].headBytes(0, 17)), std::string(36, '0'));
    QCOMPARE(hex(sent[2].headBytes(0, 17)), std::string(36, '0'));
    QCOMPARE(bodiesOf(sent), (Bodies{"", "", ""}));
    QCOMPARE(progressOf(outcome), textLines({"reading: 0.666667", "reading: 1"}));
}

void tst_SplitExchange::countsOfFurtherAnswersAreNotExamined()
{
    RequestPath path;
    path.device.channel->answer(packet("a", 3, 0));
    path.device.channel->answer(packet("b", 2, 1));
    path.device.channel->answer(packet("c", 0, 77));
    const auto outcome = path.read(RequestPath::request(1, 0x1100));
    QVERIFY(outcome.ok);
    QCOMPARE(outcome.result, std::string("abc"));
    QCOMPARE(path.device.channel->sent().size(), std::size_t(3));
}

void tst_SplitExchange::readJoinsRawBytes()
{
    using namespace std::string_literals;
    RequestPath path;
    path.device.channel->answer(packet("\0\xFF"s, 2, 0));
    path.device.channel->answerBody("\n\0"s);
    QCOMPARE(path.read(RequestPath::request(3, 0xFA04)).result, "\0\xFF\n\0"s);
}

void tst_SplitExchange::readDoesNotChangeResponsesThatTheChannelKeeps()
{
    RequestPath path;
    path.device.channel->keepsResponses = true;
    path.device.channel->answer(packet("one ", 2, 0));
    path.device.channel->answerBody("two");
    QCOMPARE(path.read(RequestPath::request(1, 0x1100)).result, std::string("one two"));
    const auto &kept = path.device.channel->kept;
    QCOMPARE(kept.at(0)->body(), std::string("one "));
    QCOMPARE(kept.at(1)->body(), std::string("two"));
}

void tst_SplitExchange::writeIsSplitAtTheLimit_data()
{
    QTest::addColumn<quint32>("limit");
    QTest::addColumn<std::string>("body");
    QTest::addColumn<Bodies>("packets");

    using namespace std::string_literals;
    // clang-format off
    QTest::newRow("empty")                    << 4U << ""s             << Bodies{""};
    QTest::newRow("below the limit")          << 4U << "abc"s          << Bodies{"abc"};
    QTest::newRow("exactly the limit")        << 4U << "abcd"s         << Bodies{"abcd"};
    QTest::newRow("one byte more")            << 4U << "abcde"s        << Bodies{"abcd", "e"};
    QTest::newRow("twice the limit")          << 4U << "abcdefgh"s     << Bodies{"abcd", "efgh"};
    QTest::newRow("one byte more than twice") << 4U << "abcdefghi"s    << Bodies{"abcd", "efgh", "i"};
    QTest::newRow("a byte at a time")         << 1U << "abc"s          << Bodies{"a", "b", "c"};
    QTest::newRow("raw bytes")                << 2U << "\0\xFF\n\0"s   << Bodies{"\0\xFF"s, "\n\0"s};
    QTest::newRow("channel without a limit")  << 0U << "abcde"s        << Bodies{"abcde"};
    // clang-format on
}

void tst_SplitExchange::writeIsSplitAtTheLimit()
{
    QFETCH(const quint32, limit);
    QFETCH(const std::string, body);
    QFETCH(const Bodies, packets);
    RequestPath path;
    path.device.channel->info.maxPacketSize = limit;

    const auto outcome = path.write(RequestPath::request(4, 0xFA03, body));
    QVERIFY(outcome.ok);
    QCOMPARE(bodiesOf(path.device.channel->sent()), packets);
    QStringList progress;
    for (std::size_t i = 1; packets.size() > 1 && i <= packets.size(); ++i)
        progress.append(QStringLiteral("sending: %1").arg(double(i) / double(packets.size())));
    QCOMPARE(progressOf(outcome), progress);
}

void tst_SplitExchange::emptyBodyTakesTheOnePacketPath()
{
    RequestPath path;
    path.device.channel->info.maxPacketSize = 4;
    QVERIFY(path.write(RequestPath::request(2, 0x1107)).ok);
    const auto sent = path.device.channel->sent();
    QCOMPARE(bodiesOf(sent), Bodies{""});
    QCOMPARE(hex(sent[0].headBytes(0, 3)), std::string("00000007")); // the request itself
    QCOMPARE(hex(sent[0].headBytes(18, 35)), headBytes("02", "0000000000000000", "0711"));
}

void tst_SplitExchange::oneByteAboveTheLimitIsSentInTwoPackets()
{
    RequestPath path;
    path.device.channel->info.maxPacketSize = 4;
    const auto outcome = path.write(RequestPath::request(2, 0x130E, "abcde"));
    QVERIFY(outcome.ok);

    const auto sent = path.device.channel->sent();
    QCOMPARE(bodiesOf(sent), (Bodies{"abcd", "e"}));
    QCOMPARE(hex(sent[0].headBytes(18, 35)), headBytes("02", "0200000000000000", "0e13"));
    QCOMPARE(hex(sent[1].headBytes(18, 35)), headBytes("02", "0200000001000000", "0e13"));
    QCOMPARE(progressOf(outcome), textLines({"sending: 0.5", "sending: 1"}));
}

void tst_SplitExchange::splitWriteNeverSendsTheRequestItself()
{
    RequestPath path;
    path.device.channel->info.maxPacketSize = 4;
    const auto request = RequestPath::request(2, 0x1107, "abcdefgh");
    QVERIFY(path.write(request).ok);
    for (const SentRequest &sent : path.device.channel->sent())
        QCOMPARE(hex(sent.headBytes(0, 17)), std::string(36, '0'));
    QCOMPARE(request->body(), std::string("abcdefgh"));
    QCOMPARE(request->head().totalCount, 0U);
}

void tst_SplitExchange::refusedSecondPacketOfAWriteLeavesTheBareText_data()
{
    QTest::addColumn<quint16>("status");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("box");

    const QStringList box =
        textLines({"message box 1: Device data has been updated, please synchronize now."});
    QTest::newRow("status 68") << quint16(68) << "hardware error:68" << box;
    QTest::newRow("status 67") << quint16(67) << "The current device is already under control"
                               << QStringList();
    QTest::newRow("status 259") << quint16(259) << "software error: Channel disconnected"
                                << QStringList();
}

void tst_SplitExchange::refusedSecondPacketOfAWriteLeavesTheBareText()
{
    QFETCH(const quint16, status);
    QFETCH(const QString, text);
    QFETCH(const QStringList, box);
    RequestPath path;
    path.device.channel->info.maxPacketSize = 4;
    path.device.channel->answerBody("");
    path.device.channel->answer(ScriptedAnswer::refusal(status));

    auto outcome = path.write(RequestPath::request(2, 0x1107, "abcdefghijkl"));
    QVERIFY(!outcome.ok);
    QCOMPARE(outcome.error, text);
    outcome.lines.removeFirst(); // the request
    const QStringList shown{QStringLiteral("sending: 0.333333"),
                            QStringLiteral("status bar 2 for 5000 ms: "
                                           "Set device swap status information failed: %1 .")
                                .arg(text)};
    const QStringList logged{
        QStringLiteral(R"(warning: TavoroCmd {device} "BC(11), FC(7)." "%1" " lables: 7" )"
                       R"(",send count/total count:2/3")")
            .arg(text)};
    QCOMPARE(outcome.lines, shown + box + logged);
    QCOMPARE(bodiesOf(path.device.channel->sent()), (Bodies{"abcd", "efgh"}));
}

void tst_SplitExchange::splitWriteWithoutResponseCountsFromOne()
{
    RequestPath path;
    path.device.channel->info.maxPacketSize = 4;
    path.device.channel->answer(ScriptedAnswer::noResponse());

    auto outcome = path.write(RequestPath::request(2, 0x1107, "abcdefgh"));
    QVERIFY(!outcome.ok);
    const QString sentence = QStringLiteral(
        "Set device swap status information failed: invalid response command model data .");
    QCOMPARE(outcome.error, sentence);
    outcome.lines.removeFirst(); // the request
    QCOMPARE(outcome.lines,
             (QStringList{QStringLiteral(R"(warning: TavoroCmd {device} "BC(11), FC(7)." "%1" )"
                                         R"(" lables: 7" ",send count/total count:1/2")")
                              .arg(sentence),
                          QStringLiteral("status bar 2 for 5000 ms: ") + sentence}));
}

void tst_SplitExchange::splitWriteGoingOfflineIsReportedWithoutCount()
{
    RequestPath path;
    ScriptedChannel &channel = *path.device.channel;
    channel.info.maxPacketSize = 4;
    ScriptedAnswer last;
    last.before = [&channel] {
        channel.ready = false;
    };
    channel.answer(last);

    auto outcome = path.write(RequestPath::request(2, 0x1107, "abcdefgh"));
    QVERIFY(!outcome.ok);
    const QString sentence =
        QStringLiteral("Set device swap status information failed: The device is offline .");
    QCOMPARE(outcome.error, sentence);
    outcome.lines.removeFirst(); // the request
    QCOMPARE(outcome.lines,
             (QStringList{
                 QStringLiteral("sending: 0.5"),
                 QStringLiteral(R"(warning: TavoroCmd {device} "BC(11), FC(7)." "%1" " lables: 7")")
                     .arg(sentence),
                 QStringLiteral("status bar 2 for 5000 ms: ") + sentence}));
    QCOMPARE(channel.sent().size(), std::size_t(1)); // the first packet is not taken back
}

void tst_SplitExchange::limitIsThatOfTheChannel()
{
    RequestPath path;
    auto info = path.device.channel->info;
    info.maxPacketSize = 2;
    path.device.model->updateDeviceBaseInfo(info); // the model's copy does not count
    QVERIFY(path.write(RequestPath::request(2, 0x1107, "abcdefgh")).ok);
    QCOMPARE(bodiesOf(path.device.channel->sent()), Bodies{"abcdefgh"});
}

QTEST_GUILESS_MAIN(tst_SplitExchange)
#include "tst_splitexchange.moc"
