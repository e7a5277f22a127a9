// Faults of the simulated device: how rules are read and applied, and the bytes that each fault
// sends.

#include <support/tavorosim/faultrule.h>

#include <tavorosim/commands/commandnames.h>
#include <tavorosim/faults/faultyanswers.h>
#include <tavorowire/frame.h>

#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <cstring>

using namespace Tavoro;
using namespace Tavoro::Sim;
using SSProxy::Wire::WireHead;

namespace {

// The answer to a read of code 0x1100 with tag 2 on stream 2, and its first half.
constexpr char rightAnswer[] = "545601020A000000000102005D291AF560BB0200010100000000000000001100000"
                               "00000020000007B2273776170223A317D";
constexpr char halfAnswer[] = "545601020A000000000102005D291AF560BB02000101000000";

struct FaultCase {
    const char *rule;
    const char *bytes;
    int carriedOut; ///< How often the request is carried out.
    const char *effect;
};

// clang-format off
constexpr FaultCase faultCases[] = {
    {"status=8",             "545601020000000008010200E71B0000000002000101000000000000000011000000000002000000",                        0, ""},
    {"late=200",             rightAnswer,                                                                                                     1, "late 200"},
    {"hold",                 rightAnswer,                                                                                                     1, "held"},
    {"silent",               "",                                                                                                        1, ""},
    {"ignore",               "",                                                                                                        0, ""},
    {"stall",                halfAnswer,                                                                                                      1, ""},
    {"drop-request",         "",                                                                                                        0, "ends"},
    {"drop-before",          "",                                                                                                        1, "ends"},
    {"drop-within",          halfAnswer,                                                                                                      1, "ends"},
    {"drop-after",           rightAnswer,                                                                                                     1, "ends"},
    {"wrong-flag",           "AB5601020A000000000102001EED1AF560BB020001010000000000000000110000000000020000007B2273776170223A317D",    1, ""},
    {"wrong-version",        "545681020A000000000102007AF01AF560BB020001010000000000000000110000000000020000007B2273776170223A317D",    1, ""},
    {"wrong-tag",            "545601820A0000000001020072FB1AF560BB020001010000000000000000110000000000020000007B2273776170223A317D",    1, ""},
    {"wrong-length",         "545601020A00001000010200290F1AF560BB020001010000000000000000110000000000020000007B2273776170223A317D",    1, ""},
    {"wrong-length=1",       "545601020B0000000001020012851AF560BB020001010000000000000000110000000000020000007B2273776170223A317D",    1, ""},
    {"wrong-length=4294967295", "54560102FFFFFFFF00010200EB821AF560BB020001010000000000000000110000000000020000007B2273776170223A317D", 1, ""},
    {"wrong-index",          "545601020A000000008102002CBD1AF560BB020001010000000000000000110000000000020000007B2273776170223A317D",    1, ""},
    {"wrong-kind",           "545601020A00000000018200CDD11AF560BB020001010000000000000000110000000000020000007B2273776170223A317D",    1, ""},
    {"wrong-head-checksum",  "545601020A00000000010200A2291AF560BB020001010000000000000000110000000000020000007B2273776170223A317D",    1, ""},
    {"wrong-checksum",       "545601020A000000000102004B96E5F560BB020001010000000000000000110000000000020000007B2273776170223A317D",    1, ""},
    {"wrong-stream",         "545601020A00000000010200B25C1AF560BBFD0001010000000000000000110000000000020000007B2273776170223A317D",    1, ""},
    {"wrong-type",           "545601020A00000000010200F1E41AF560BB020081010000000000000000110000000000020000007B2273776170223A317D",    1, ""},
    {"wrong-code",           "545601020A0000000001020046BB1AF560BB020001010000000000000080110000000000020000007B2273776170223A317D",    1, ""},
    {"packets",              "545601020A000000000102003A0B1AF560BB020001FFFFFFFF0000000000110000000000020000007B2273776170223A317D",    1, ""},
    {"packets=3",            "545601020A00000000010200DE071AF560BB020001030000000000000000110000000000020000007B2273776170223A317D",    1, ""},
    {"swap-packets",         rightAnswer,                                                                                                     1, ""},
    {"twice",                "545601020A000000000102005D291AF560BB020001010000000000000000110000000000020000007B2273776170223A317D"
                             "545601020A000000000102005D291AF560BB020001010000000000000000110000000000020000007B2273776170223A317D",    1, ""},
    {"other-tag",            rightAnswer,                                                                                                     1, ""},
    {"truncate",             "54560102050000000001020039698029674E020001010000000000000000110000000000020000007B22737761",              1, ""},
    {"truncate=2",           "545601020200000000010200B96B26F37258020001010000000000000000110000000000020000007B22",                    1, ""},
    {"truncate=99",          rightAnswer,                                                                                                     1, ""},
    {"garble",               "545601020A000000000102000455E989B337020001010000000000000000110000000000020000007B2273776170223A3123",    1, ""},
    {"garble=2",             "545601020A00000000010200B3218E222375020001010000000000000000110000000000020000007B2273772370223A3123",    1, ""},
    {"garble=10",            "545601020A00000000010200CF7941F42BE60200010100000000000000001100000000000200000023232323232323232323",    1, ""},
    {"garble=4294967295",    "545601020A00000000010200CF7941F42BE60200010100000000000000001100000000000200000023232323232323232323",    1, ""},
    {"stop-reading",         "",                                                                                                        0, "reads on after 0"},
    {"stop-reading=5",       "",                                                                                                        0, "reads on after 5"},
    {"reboot",               "",                                                                                                        0, "ends restarts"},
    {"flood=3",              rightAnswer,                                                                                                     1, "3 reports"},
};
// clang-format on

WireHead readRequest(quint8 tag = 2, quint16 stream = 2, quint32 total = 0, quint32 index = 0)
{
    WireHead head;
    head.kind = 1;
    head.type = 1;
    head.BC = 0x11;
    head.lables = tag;
    head.number = tag;
    head.stream = stream;
    head.totalCount = total;
    head.sendCount = index;
    return head;
}

/// The effects on the connection, as text.
QString effectOf(const Delivery &delivery)
{
    QStringList words;
    if (delivery.delay > 0)
        words << QStringLiteral("late %1").arg(delivery.delay);
    if (delivery.isHeld)
        words << QStringLiteral("held");
    if (delivery.endsConnection)
        words << QStringLiteral("ends");
    if (delivery.stopsReading)
        words << QStringLiteral("reads on after %1").arg(delivery.readingPause);
    if (delivery.reports > 0)
        words << QStringLiteral("%1 reports").arg(delivery.reports);
    if (delivery.restarts)
        words << QStringLiteral("restarts");
    return words.join(QLatin1Char(' '));
}

/// One connection. Its answers are {"swap":1}, or the packets "0", "1" and so on of a split answer.
struct Connection {
    explicit Connection(std::initializer_list<const char *> texts, quint32 packets = 1)
        : total(packets)
    {
        for (const char *text : texts)
            rules.add(faultRule(text));
    }

