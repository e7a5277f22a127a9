// A channel, a slot or a callback that changes the request while its exchange runs.

#include <support/tavorocontrol/streampath.h>

#include <tavorobizmodel/devicelist.h>

#include <QtTest>

using namespace Tavoro;

namespace {

/// Changes every byte of the head that an exchange reads.
void change(SSProxy::DeviceRequestCommand &request, quint8 value)
{
    auto &head = request.head();
    head.lables = value;
    head.opaque18[0] = value;
    head.opaque18[1] = value;
    head.type = value;
    head.FC = value;
    head.BC = value;
    for (quint8 &byte : head.arg2)
        byte = value;
    head.opaque35 = value;
}

ScriptedAnswer changing(const RequestPath::Request &request, quint8 value, ScriptedAnswer answer)
{
    answer.before = [request, value] {
        change(*request, value);
    };
    return answer;
}

/// Bytes 18 to 35 of each request that was sent, in hexadecimal.
QStringList repeatedBytes(const RequestPath &path)
{
    QStringList heads;
    for (const SentRequest &sent : path.device.channel->sent())
        heads << QString::fromLatin1(QByteArray::fromStdString(sent.headBytes(18, 35)).toHex());
    return heads;
}

/// Bytes 18 to 35 of a request that change() has changed to 0x42, with the two counts of a packet.
QString changedHead(const char *counts)
{
    return QStringLiteral("424242") + QLatin1String(counts) + QStringLiteral("42424242424242");
}

} // namespace

class tst_ChangedRequest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void failureOfAReadKeepsItsCodes();
    void successOfAReadKeepsItsCodes();
    void refusedWriteKeepsItsCodes();
    void successOfAWriteKeepsItsCodes();
    void streamedReadKeepsItsCodes();
    void tagIsReadAfterSending();

    void readCopiesTheHeadAfterTheFirstAnswer();
    void readCopiesTheHeadOnce();
    void streamedReadCopiesTheHeadAfterTheFirstCallback();
    void splitWriteCopiesTheHeadBeforeTheFirstPacket();
};

void tst_ChangedRequest::failureOfAReadKeepsItsCodes()
{
    RequestPath path;
    const auto request = RequestPath::request(1, 0x1100);
    path.device.channel->answer(changing(request, 0x42, refusal(9)));
    const auto outcome = path.read(request);
    QCOMPARE(outcome.error,
             QStringLiteral("Get device detail information failed: hardware error:9 ."));
    QCOMPARE(outcome.lines.at(1),
             QStringLiteral(R"(warning: TavoroCmd {device} "BC(11), FC(0)." "Get device detail )"
                            R"(information failed: hardware error:9 ." " lables: 66")"));
}

void tst_ChangedRequest::successOfAReadKeepsItsCodes()
{
    RequestPath path;
    const auto request = RequestPath::request(1, 0x1100);
    ScriptedAnswer answer = changing(request, 0x42, packet("{}", 1, 0));
    answer.type = 1;
    path.device.channel->answer(answer);
    const auto outcome = path.read(request);
    QCOMPARE(outcome.lines.mid(1),
             textLines({R"(info: TavoroCmd {device} "BC(11), FC(0)." "Get device detail )"
                        R"(information successfully." " lables: 66, content:" "{}")",
                        "status bar 0 for 5000 ms: Get device detail information successfully."}));
}

void tst_ChangedRequest::refusedWriteKeepsItsCodes()
{
    RequestPath path;
    const auto request = RequestPath::request(2, 0x1107, "{}");
    path.device.channel->answer(changing(request, 0x42, refusal(9)));
    const auto outcome = path.write(request);
    const QString sentence =
        QStringLiteral("Set device swap status information failed: hardware error:9 .");
    QCOMPARE(outcome.error, sentence);
    QCOMPARE(outcome.lines.mid(1),
             (QStringList{QStringLiteral("status bar 2 for 5000 ms: ") + sentence,
                          QStringLiteral(
                              R"(warning: TavoroCmd {device} "BC(11), FC(7)." "%1" " lables: 66")")
                              .arg(sentence)}));
}

void tst_ChangedRequest::successOfAWriteKeepsItsCodes()
{
    RequestPath path;
    const auto request = RequestPath::request(2, 0x1107, "{}");
    path.device.channel->answer(changing(request, 0x42, packet("", 1, 0)));
    QCOMPARE(path.write(request).lines.mid(1),
             textLines({R"(info: TavoroCmd {device} "BC(11), FC(7)." "Set device swap status )"
                        R"(information successfully." " lables: 66")",
                        "status bar 0 for 5000 ms: Set device swap status information "
                        "successfully."}));
}

