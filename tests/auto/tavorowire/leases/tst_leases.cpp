// The bodies of requests and answers about the lease, byte for byte.

#include <tavorowire/leases.h>

#include <QTest>

#include <string>

using namespace Tavoro::SSProxy::Wire;
using namespace std::string_literals;

namespace {

/// Byte arrays, which a test can fetch, as strings.
std::string text(const QByteArray &bytes)
{
    return bytes.toStdString();
}

QByteArray bytes(const std::string &text)
{
    return QByteArray::fromStdString(text);
}

} // namespace

class tst_Leases : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void requestHasSecondsAndName();
    void answerHasStateTimeAndName();
    void longestNameIsAccepted();
    void damagedRequestIsRejected_data();
    void damagedRequestIsRejected();
    void damagedAnswerIsRejected_data();
    void damagedAnswerIsRejected();
};

void tst_Leases::requestHasSecondsAndName()
{
    const std::string body = encodeLeaseRequest({0x0E10, "Halle Süd"});
    QCOMPARE(body, "\x10\x0EHalle S\xC3\xBC"s + "d");
    const auto request = decodeLeaseRequest(body);
    QVERIFY(request.has_value());
    QCOMPARE(request->seconds, quint16(3600));
    QCOMPARE(request->holder, "Halle Süd"s);
}

void tst_Leases::answerHasStateTimeAndName()
{
    QCOMPARE(encodeLease({}), "\0\0\0\0\0"s);
    const std::string body = encodeLease({LeaseState::Others, 0x01020304, "a"});
    QCOMPARE(body, "\x02\x04\x03\x02\x01"s + "a");
    const auto lease = decodeLease(body);
    QVERIFY(lease.has_value());
    QCOMPARE(lease->state, LeaseState::Others);
    QCOMPARE(lease->milliseconds, quint32(0x01020304));
    QCOMPARE(lease->holder, "a"s);
    QVERIFY(decodeLease("\0\0\0\0\0"s).has_value());
}

void tst_Leases::longestNameIsAccepted()
{
    const std::string name(64, 'n');
    QVERIFY(decodeLeaseRequest(encodeLeaseRequest({1, name})).has_value());
    QVERIFY(!decodeLeaseRequest(encodeLeaseRequest({1, name + "n"})).has_value());
}

void tst_Leases::damagedRequestIsRejected_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("half of the seconds") << bytes("\5"s);
    QTest::newRow("no name") << bytes("\5\0"s);
    QTest::newRow("NUL in the name") << bytes("\5\0ga\0te"s);
    QTest::newRow("line feed in the name") << bytes("\5\0ga\nte"s);
    QTest::newRow("DEL in the name") << bytes("\5\0gate\x7F"s);
    QTest::newRow("not UTF-8") << bytes("\5\0gate\xFF"s);
    QTest::newRow("incomplete UTF-8") << bytes("\5\0gate\xC3"s);
}

void tst_Leases::damagedRequestIsRejected()
{
    QFETCH(QByteArray, body);
    QVERIFY(!decodeLeaseRequest(text(body)).has_value());
}

void tst_Leases::damagedAnswerIsRejected_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("half of the time") << bytes("\1\1\0"s);
    QTest::newRow("unknown state") << bytes("\3\1\0\0\0gate"s);
    QTest::newRow("free with a holder") << bytes("\0\0\0\0\0gate"s);
    QTest::newRow("free with a time") << bytes("\0\1\0\0\0"s);
    QTest::newRow("held without a holder") << bytes("\1\1\0\0\0"s);
    QTest::newRow("long name") << bytes("\2\1\0\0\0"s + std::string(65, 'n'));
    QTest::newRow("not UTF-8") << bytes("\2\1\0\0\0\xFF"s);
}

void tst_Leases::damagedAnswerIsRejected()
{
    QFETCH(QByteArray, body);
    QVERIFY(!decodeLease(text(body)).has_value());
}

QTEST_APPLESS_MAIN(tst_Leases)
#include "tst_leases.moc"
