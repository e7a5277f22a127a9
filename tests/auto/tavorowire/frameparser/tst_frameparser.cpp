#include <tavorowire/frame.h>
#include <tavorowire/frameparser.h>

#include <QTest>

#include <random>
#include <vector>

using namespace Tavoro::SSProxy;
using namespace Tavoro::SSProxy::Wire;

namespace {

std::string frameOf(FrameKind kind, const std::string &body, quint8 lables = 7)
{
    WireHead head;
    head.kind = static_cast<quint8>(kind);
    head.lables = lables;
    return encodeFrame(head, body).toStdString();
}

/// Returns the frame with one byte of the head changed and the head checksum renewed.
std::string withHeadByte(std::string frame, std::size_t position, quint8 value)
{
    frame[position] = static_cast<char>(value);
    WireHead head;
    std::memcpy(static_cast<void *>(&head), frame.data(), sizeof head);
    const quint16 checksum = headChecksum(head);
    frame[12] = static_cast<char>(checksum & 0xFF);
    frame[13] = static_cast<char>(checksum >> 8);
    return frame;
}

std::vector<FrameEvent> eventsOf(FrameParser &parser, std::string_view bytes)
{
    std::vector<FrameEvent> events;
    while (auto event = parser.next(bytes))
        events.push_back(std::move(*event));
    return events;
}

std::vector<FrameEvent> eventsOf(const std::string &bytes)
{
    FrameParser parser;
    return eventsOf(parser, bytes);
}

} // namespace

class tst_FrameParser : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void consecutiveFramesAreFoundOneByOne();
    void frameCutAtAnyByteIsTheSameFrame();
    void frameMayHaveAnEmptyBody();
    void bodyMayHoldAnyBytes();
    void bodyWithoutChecksumIsAccepted();

    void invalidFrameIsSkipped_data();
    void invalidFrameIsSkipped();
    void unknownEndOfAFrameIsFatal_data();
    void unknownEndOfAFrameIsFatal();
    void bodyAtTheLimitIsAccepted();
    void wrongFlagIsReportedBeforeTheHeadIsComplete();
    void bytesAfterAFatalFaultAreIgnored();
    void resetAcceptsANewStream();
    void incompleteBodyYieldsNothing();
    void unfinishedHeadIsThatOfTheIncompleteFrame();
    void parserKnowsThatAFrameIsIncomplete();
    void damagedBytesYieldOnlyKnownFaults();
};

void tst_FrameParser::consecutiveFramesAreFoundOneByOne()
{
    const auto events =
        eventsOf(frameOf(FrameKind::Response, "first", 1) + frameOf(FrameKind::Report, "second", 0)
                 + frameOf(FrameKind::Pong, {}, 3));
    QCOMPARE(events.size(), std::size_t(3));
    QCOMPARE(events[0].body, std::string("first"));
    QCOMPARE(events[0].head.lables, quint8(1));
    QCOMPARE(events[1].body, std::string("second"));
    QCOMPARE(events[1].head.kind, quint8(3));
    QCOMPARE(events[2].body, std::string());
    QCOMPARE(events[2].head.kind, quint8(7));
}

void tst_FrameParser::frameCutAtAnyByteIsTheSameFrame()
{
    const std::string frame = frameOf(FrameKind::Response, "a body of some bytes");
    for (std::size_t cut = 0; cut <= frame.size(); ++cut) {
        FrameParser parser;
        auto events = eventsOf(parser, std::string_view(frame).substr(0, cut));
        QCOMPARE(events.size(), std::size_t(cut == frame.size()));
        for (auto &event : eventsOf(parser, std::string_view(frame).substr(cut)))
            events.push_back(std::move(event));
        QCOMPARE(events.size(), std::size_t(1));
        QCOMPARE(events[0].status, quint16(0));
        QCOMPARE(events[0].body, std::string("a body of some bytes"));
    }
}

void tst_FrameParser::frameMayHaveAnEmptyBody()
{
    const auto events = eventsOf(frameOf(FrameKind::Request, {}));
    QCOMPARE(events.size(), std::size_t(1));
    QCOMPARE(events[0].head.bodyLength, quint32(0));
    QCOMPARE(events[0].head.bodyChecksum, quint32(0));
}

void tst_FrameParser::bodyMayHoldAnyBytes()
{
    std::string body;
    for (int byte = 0; byte < 256; ++byte)
        body += static_cast<char>(byte);
    body += "TV\x01";
    QCOMPARE(eventsOf(frameOf(FrameKind::Response, body)).at(0).body, body);
}

void tst_FrameParser::bodyWithoutChecksumIsAccepted()
{
    std::string frame = frameOf(FrameKind::Response, "body");
    std::fill(frame.begin() + 14, frame.begin() + 18, '\0');
    const auto events = eventsOf(withHeadByte(frame, 9, 0));
    QCOMPARE(events.at(0).status, quint16(0));
    QCOMPARE(events.at(0).body, std::string("body"));
}

void tst_FrameParser::invalidFrameIsSkipped_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<int>("status");
    const std::string good = frameOf(FrameKind::Response, "body");
    const auto row = [](const char *name, const std::string &frame, int status) {
        QTest::newRow(name) << QByteArray::fromStdString(frame) << status;
    };
    std::string badBody = good;
    badBody.back() = 'Y';
    row("checksum of the body", badBody, 361);
    row("checksum with checksum index 0", withHeadByte(good, 9, 0), 361);
    row("checksum index 2", withHeadByte(good, 9, 2), 360);
    row("checksum index 255", withHeadByte(good, 9, 255), 360);
    row("kind 0", withHeadByte(good, 10, 0), 362);
    row("kind 8", withHeadByte(good, 10, 8), 362);
}