    Delivery ask(const WireHead &request, quint16 code = 0x1100)
    {
        return answers.deliver(request, code, [this](const WireHead &head) {
            ++carriedOut;
            PacketAssembler::Packet packet{SSProxy::Wire::responseHead(head), "{\"swap\":1}"};
            packet.head.totalCount = total;
            packet.head.sendCount = head.sendCount;
            if (total > 1)
                packet.body = std::to_string(head.sendCount);
            return packet;
        });
    }

    FaultRules rules;
    FaultyAnswers answers{rules};
    quint32 total;
    int carriedOut = 0;
};

WireHead headOf(const Delivery &delivery)
{
    WireHead head;
    std::memcpy(static_cast<void *>(&head), delivery.bytes.constData(), sizeof head);
    return head;
}

/// "status/index/body" of the answer.
QString packetOf(const Delivery &delivery)
{
    return QStringLiteral("%1/%2/%3")
        .arg(headOf(delivery).lables)
        .arg(headOf(delivery).sendCount)
        .arg(QLatin1String(delivery.bytes.mid(40)));
}

} // namespace

class tst_FaultRules : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ruleIsReadAndWritten_data();
    void ruleIsReadAndWritten();
    void invalidRulesAreRefused_data();
    void invalidRulesAreRefused();
    void everyCommandHasItsName();
    void everyFaultHasACase();
    void eachFaultSendsItsBytes_data();
    void eachFaultSendsItsBytes();
    void firstMatchingRuleApplies();
    void rulesWithoutCodeSpareTheIdentity();
    void countAndSkipAreUsedUp();
    void shareDependsOnTheSeed();
    void shareAppliesAfterSkip();
    void anotherRequestsTagIsUsed();
    void swappedPacketsAreDeliveredInReverseOrder();
};

