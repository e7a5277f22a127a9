#include <support/tavorocontrol/streampath.h>

#include <QtTest>

#include <cmath>
#include <thread>

using namespace Tavoro;

namespace {

constexpr char successLine[] =
    R"(info: TavoroCmd {device} "BC(fa), FC(4)." "Get file export information successfully." " lables: 7")";
constexpr char successShown[] =
    "status bar 0 for 5000 ms: Get file export information successfully.";

} // namespace

class tst_StreamedRead : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void deviceWithoutChannelCountsAsDone();

    void onePacketGivesExactlyOneCallback();
    void threePacketsGiveThreeCallbacksThenSuccess();
    void progressIsTheShareDone();
    void countsOfTheFirstAnswerDecide_data();
    void countsOfTheFirstAnswerDecide();
    void countsOfFurtherAnswersAreNotExamined();
    void emptyPacketIsPassedOn();
    void rawBytesArePassedOnUnchanged();
    void responsesThatTheChannelKeepsDoNotChange();

    void requestsRepeatTheHeadAndCountThePackets();
    void headIsCopiedOnceAfterTheFirstCallback();
    void onlyTheFirstRequestHasTheTimeoutOfTheTable();
    void contentIsLoggedForJsonOnly_data();
    void contentIsLoggedForJsonOnly();

    void callbackRunsOnTheCallersThread();
    void callbackIsReleasedBeforeReturn();
};

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
    QCOMPARE(callbackLines(outcome.lines), calls);
    QCOMPARE(path.device.channel->sent().size(), std::size_t(calls.size()));
}

void tst_StreamedRead::countsOfFurtherAnswersAreNotExamined()
{
    StreamPath path;
    path.answer({one(), packet("two", 2, 1), packet("three", 0, 77)});
    const auto outcome = path.stream(exportRequest());
    QVERIFY(outcome.ok);
    QCOMPARE(callbackLines(outcome.lines), packetCalls(3));
}

void tst_StreamedRead::emptyPacketIsPassedOn()
{
    StreamPath path;
    path.answer({one(), packet("", 3, 1), three()});
    const auto outcome = path.stream(exportRequest());
    QCOMPARE(callbackLines(outcome.lines).at(1), streamedCall(true, twoThirds, ""));
}

void tst_StreamedRead::rawBytesArePassedOnUnchanged()
{
    using namespace std::string_literals;
    StreamPath path;
    path.answer({packet("\0\xFF"s, 2, 0), packet("\n\0"s, 2, 1)});
    std::string all;
    path.stream(exportRequest(),
                [&](bool, double, const std::string &data, QString &) { all += data; });
    QCOMPARE(all, "\0\xFF\n\0"s);
}

void tst_StreamedRead::responsesThatTheChannelKeepsDoNotChange()
{
    StreamPath path;
    path.device.channel->keepsResponses = true;
    path.answer({one(), two(), three()});
    QVERIFY(path.stream(RequestPath::request(3, 0xFA04)).ok);
    std::vector<std::string> bodies;
    for (const auto &response : path.device.channel->kept)
        bodies.push_back(response->body());
    QCOMPARE(bodies, (std::vector<std::string>{"one", "two", "three"}));
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
    // The bytes before are not copied: the channel gives each packet its tag.
    QCOMPARE(hex(1, 0, 17), QByteArray(36, '0'));
    QCOMPARE(hex(2, 0, 17), QByteArray(36, '0'));
    for (const SentRequest &packetSent : sent)
        QCOMPARE(packetSent.body, std::string());
}

void tst_StreamedRead::headIsCopiedOnceAfterTheFirstCallback()
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
    // The type of the first answer decides, not that of the request or of later answers.
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

QTEST_GUILESS_MAIN(tst_StreamedRead)
#include "tst_streamedread.moc"