void tst_FrameParser::invalidFrameIsSkipped()
{
    QFETCH(QByteArray, frame);
    QFETCH(int, status);
    const auto events = eventsOf(frame.toStdString() + frameOf(FrameKind::Response, "next", 8));
    QCOMPARE(events.size(), std::size_t(2));
    QCOMPARE(int(events[0].status), status);
    QVERIFY(!events[0].fatal);
    QCOMPARE(events[0].head.lables, quint8(7));
    QCOMPARE(events[0].body, std::string());
    QCOMPARE(events[1].status, quint16(0));
    QCOMPARE(events[1].body, std::string("next"));
}

void tst_FrameParser::unknownEndOfAFrameIsFatal_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<int>("status");
    const std::string good = frameOf(FrameKind::Response, "body");
    const auto row = [](const char *name, const std::string &frame, int status) {
        QTest::newRow(name) << QByteArray::fromStdString(frame) << status;
    };
    row("first byte of the flag", withHeadByte(good, 0, 'X'), 359);
    row("second byte of the flag", withHeadByte(good, 1, 'X'), 359);
    row("version", withHeadByte(good, 2, 2), 359);
    std::string badHead = good;
    badHead[30] = 0x11;
    row("checksum of the head", badHead, 361);
    row("length above the limit", withHeadByte(good, 7, 0x80), 363);
}

void tst_FrameParser::unknownEndOfAFrameIsFatal()
{
    QFETCH(QByteArray, frame);
    QFETCH(int, status);
    const auto events = eventsOf(frame.toStdString());
    QCOMPARE(events.size(), std::size_t(1));
    QCOMPARE(int(events[0].status), status);
    QVERIFY(events[0].fatal);
}

void tst_FrameParser::bodyAtTheLimitIsAccepted()
{
    FrameParser parser(4);
    QCOMPARE(eventsOf(parser, frameOf(FrameKind::Response, "1234")).at(0).status, quint16(0));
    QCOMPARE(eventsOf(parser, frameOf(FrameKind::Response, "12345")).at(0).status, quint16(363));
}

void tst_FrameParser::wrongFlagIsReportedBeforeTheHeadIsComplete()
{
    const auto events = eventsOf("HTTP/1.1");
    QCOMPARE(events.size(), std::size_t(1));
    QCOMPARE(events[0].status, quint16(359));
}

void tst_FrameParser::bytesAfterAFatalFaultAreIgnored()
{
    FrameParser parser;
    QCOMPARE(eventsOf(parser, "xx" + frameOf(FrameKind::Response, "body")).size(), std::size_t(1));
    QCOMPARE(eventsOf(parser, frameOf(FrameKind::Response, "body")).size(), std::size_t(0));
}

void tst_FrameParser::resetAcceptsANewStream()
{
    FrameParser parser;
    QCOMPARE(eventsOf(parser, "xx").size(), std::size_t(1));
    parser.reset();
    QCOMPARE(eventsOf(parser, frameOf(FrameKind::Response, "body")).at(0).status, quint16(0));
}

void tst_FrameParser::incompleteBodyYieldsNothing()
{
    std::vector<FrameParser> parsers(16);
    WireHead head;
    head.kind = 2;
    head.bodyLength = defaultMaxBodySize;
    head.headChecksum = headChecksum(head);
    const std::string bytes(reinterpret_cast<const char *>(&head), sizeof head);
    for (FrameParser &parser : parsers)
        QCOMPARE(eventsOf(parser, bytes + "x").size(), std::size_t(0));
}

void tst_FrameParser::parserKnowsThatAFrameIsIncomplete()
{
    const std::string frame = Wire::encodeLinkFrame(Wire::FrameKind::Ping).toStdString();
    Wire::FrameParser parser;
    QVERIFY(!parser.isWithinFrame());
    std::string_view bytes = std::string_view(frame).substr(0, 1);
    QVERIFY(!parser.next(bytes));
    QVERIFY(parser.isWithinFrame());
    bytes = std::string_view(frame).substr(1);
    QVERIFY(parser.next(bytes));
    QVERIFY(!parser.isWithinFrame());
}

void tst_FrameParser::unfinishedHeadIsThatOfTheIncompleteFrame()
{
    FrameParser parser;
    const std::string frame = frameOf(FrameKind::Response, "body", 9);
    QVERIFY(!parser.unfinishedHead().has_value());
    QCOMPARE(eventsOf(parser, frame.substr(0, 39)).size(), std::size_t(0));
    QVERIFY(!parser.unfinishedHead().has_value());
    QCOMPARE(eventsOf(parser, frame.substr(39, 3)).size(), std::size_t(0));
    QVERIFY(parser.unfinishedHead().has_value());
    QCOMPARE(parser.unfinishedHead()->lables, quint8(9));
    QCOMPARE(eventsOf(parser, frame.substr(42)).size(), std::size_t(1));
    QVERIFY(!parser.unfinishedHead().has_value());
}

void tst_FrameParser::damagedBytesYieldOnlyKnownFaults()
{
    std::mt19937 random(20);
    for (int round = 0; round < 20000; ++round) {
        std::string bytes =
            frameOf(FrameKind::Response, "some body") + frameOf(FrameKind::Ping, {});
        const auto hits = 1 + random() % 3;
        for (unsigned hit = 0; hit < hits; ++hit)
            bytes[random() % bytes.size()] = static_cast<char>(random() & 0xFF);
        const auto events = eventsOf(bytes);
        QVERIFY(events.size() <= 2);
        for (const FrameEvent &event : events)
            QVERIFY(event.status == 0 || (event.status >= 359 && event.status <= 363));
    }
}

QTEST_APPLESS_MAIN(tst_FrameParser)
#include "tst_frameparser.moc"