void tst_FaultRules::ruleIsReadAndWritten_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("written");
    const auto row = [](const char *text, const char *written) {
        QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(written);
    };
    row("silent", "silent");
    row("status=255", "status=255");
    row("late=0x10,count=1", "late=16,count=1");
    row("late=0X1f", "late=31");
    row("late=010", "late=10");
    row("silent,skip=08,count=09,share=010", "silent,skip=8,count=9,share=10");
    row("silent,code=04423", "silent,code=0x1147");
    row("truncate", "truncate=0");
    row("wrong-length", "wrong-length=268435456");
    row("drop-within,code=0x1107", "drop-within,code=DeviceSwap");
    row("drop-within,code=DeviceSwap", "drop-within,code=DeviceSwap");
    row("drop-within,code=4423", "drop-within,code=0x1147");
    row("ignore,code=identity", "ignore,code=identity");
    row("ignore,share=25,count=3,skip=2", "ignore,skip=2,count=3,share=25");
    row("ignore,share=100,skip=0", "ignore");
}

void tst_FaultRules::ruleIsReadAndWritten()
{
    QFETCH(QString, text);
    QFETCH(QString, written);
    QString error;
    const auto read = parseFaultRule(text, error);
    QVERIFY2(read, qPrintable(error));
    QCOMPARE(toText(*read), written);
}

void tst_FaultRules::invalidRulesAreRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *text, const char *reason) {
        QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(reason);
    };
    row("", "unknown fault: \"\"");
    row("quiet", "unknown fault: \"quiet\"");
    row("Silent", "unknown fault: \"Silent\"");
    row("silent=1", "silent takes no value");
    row("silent=", "silent takes no value");
    row("status", "status takes a number from 1 to 255");
    row("status=", "status takes a number from 1 to 255");
    row("status=0", "status takes a number from 1 to 255");
    row("status=256", "status takes a number from 1 to 255");
    row("late=-1", "late takes a number from 1 to 600000");
    row("flood=100001", "flood takes a number from 1 to 100000");
    row("status=8,code=identity", "the identity answer has no status");
    row("status=8,skip=1,code=identity,count=2", "the identity answer has no status");
    row("late=0b11", "late takes a number from 1 to 600000");
    row("late=1f", "late takes a number from 1 to 600000");
    row("silent,code=0x1107,code=0x1100", "code is given twice");
    row("silent,skip=1,skip=1", "skip is given twice");
    row("silent,count=1,share=5,count=2", "count is given twice");
    row("silent,share=5,share=50", "share is given twice");
    row("silent,code=0", "\"0\" is not a valid code (0x1 to 0xFFFF, or the name of a command)");
    row("silent,code=0x10000",
        "\"0x10000\" is not a valid code (0x1 to 0xFFFF, or the name of a command)");
    row("silent,code=deviceSwap",
        "\"deviceSwap\" is not a valid code (0x1 to 0xFFFF, or the name of a command)");
    row("silent,code", "\"\" is not a valid code (0x1 to 0xFFFF, or the name of a command)");
    row("silent,count=0", "\"0\" is not a valid count (1 to 4294967295)");
    row("silent,share=0", "\"0\" is not a valid share (1 to 100)");
    row("silent,share=101", "\"101\" is not a valid share (1 to 100)");
    row("silent,skip=x", "\"x\" is not a valid skip (0 to 4294967295)");
    row("silent,", "unknown limit: \"\"");
    row("silent,often=1", "unknown limit: \"often\"");
}

void tst_FaultRules::invalidRulesAreRefused()
{
    QFETCH(QString, text);
    QFETCH(QString, reason);
    QString error;
    QVERIFY(!parseFaultRule(text, error));
    QCOMPARE(error, reason);
}

void tst_FaultRules::everyCommandHasItsName()
{
    QFile header(QStringLiteral(COMMAND_CODES));
    QVERIFY(header.open(QIODevice::ReadOnly));
    static const QRegularExpression line(QStringLiteral("(\\w+) += (0x[0-9A-F]{4}),"));
    auto found = line.globalMatch(QString::fromUtf8(header.readAll()));
    int count = 0;
    for (; found.hasNext(); ++count) {
        const QRegularExpressionMatch match = found.next();
        const auto code = findCode(match.captured(1));
        QVERIFY2(code, qPrintable(match.captured(1)));
        QCOMPARE(*code, match.captured(2).toUShort(nullptr, 16));
        QCOMPARE(nameOfCode(*code), match.captured(1));
    }
    QCOMPARE(count, 89);
}

void tst_FaultRules::everyFaultHasACase()
{
    QStringList cases;
    for (const FaultCase &it : faultCases)
        cases << QString::fromLatin1(it.rule).section(QLatin1Char('='), 0, 0);
    cases.removeDuplicates();
    QCOMPARE(cases.join(QLatin1Char(' ')), faultNames().join(QLatin1Char(' ')));
}

