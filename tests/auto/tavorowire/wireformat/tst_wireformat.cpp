// Compares the documented frames with the code: the encoder writes each dump of docs/wire.md, and
// the parser reads from it what the page says.

#include <tavorowire/checksums.h>
#include <tavorowire/frame.h>
#include <tavorowire/frameparser.h>

#include <QFile>
#include <QMap>
#include <QTest>

#include <string>

using namespace Tavoro::SSProxy;
using namespace Tavoro::SSProxy::Wire;
using namespace std::string_literals;

namespace {

/// What the page says about a dump, in its order.
struct DocumentedFrame {
    const char *name;
    int kind, lables, status, stream, type;
    unsigned totalCount, sendCount, code, arg2, number;
    std::string body;
};

constexpr auto identityBody = R"({"protocolVersion":1,"modelId":30465,"sn":"0123456789ABCDEF",)"
                              R"("mac":"02005E100001","maxPacketSize":10,"name":"wall"})";

// clang-format off
const DocumentedFrame documentedFrames[] = {
//   name                      kind lables status stream  type total send code    arg2        number body
    {"identity-request",       4,   0,     0,     0,      0,   0,    0,   0,      0,          0,     ""},
    {"identity-answer",        5,   0,     0,     0,      0,   0,    0,   0,      0,          0,     identityBody},
    {"write-request",          1,   1,     0,     1,      2,   0,    0,   0x1107, 0,          1,     R"({"swap":1})"},
    {"write-response",         2,   1,     0,     1,      2,   1,    0,   0x1107, 0,          1,     ""},
    {"write-refused",          2,   1,     4,     1,      2,   1,    0,   0x1107, 0,          1,     ""},
    {"read-request",           1,   2,     0,     2,      3,   0,    0,   0xFA04, 0x00000703, 2,     ""},
    {"read-response",          2,   2,     0,     2,      3,   2,    0,   0xFA04, 0x00000703, 2,     "hello, wal"},
    {"read-request-1",         1,   3,     0,     2,      3,   2,    1,   0xFA04, 0x00000703, 3,     ""},
    {"read-response-1",        2,   3,     0,     2,      3,   2,    1,   0xFA04, 0x00000703, 3,     "l"},
    {"split-write-request-0",  1,   4,     0,     0x8001, 4,   2,    0,   0xFA03, 0x00000703, 4,     "hello, wal"},
    {"split-write-response-0", 2,   4,     0,     0x8001, 4,   1,    0,   0xFA03, 0x00000703, 4,     ""},
    {"split-write-request-1",  1,   5,     0,     0x8001, 4,   2,    1,   0xFA03, 0x00000703, 5,     "l"},
    {"split-write-response-1", 2,   5,     0,     0x8001, 4,   1,    0,   0xFA03, 0x00000703, 5,     ""},
    {"report",                 3,   0,     0,     0,      1,   1,    0,   0x1103, 0,          0,     R"({"powers":[{"powerId":0,"iSignal":1,"status":1}]})"},
    {"lease-request",          1,   6,     0,     3,      2,   0,    0,   0x0103, 1,          6,     "\x05\0gate a"s},
    {"lease-response",         2,   6,     0,     3,      2,   1,    0,   0x0103, 1,          6,     "\x01\x88\x13\0\0gate a"s},
    {"ping",                   6,   0,     0,     0,      0,   0,    0,   0,      0,          0,     ""},
    {"pong",                   7,   0,     0,     0,      0,   0,    0,   0,      0,          0,     ""},
};
// clang-format on

WireHead headOf(const DocumentedFrame &documented)
{
    WireHead head;
    head.kind = static_cast<quint8>(documented.kind);
    head.lables = static_cast<quint8>(documented.lables);
    head.status = static_cast<quint8>(documented.status);
    head.stream = static_cast<quint16>(documented.stream);
    head.type = static_cast<quint8>(documented.type);
    head.totalCount = documented.totalCount;
    head.sendCount = documented.sendCount;
    head.BC = static_cast<quint8>(documented.code >> 8);
    head.FC = static_cast<quint8>(documented.code & 0xFF);
    for (int i = 0; i < 4; ++i)
        head.arg2[i] = static_cast<quint8>(documented.arg2 >> 8 * i & 0xFF);
    head.number = documented.number;
    return head;
}

/// Returns the bytes of the blocks that begin with "```hex NAME" in the page, by name.
QMap<QByteArray, QByteArray> dumpsOfPage()
{
    QMap<QByteArray, QByteArray> dumps;
    QFile page(QStringLiteral(WIRE_PAGE));
    if (!page.open(QIODevice::ReadOnly))
        return dumps;
    const QByteArray begin("```hex ");
    while (!page.atEnd()) {
        QByteArray line = page.readLine().trimmed();
        if (!line.startsWith(begin))
            continue;
        const QByteArray name = line.mid(begin.size());
        for (line = page.readLine(); !line.startsWith("```") && !line.isEmpty();
             line = page.readLine())
            dumps[name] += QByteArray::fromHex(line);
    }
    return dumps;
}

} // namespace

