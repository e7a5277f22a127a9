// The faults that a device can have, and the bytes that it sends then.

#include "faulttable.h"

#include <tavorosim/state/texts.h>
#include <tavorowire/frame.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>

namespace Tavoro::Sim {

using SSProxy::Wire::WireHead;

namespace {

using Packet = PacketAssembler::Packet;

constexpr quint32 any = std::numeric_limits<quint32>::max();

QByteArray frameOf(const Packet &packet)
{
    return SSProxy::Wire::encodeFrame(packet.head, packet.body);
}

WireHead headOf(const QByteArray &frame)
{
    WireHead head;
    std::memcpy(static_cast<void *>(&head), frame.constData(), sizeof head);
    return head;
}

/// The frame with another head, whose checksum is correct.
QByteArray withHead(const QByteArray &frame, WireHead head)
{
    head.headChecksum = SSProxy::Wire::headChecksum(head);
    constexpr int size = sizeof head;
    return QByteArray(reinterpret_cast<const char *>(&head), size) + frame.mid(size);
}

void refuse(const FaultedRequest &request, Delivery &delivery)
{
    Packet packet{SSProxy::Wire::responseHead(request.head), {}};
    packet.head.status = static_cast<quint8>(request.value);
    delivery.bytes = frameOf(packet);
    delivery.preparedAnswer = std::move(packet);
}

void answerLate(const FaultedRequest &request, Delivery &delivery)
{
    delivery.bytes = frameOf(request.answer());
    delivery.delay = static_cast<int>(request.value);
}

void holdAnswer(const FaultedRequest &request, Delivery &delivery)
{
    delivery.bytes = frameOf(request.answer());
    delivery.isHeld = true;
}

void keepSilent(const FaultedRequest &request, Delivery & /*delivery*/)
{
    request.answer();
}

void ignore(const FaultedRequest & /*request*/, Delivery & /*delivery*/) { }

void answerHalf(const FaultedRequest &request, Delivery &delivery)
{
    delivery.bytes = frameOf(request.answer());
    delivery.bytes.truncate(delivery.bytes.size() / 2);
}

void dropRequest(const FaultedRequest & /*request*/, Delivery &delivery)
{
    delivery.endsConnection = true;
}

void dropBefore(const FaultedRequest &request, Delivery &delivery)
{
    request.answer();
    delivery.endsConnection = true;
}

void dropWithin(const FaultedRequest &request, Delivery &delivery)
{
    answerHalf(request, delivery);
    delivery.endsConnection = true;
}

void dropAfter(const FaultedRequest &request, Delivery &delivery)
{
    delivery.bytes = frameOf(request.answer());
    delivery.endsConnection = true;
}

/// Changes one byte of the head; the checksum of the head is correct.
template <std::size_t Position, quint8 Mask>
void changeHead(const FaultedRequest &request, Delivery &delivery)
{
    delivery.bytes = frameOf(request.answer());
    WireHead head = headOf(delivery.bytes);
    reinterpret_cast<quint8 *>(&head)[Position] ^= Mask;
    delivery.bytes = withHead(delivery.bytes, head);
}

void spoilHeadChecksum(const FaultedRequest &request, Delivery &delivery)
{
    delivery.bytes = frameOf(request.answer());
    char &byte = delivery.bytes.data()[offsetof(WireHead, headChecksum)];
    byte = static_cast<char>(~byte);
}

void claimMoreBytes(const FaultedRequest &request, Delivery &delivery)
{
    delivery.bytes = frameOf(request.answer());
    WireHead head = headOf(delivery.bytes);
    head.bodyLength += std::min(request.value, any - head.bodyLength);
    delivery.bytes = withHead(delivery.bytes, head);
}

void claimPackets(const FaultedRequest &request, Delivery &delivery)
{
    Packet packet = request.answer();
    packet.head.totalCount = request.value;
    delivery.bytes = frameOf(packet);
}

void answerTwice(const FaultedRequest &request, Delivery &delivery)
{
    const QByteArray frame = frameOf(request.answer());
    delivery.bytes = frame + frame;
}

void answerAnother(const FaultedRequest &request, Delivery &delivery)
{
    Packet packet = request.answer();
    if (request.history.unanswered.lables != 0) {
        packet.head.lables = request.history.unanswered.lables;
        packet.head.stream = request.history.unanswered.stream;
        packet.head.number = request.history.unanswered.number;
    }
    delivery.bytes = frameOf(packet);
}

/// Sends the next packet instead of this one, which is kept for the next request.
void swapPackets(const FaultedRequest &request, Delivery &delivery)
{
    Packet due = request.answer();
    const quint32 next = due.head.sendCount + 1;
    if (next >= due.head.totalCount) {
        delivery.bytes = frameOf(due);
        return;
    }
    WireHead head = request.head;
    head.totalCount = due.head.totalCount;
    head.sendCount = next;
    delivery.bytes = frameOf(request.makeAnswer(head));
    auto &heldBack = request.history.heldBack;
    heldBack.push_back(std::move(due));
    if (heldBack.size() > PacketAssembler::maxStreams) // the oldest will not be requested
        heldBack.pop_front();
}

void cutBody(const FaultedRequest &request, Delivery &delivery)
{
    Packet packet = request.answer();
    packet.body.resize(request.value == 0
                           ? packet.body.size() / 2
                           : std::min<std::size_t>(request.value, packet.body.size()));
    delivery.bytes = frameOf(packet);
}

/// Takes each byte with the probability (bytes still to take) / (bytes left), so that exactly the
/// requested number of bytes change, or all.
void garbleBody(const FaultedRequest &request, Delivery &delivery)
{
    Packet packet = request.answer();
    const std::size_t size = packet.body.size();
    std::size_t due = std::min<std::size_t>(request.value, size);
    for (std::size_t i = 0; due > 0; ++i) {
        if (request.random() % (size - i) >= due)
            continue;
        packet.body[i] = '#';
        --due;
    }
    delivery.bytes = frameOf(packet);
}

void stopReading(const FaultedRequest &request, Delivery &delivery)
{
    delivery.stopsReading = true;
    delivery.readingPause = static_cast<int>(request.value);
}

void restart(const FaultedRequest & /*request*/, Delivery &delivery)
{
    delivery.restarts = true;
    delivery.endsConnection = true;
}

void flood(const FaultedRequest &request, Delivery &delivery)
{
    delivery.bytes = frameOf(request.answer());
    delivery.reports = request.value;
}

#define TEXT(text) QT_TRANSLATE_NOOP("Sim", text)

constexpr quint32 tenMinutes = 600000;
constexpr quint32 maxReports = 100000; ///< They fit into the buffer of SimClient::maxUnreadBytes.
constexpr quint32 aboveEveryLimit = 0x10000000;

// The device carries a request out unless the help says otherwise.
// clang-format off
constexpr FaultRow faultRows[] = {
//   name                   value     min, max       default          help                                                              injection
    {"status",              "NUMBER", 1, 255,        0,               TEXT("refuses the request with this status"),                     refuse},
    {"late",                "MS",     1, tenMinutes, 0,               TEXT("answers later"),                                            answerLate},
    {"hold",                "",       0, 0,          0,               TEXT("answers after \"fault release\""),                          holdAnswer},
    {"silent",              "",       0, 0,          0,               TEXT("never answers"),                                            keepSilent},
    {"ignore",              "",       0, 0,          0,               TEXT("does not carry the request out and never answers"),         ignore},
    {"stall",               "",       0, 0,          0,               TEXT("sends half of the answer and never the rest"),              answerHalf},
    {"drop-request",        "",       0, 0,          0,               TEXT("does not carry the request out and ends the connection"),   dropRequest},
    {"drop-before",         "",       0, 0,          0,               TEXT("ends the connection before the answer"),                    dropBefore},
    {"drop-within",         "",       0, 0,          0,               TEXT("ends the connection after half of the answer"),             dropWithin},
    {"drop-after",          "",       0, 0,          0,               TEXT("ends the connection after the answer"),                     dropAfter},
    {"wrong-flag",          "",       0, 0,          0,               TEXT("answers with another flag (position 0)"),                   changeHead<0, 0xFF>},
    {"wrong-version",       "",       0, 0,          0,               TEXT("answers with another version (2)"),                         changeHead<2, 0x80>},
    {"wrong-tag",           "",       0, 0,          0,               TEXT("answers with a tag that is not in use (3)"),                changeHead<3, 0x80>},
    {"wrong-length",        "BYTES",  1, any,        aboveEveryLimit, TEXT("answers with a body length that is too large by this (4)"), claimMoreBytes},
    {"wrong-index",         "",       0, 0,          0,               TEXT("answers with a checksum index that is not defined (9)"),    changeHead<9, 0x80>},
    {"wrong-kind",          "",       0, 0,          0,               TEXT("answers with a kind that is not defined (10)"),             changeHead<10, 0x80>},
    {"wrong-head-checksum", "",       0, 0,          0,               TEXT("answers with another checksum of the head (12)"),           spoilHeadChecksum},
    {"wrong-checksum",      "",       0, 0,          0,               TEXT("answers with another checksum of the body (14)"),           changeHead<14, 0xFF>},
    {"wrong-stream",        "",       0, 0,          0,               TEXT("answers with another stream (18)"),                         changeHead<18, 0xFF>},
    {"wrong-type",          "",       0, 0,          0,               TEXT("answers with another type (20)"),                           changeHead<20, 0x80>},
    {"wrong-code",          "",       0, 0,          0,               TEXT("answers with another function code (29)"),                  changeHead<29, 0x80>},
    {"packets",             "NUMBER", 0, any,        any,             TEXT("answers with this number of packets (21)"),                 claimPackets},
    {"swap-packets",        "",       0, 0,          0,               TEXT("sends the next packet first, then this one"),               swapPackets},
    {"twice",               "",       0, 0,          0,               TEXT("answers twice"),                                            answerTwice},
    {"other-tag",           "",       0, 0,          0,               TEXT("answers an earlier request without an answer"),             answerAnother},
    {"truncate",            "BYTES",  0, any,        0,               TEXT("sends this part of the body, 0: half, in a valid frame"),   cutBody},
    {"garble",              "BYTES",  1, any,        1,               TEXT("replaces bytes of the body by #, in a valid frame"),        garbleBody},
    {"stop-reading",        "MS",     0, tenMinutes, 0,               TEXT("neither reads nor answers for this time, 0: until \"fault release\""), stopReading},
    {"reboot",              "",       0, 0,          0,               TEXT("does not carry the request out and restarts"),              restart},
    {"flood",               "NUMBER", 1, maxReports, 0,               TEXT("sends reports before the answer, up to 100000"),            flood},
};
// clang-format on

} // namespace

const FaultRow *findFault(const QString &name)
{
    const auto row =
        std::find_if(std::begin(faultRows), std::end(faultRows), [&](const FaultRow &candidate) {
            return name == QLatin1String(candidate.name);
        });
    return row == std::end(faultRows) ? nullptr : row;
}

QString faultHelp()
{
    QString help;
    for (const FaultRow &row : faultRows) {
        QString call = QLatin1String(row.name);
        if (row.takesValue())
            call += (row.needsValue() ? QStringLiteral("=%1") : QStringLiteral("[=%1]"))
                        .arg(QLatin1String(row.valueName));
        help += QStringLiteral("  %1 %2\n").arg(call, -22).arg(Texts::tr(row.help));
    }
    return help;
}

} // namespace Tavoro::Sim