void tst_ChangedRequest::streamedReadKeepsItsCodes()
{
    StreamPath path;
    const auto request = exportRequest();
    path.answer({one(), changing(request, 0x42, refusal(9))});
    const auto outcome = path.stream(request);
    const QString sentence =
        QStringLiteral("Get file export information failed: hardware error:9 .");
    QCOMPARE(outcome.lines.mid(2),
             (QStringList{QStringLiteral(
                              R"(warning: TavoroCmd {device} "BC(fa), FC(4)." "%1" " lables: 66" )"
                              R"(",send count/total count:1/3")")
                              .arg(sentence),
                          QStringLiteral("status bar 2 for 5000 ms: ") + sentence,
                          streamedCall(false, third, {}, sentence)}));
}

void tst_ChangedRequest::tagIsReadAfterSending()
{
    RequestPath path;
    const auto request = RequestPath::request(1, 0x1100);
    ScriptedAnswer answer = packet("{}", 1, 0);
    answer.before = [&] {
        request->head().lables = 9;
    };
    path.device.channel->answer(answer);
    const auto outcome = path.read(request);
    QVERIFY(outcome.lines.at(0).endsWith(QStringLiteral(R"(" lables: 7")")));
    QVERIFY(outcome.lines.at(1).endsWith(QStringLiteral(R"(" lables: 9, content:" "{}")")));
}

void tst_ChangedRequest::readCopiesTheHeadAfterTheFirstAnswer()
{
    RequestPath path;
    const auto request = RequestPath::request(1, 0x1100);
    path.device.channel->answer(changing(request, 0x42, packet("a", 2, 0)));
    path.device.channel->answerBody("b");
    QCOMPARE(path.read(request).result, std::string("ab"));
    QCOMPARE(repeatedBytes(path).last(), changedHead("0200000001000000"));
}

void tst_ChangedRequest::readCopiesTheHeadOnce()
{
    RequestPath path;
    const auto request = RequestPath::request(1, 0x1100);
    path.device.channel->answer(packet("a", 3, 0));
    path.device.channel->answer(changing(request, 0x42, packet("b", 3, 1)));
    path.device.channel->answerBody("c");
    QCOMPARE(path.read(request).result, std::string("abc"));
    QCOMPARE(repeatedBytes(path),
             (QStringList{QStringLiteral("a1a201"
                                         "0000000000000000"
                                         "0011"
                                         "01020304"
                                         "a5"),
                          QStringLiteral("a1a201"
                                         "0300000001000000"
                                         "0011"
                                         "01020304"
                                         "a5"),
                          QStringLiteral("a1a201"
                                         "0300000002000000"
                                         "0011"
                                         "01020304"
                                         "a5")}));
}

void tst_ChangedRequest::streamedReadCopiesTheHeadAfterTheFirstCallback()
{
    StreamPath path;
    const auto request = exportRequest();
    path.answer({one(), two(), three()});
    path.stream(request, [&](bool, double progress, const std::string &, QString &) {
        change(*request, progress < 0.5 ? 0x42 : 0x43);
    });
    QCOMPARE(repeatedBytes(path).mid(1),
             (QStringList{changedHead("0300000001000000"), changedHead("0300000002000000")}));
}

void tst_ChangedRequest::splitWriteCopiesTheHeadBeforeTheFirstPacket()
{
    RequestPath path;
    path.device.channel->info.maxPacketSize = 4;
    const auto request = RequestPath::request(2, 0x1107, "abcdefghijkl");
    path.device.channel->answer(changing(request, 0x42, packet("", 1, 0)));
    const auto connection = QObject::connect(
        BizModel::DeviceList::instance(), &BizModel::DeviceList::signalSendData2HWProgressChanged,
        [&] { change(*request, 0x43); });
    const auto outcome = path.write(request);
    QObject::disconnect(connection);
    QVERIFY(outcome.ok);
    QCOMPARE(repeatedBytes(path),
             (QStringList{QStringLiteral("a1a202"
                                         "0300000000000000"
                                         "0711"
                                         "01020304"
                                         "a5"),
                          QStringLiteral("a1a202"
                                         "0300000001000000"
                                         "0711"
                                         "01020304"
                                         "a5"),
                          QStringLiteral("a1a202"
                                         "0300000002000000"
                                         "0711"
                                         "01020304"
                                         "a5")}));
    QVERIFY(outcome.lines.contains(
        QStringLiteral(R"(info: TavoroCmd {device} "BC(11), FC(7)." "Set device swap status )"
                       R"(information successfully." " lables: 67")")));
}

QTEST_GUILESS_MAIN(tst_ChangedRequest)
#include "tst_changedrequest.moc"