void tst_FaultRules::eachFaultSendsItsBytes_data()
{
    QTest::addColumn<int>("row");
    for (std::size_t i = 0; i < std::size(faultCases); ++i)
        QTest::newRow(faultCases[i].rule) << int(i);
}

void tst_FaultRules::eachFaultSendsItsBytes()
{
    QFETCH(int, row);
    const FaultCase &it = faultCases[row];
    Connection connection{it.rule};
    const Delivery delivery = connection.ask(readRequest());
    QCOMPARE(delivery.bytes.toHex().toUpper(), QByteArray(it.bytes));
    QCOMPARE(connection.carriedOut, it.carriedOut);
    QCOMPARE(effectOf(delivery), QString::fromLatin1(it.effect));
    connection.rules.clear();
    QCOMPARE(connection.ask(readRequest()).bytes.toHex().toUpper(), QByteArray(rightAnswer));
}

void tst_FaultRules::firstMatchingRuleApplies()
{
    Connection connection{"status=3,code=0x1101", "status=4", "status=5"};
    QCOMPARE(int(headOf(connection.ask(readRequest(), 0x1100)).status), 4);
    QCOMPARE(int(headOf(connection.ask(readRequest(), 0x1101)).status), 3);
}

void tst_FaultRules::rulesWithoutCodeSpareTheIdentity()
{
    Connection connection{"silent"};
    QVERIFY(!connection.ask(readRequest(), identityCode).bytes.isEmpty());
    connection.rules.add(faultRule("ignore,code=identity"));
    QVERIFY(connection.ask(readRequest(), identityCode).bytes.isEmpty());
}

void tst_FaultRules::countAndSkipAreUsedUp()
{
    Connection connection{"silent,skip=2,count=2"};
    QString answered;
    for (int i = 0; i < 6; ++i)
        answered +=
            connection.ask(readRequest()).bytes.isEmpty() ? QLatin1Char('-') : QLatin1Char('+');
    QCOMPARE(answered, QStringLiteral("++--++"));
    QVERIFY(connection.answers.isIdle());
}

void tst_FaultRules::shareDependsOnTheSeed()
{
    const auto sequence = [](quint32 seed) {
        Connection connection{"silent,share=50"};
        connection.rules.seed(seed);
        QString answered;
        for (int i = 0; i < 16; ++i)
            answered +=
                connection.ask(readRequest()).bytes.isEmpty() ? QLatin1Char('-') : QLatin1Char('+');
        return answered;
    };
    QCOMPARE(sequence(1), QStringLiteral("---++-+-+-------"));
    QCOMPARE(sequence(1), sequence(1));
    QCOMPARE(sequence(2), QStringLiteral("-+--++--+-+-++++"));
}

void tst_FaultRules::shareAppliesAfterSkip()
{
    Connection connection{"silent,skip=3,share=50"};
    QString answered;
    for (int i = 0; i < 3 + 16; ++i)
        answered +=
            connection.ask(readRequest()).bytes.isEmpty() ? QLatin1Char('-') : QLatin1Char('+');
    QCOMPARE(answered, QStringLiteral("+++---++-+-+-------"));
}

void tst_FaultRules::anotherRequestsTagIsUsed()
{
    Connection connection{"silent,code=0x1101", "other-tag,code=0x1100"};
    connection.ask(readRequest(7, 9), 0x1101);
    const WireHead head = headOf(connection.ask(readRequest()));
    QCOMPARE(int(head.lables), 7);
    QCOMPARE(int(head.stream), 9);
    QCOMPARE(int(head.code()), 0x1100);
}

void tst_FaultRules::swappedPacketsAreDeliveredInReverseOrder()
{
    Connection connection({"swap-packets,skip=1,count=1"}, 4);
    QCOMPARE(packetOf(connection.ask(readRequest(2))), QStringLiteral("2/0/0"));
    QCOMPARE(packetOf(connection.ask(readRequest(3, 2, 4, 1))), QStringLiteral("3/2/2"));
    QVERIFY(!connection.answers.isIdle());
    QCOMPARE(packetOf(connection.ask(readRequest(4, 2, 4, 2))), QStringLiteral("4/1/1"));
    QCOMPARE(packetOf(connection.ask(readRequest(5, 2, 4, 3))), QStringLiteral("5/3/3"));
    QCOMPARE(connection.carriedOut, 4);
    QVERIFY(connection.answers.isIdle());
}

QTEST_GUILESS_MAIN(tst_FaultRules)
#include "tst_faultrules.moc"
