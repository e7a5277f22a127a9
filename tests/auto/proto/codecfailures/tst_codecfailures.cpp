// How reading a record fails, and where reading ends.

#include <support/proto/codecrecords.h>
#include <support/proto/recordprobe.h>

#include <QtTest>

#include <stdexcept>

namespace CodecRecords {

/// Simulates a failure that the text does not cause, such as exhausted memory.
struct Fragile {
    Fragile() { throw std::runtime_error("cannot be made"); }
    std::int32_t a;
    TAVORO_FIELDS(a)
};

/// Throws a type that is not a standard exception.
struct Foreign {
    Foreign() { throw 17; }
    std::int32_t a;
    TAVORO_FIELDS(a)
};

} // namespace CodecRecords

TAVORO_CODEC(CodecRecords::Fragile)
TAVORO_CODEC(CodecRecords::Foreign)

using CodecRecords::Foreign;
using CodecRecords::Fragile;
using CodecRecords::Inner;
using CodecRecords::Outer;

class tst_CodecFailures : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void errorTextGivesThePlaceAndTheReason_data();
    void errorTextGivesThePlaceAndTheReason();
    void trailingContentIsTokenisedOnce();
    void nothingAfterAnEmptyTopLevelRecordIsRead();
    void inputEndsAtTheFirstNul();
    void successLeavesTheErrorUnchanged();
    void failureKeepsTheFieldsAlreadyRead();
    void standardExceptionsBecomeTheErrorText();
    void otherExceptionsPassThrough();
};

void tst_CodecFailures::errorTextGivesThePlaceAndTheReason_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QByteArray>("error");
    const auto row = [](const char *name, const char *json, const char *error) {
        QTest::newRow(name) << QByteArray(json) << QByteArray(error);
    };
    // clang-format off
    row("array for a record",       "[]",                    "error at line :0 col :1 msg:read object must start with {!");
    row("quoted brace",             "\"{\"",                 "error at line :0 col :3 msg:read object must start with {!");
    row("number as a key",          "{1:2}",                 "error at line :0 col :2 msg:object key must be string");
    row("no key",                   "{,",                    "error at line :0 col :2 msg:object key must be string");
    row("end for a key",            "{",                     "error at line :0 col :1 msg:object key must be string");
    row("no colon",                 "{\"id\" 1}",            "error at line :0 col :7 msg:invalid json document!");
    row("quoted colon",             "{\"id\"\":\"1}",        "error at line :0 col :8 msg:invalid json document!");
    row("no comma",                 "{\"id\":1 \"last\":2}", "error at line :0 col :14 msg:invalid json document!");
    row("quoted comma",             "{\"id\":1\",\"",        "error at line :0 col :10 msg:invalid json document!");
    row("bracket for a brace",      "{\"id\":1]",            "error at line :0 col :8 msg:invalid json document!");
    row("end for a brace",          "{\"id\":1",             "error at line :0 col :7 msg:invalid json document!");
    row("record for a vector",      "{\"list\":{}}",         "error at line :0 col :9 msg:array must start with [.");
    row("word for a vector",        "{\"list\":null}",       "error at line :0 col :12 msg:array must start with [.");
    row("number for a record",      "{\"x\":1}",             "error at line :0 col :6 msg:read object must start with {!");
    row("number in a vector",       "{\"list\":[1]}",        "error at line :0 col :10 msg:read object must start with {!");
    row("brace for a bracket",      "{\"numbers\":[1}}",     "error at line :0 col :14 msg:no valid array!");
    row("no comma in a vector",     "{\"numbers\":[1 2]}",   "error at line :0 col :15 msg:no valid array!");
    row("two commas in a vector",   "{\"numbers\":[1,,2]}",  "error at line :0 col :15 msg:not a valid unsigned integral like number.");
    row("end for a bracket",        "{\"numbers\":[1",       "error at line :0 col :13 msg:no valid array!");
    row("in the third line",        "{\r\n\"id\":1,\r\n\"last\"=2}", "error at line :2 col :9 msg:invalid json document!");
    // clang-format on
}

void tst_CodecFailures::errorTextGivesThePlaceAndTheReason()
{
    QFETCH(QByteArray, json);
    QFETCH(QByteArray, error);
    QCOMPARE(decodeError<Outer>(json), error);
}

void tst_CodecFailures::trailingContentIsTokenisedOnce()
{
    QCOMPARE(decodeError<Inner>(R"({"a":1}x)"),
             QByteArray("error at line :0 col :8 msg:not a valid string!"));
    QCOMPARE(decodeError<std::vector<Inner>>("[]x"),
             QByteArray("error at line :0 col :3 msg:not a valid string!"));
    QVERIFY(decodeError<Inner>(R"({"a":1}x )").isEmpty());
    QVERIFY(decodeError<Inner>(R"({"a":1}{"a":)").isEmpty());
    QVERIFY(decodeError<Inner>(R"({"a":1} 5 x)").isEmpty());
}

void tst_CodecFailures::nothingAfterAnEmptyTopLevelRecordIsRead()
{
    QVERIFY(decodeError<Inner>("{}x").isEmpty());
    QVERIFY(decodeError<Inner>("{}/* note */").isEmpty());
}

void tst_CodecFailures::inputEndsAtTheFirstNul()
{
    const QByteArray after = QByteArray("{\"a\":3}") + '\0' + "x";
    QCOMPARE(decoded<Inner>(after).a, 3);
    const QByteArray inside = QByteArray("{\"a\":3,\"b\":4") + '\0' + '}';
    QCOMPARE(decodeError<Inner>(inside),
             QByteArray("error at line :0 col :12 msg:invalid json document!"));
    const QByteArray inText = QByteArray("{\"name\":\"ab") + '\0' + "c\"}";
    QCOMPARE(decodeError<Outer>(inText),
             QByteArray("error at line :0 col :11 msg:not a valid quote string!"));
}

void tst_CodecFailures::successLeavesTheErrorUnchanged()
{
    Inner record;
    std::string error = "old";
    QVERIFY(ajson::decodeRecord(R"({"a":1})", record, error));
    QCOMPARE(error, std::string("old"));
}

void tst_CodecFailures::failureKeepsTheFieldsAlreadyRead()
{
    Outer record;
    std::string error;
    QVERIFY(
        !ajson::decodeRecord(R"({"id":4,"name":"new","x":{"b":8,"a":-},"last":=)", record, error));
    QCOMPARE(record.id, std::uint8_t(4));
    QCOMPARE(record.name, std::string("new"));
    QCOMPARE(record.x.b, 8);
    QCOMPARE(record.last, -1);
}

void tst_CodecFailures::standardExceptionsBecomeTheErrorText()
{
    std::vector<Fragile> list;
    std::string error;
    QVERIFY(!ajson::decodeRecord("[{}]", list, error));
    QCOMPARE(error, std::string("cannot be made"));
}

void tst_CodecFailures::otherExceptionsPassThrough()
{
    std::vector<Foreign> list;
    std::string error = "text from before";
    int caught = 0;
    try {
        ajson::decodeRecord("[{}]", list, error);
    } catch (int thrown) {
        caught = thrown;
    }
    QCOMPARE(caught, 17);
    QCOMPARE(error, std::string("text from before"));
}

QTEST_APPLESS_MAIN(tst_CodecFailures)
#include "tst_codecfailures.moc"