class tst_WireFormat : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyDumpOfThePageIsInTheTable();
    void pageAndCodeAgree_data();
    void pageAndCodeAgree();
    void checksumsHaveTheCataloguedCheckValues();
    void checksumOfABodyContinuesOverItsParts();
    void everyFieldIsAtTheDocumentedPosition();
    void responseHeadEchoesTheRequest();
    void numberIsPutIntoAnEncodedFrame();
};

void tst_WireFormat::everyDumpOfThePageIsInTheTable()
{
    const auto dumps = dumpsOfPage();
    QCOMPARE(dumps.size(), 18);
    for (const DocumentedFrame &documented : documentedFrames)
        QVERIFY2(dumps.contains(documented.name), documented.name);
}

void tst_WireFormat::pageAndCodeAgree_data()
{
    QTest::addColumn<int>("row");
    for (int i = 0; i < 18; ++i)
        QTest::newRow(documentedFrames[i].name) << i;
}

void tst_WireFormat::pageAndCodeAgree()
{
    QFETCH(int, row);
    const DocumentedFrame &documented = documentedFrames[row];
    const QByteArray dump = dumpsOfPage().value(documented.name);
    QCOMPARE(encodeFrame(headOf(documented), documented.body).toHex(), dump.toHex());

    FrameParser parser;
    std::string_view bytes(dump.constData(), static_cast<std::size_t>(dump.size()));
    const auto event = parser.next(bytes);
    QVERIFY(event.has_value());
    QVERIFY(bytes.empty());
    QCOMPARE(event->status, quint16(0));
    QCOMPARE(event->body, documented.body);
    QCOMPARE(encodeFrame(event->head, event->body), dump);
}

void tst_WireFormat::checksumsHaveTheCataloguedCheckValues()
{
    QCOMPARE(crc16("123456789"), quint16(0x906E));
    QCOMPARE(crc32("123456789"), quint32(0xCBF43926));
    QCOMPARE(crc32(""), quint32(0));
}

void tst_WireFormat::checksumOfABodyContinuesOverItsParts()
{
    QCOMPARE(crc32("56789", crc32("1234")), quint32(0xCBF43926));
    QCOMPARE(crc32({}, crc32("123456789")), quint32(0xCBF43926));
}

void tst_WireFormat::everyFieldIsAtTheDocumentedPosition()
{
    WireHead head;
    head.flag = 0x0201;
    head.version = 0x03;
    head.lables = 0x04;
    head.bodyLength = 0x08070605;
    head.status = 0x09;
    head.checksumIndex = 0x0A;
    head.kind = 0x0B;
    head.reserved11 = 0x0C;
    head.headChecksum = 0x0E0D;
    head.bodyChecksum = 0x1211100F;
    head.stream = 0x1413;
    head.type = 0x15;
    head.totalCount = 0x19181716;
    head.sendCount = 0x1D1C1B1A;
    head.FC = 0x1E;
    head.BC = 0x1F;
    const quint8 filters[] = {0x20, 0x21, 0x22, 0x23};
    std::copy(std::begin(filters), std::end(filters), head.arg2);
    head.reserved35 = 0x24;
    head.number = 0x28272625;
    const auto *bytes = reinterpret_cast<const quint8 *>(&head);
    for (int i = 0; i < 40; ++i)
        QCOMPARE(int(bytes[i]), i + 1);
    QCOMPARE(head.code(), quint16(0x1F1E));
}

void tst_WireFormat::responseHeadEchoesTheRequest()
{
    WireHead request = headOf(documentedFrames[5]);
    request.sendCount = 9;
    request.totalCount = 12;
    const WireHead response = responseHead(request);
    WireHead expected = headOf(documentedFrames[6]);
    expected.totalCount = 1;
    QCOMPARE(encodeFrame(response).toHex(), encodeFrame(expected).toHex());
}

void tst_WireFormat::numberIsPutIntoAnEncodedFrame()
{
    DocumentedFrame documented = documentedFrames[2];
    documented.number = 0;
    QByteArray frame = encodeFrame(headOf(documented), documented.body);
    setNumber(frame, 1);
    QCOMPARE(frame.toHex(), dumpsOfPage().value("write-request").toHex());
}

QTEST_APPLESS_MAIN(tst_WireFormat)
#include "tst_wireformat.moc"
