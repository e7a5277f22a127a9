#include <support/proto/codecrecords.h>
#include <support/proto/recordprobe.h>

#include <QtTest>

using CodecRecords::Inner;
using CodecRecords::Outer;

class tst_CodecRecords : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // records
    void emptyBodyFailsAtLineAndColumnZero();
    void trailingCommaFailsInARecordAndSucceedsInAnArray();
    void nestedEmptyObjectEndsTheEnclosingRecord();
    void emptyElementMakesItsArrayFail();
    void missingKeysKeepTheirDefaults();
    void inheritedMembersAreWrittenAndUnlistedOnesAreNot();
    void keysAreReadInAnyOrderAndAnyForm();
    void keysAreComparedExactly();
    void repeatedKeyIsReadAgain();
    void repeatedRecordKeepsTheKeysThatItLacks();
    void repeatedVectorHasTheElementsOfBoth();
    void blanksAndCommentsAreAllowedAnywhere();
    void closedBlockCommentFailsBeforeAnyToken();
    void unclosedBlockCommentLeavesThePreviousTokenCurrent_data();
    void unclosedBlockCommentLeavesThePreviousTokenCurrent();
    // vectors
    void vectorsOfEveryTypeAreRead();
    void topLevelArrayIsReadLikeAVectorField();
    void elementsAreAppended();
    void failingElementStaysInItsVector();
    void firstTokenOfAnElementFailsBeforeItIsAppended();
    // unknown keys
    void unknownKeysAreSkippedAtAnyDepth_data();
    void unknownKeysAreSkippedAtAnyDepth();
    void brokenUnknownValuesFail_data();
    void brokenUnknownValuesFail();
    void tenMillionBracketsNeitherOverflowNorHang();
};

void tst_CodecRecords::emptyBodyFailsAtLineAndColumnZero()
{
    QCOMPARE(decodeError<Inner>(""),
             QByteArray("error at line :0 col :0 msg:read object must start with {!"));
    QCOMPARE(decodeError<std::vector<Inner>>(""),
             QByteArray("error at line :0 col :0 msg:array must start with [."));
}

void tst_CodecRecords::trailingCommaFailsInARecordAndSucceedsInAnArray()
{
    QCOMPARE(decodeError<Inner>(R"({"a":1,})"),
             QByteArray("error at line :0 col :8 msg:object key must be string"));
    QCOMPARE(decoded<Outer>(R"({"numbers":[1,]})").numbers, std::vector<std::uint8_t>{1});
    QCOMPARE(decoded<std::vector<Inner>>(R"([{"a":1},])").size(), std::size_t(1));
}

void tst_CodecRecords::nestedEmptyObjectEndsTheEnclosingRecord()
{
    const auto record = decoded<Outer>(R"({"x":{},"last":1})");
    QCOMPARE(record.last, -1);
    QCOMPARE(decoded<Outer>(R"({"x":{ },"last":1})").last, -1);
    QCOMPARE(decodeError<Outer>(R"({"list":[{"a":1},{}]})"),
             QByteArray("error at line :0 col :19 msg:no valid array!"));
}

void tst_CodecRecords::emptyElementMakesItsArrayFail()
{
    std::vector<Inner> list;
    std::string error;
    QVERIFY(!ajson::decodeRecord("[{},{}]", list, error));
    QCOMPARE(error, std::string("error at line :0 col :3 msg:no valid array!"));
    QCOMPARE(list.size(), std::size_t(1));
}

void tst_CodecRecords::missingKeysKeepTheirDefaults()
{
    const auto record = decoded<Outer>(R"({"name":"n","list":[{"b":7}]})");
    QCOMPARE(record.id, std::uint8_t(9));
    QCOMPARE(record.name, std::string("n"));
    QCOMPARE(record.list.at(0).a, 1);
    QCOMPARE(record.list.at(0).b, 7);
    QCOMPARE(record.last, -1);
}

void tst_CodecRecords::inheritedMembersAreWrittenAndUnlistedOnesAreNot()
{
    const auto record = decoded<Outer>(R"({"id":3,"unlisted":4})");
    QCOMPARE(record.id, std::uint8_t(3));
    QCOMPARE(record.unlisted, 5);
}

void tst_CodecRecords::keysAreReadInAnyOrderAndAnyForm()
{
    const QByteArrayList texts = {R"({"a":3,"b":4})", R"({"b":4,"a":3})", R"({b:4,a:3})",
                                  R"({ "a" : 3 , "b" : 4 })",
                                  R"({"x":0,"a":3,"y":[],"b":4,"z":{}})"};
    for (const QByteArray &text : texts) {
        const auto record = decoded<Inner>(text);
        QCOMPARE(record.a, 3);
        QCOMPARE(record.b, 4);
    }
}

void tst_CodecRecords::keysAreComparedExactly()
{
    const auto record = decoded<Inner>(R"({"A":3,"aa":4,"":5,"\u0061":6," a":7})");
    QCOMPARE(record.a, 1);
    QCOMPARE(record.b, 2);
}

void tst_CodecRecords::repeatedKeyIsReadAgain()
{
    QCOMPARE(decoded<Inner>(R"({"a":3,"a":4})").a, 4);
    QCOMPARE(decoded<Inner>(R"({"a":3,"b":5,"a":"6"})").a, 6);
}

void tst_CodecRecords::repeatedRecordKeepsTheKeysThatItLacks()
{
    const auto record = decoded<Outer>(R"({"x":{"a":3,"b":4},"x":{"b":5}})");
    QCOMPARE(record.x.a, 3);
    QCOMPARE(record.x.b, 5);
}

void tst_CodecRecords::repeatedVectorHasTheElementsOfBoth()
{
    const auto record = decoded<Outer>(R"({"numbers":[1,2],"numbers":[3]})");
    QCOMPARE(record.numbers, (std::vector<std::uint8_t>{1, 2, 3}));
}

void tst_CodecRecords::blanksAndCommentsAreAllowedAnywhere()
{
    const auto record = decoded<Outer>("// first\n\t{ \"id\" // of the record\r\n : 3 , \"x\":\n{"
                                       "\"a\" :7} ,//\n\"list\": [ {\"b\":8 } , ] } // last");
    QCOMPARE(record.id, std::uint8_t(3));
    QCOMPARE(record.x.a, 7);
    QCOMPARE(record.list.at(0).b, 8);
}

void tst_CodecRecords::closedBlockCommentFailsBeforeAnyToken()
{
    QCOMPARE(decodeError<Inner>("/* note */{\"a\":1}"),
             QByteArray("error at line :0 col :10 msg:not a comment!"));
    QCOMPARE(decodeError<Inner>("{\"a\":/* note */1}"),
             QByteArray("error at line :0 col :15 msg:not a comment!"));
    QVERIFY(decodeError<Inner>("// note\n{\"a\":1}").isEmpty());
}

void tst_CodecRecords::unclosedBlockCommentLeavesThePreviousTokenCurrent_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QByteArray>("error");
    const auto row = [](const char *json, const char *error) {
        QTest::newRow(json) << QByteArray(json) << QByteArray(error);
    };
    // clang-format off
    row("{\"last\":1}/*",            "");
    row("{\"x\":{\"a\":1}/*",          ""); // the inner brace ends the outer record too
    row("{\"x\":{\"a\":1} /*",         "");
    row("{\"x\":{\"a\":[1]}/*",        "error at line :0 col :11 msg:not a valid signed integral like number.");
    row("{\"list\":[{\"a\":1}/*",      "error at line :0 col :18 msg:no valid array!");
    row("{\"rows\":[[1]/*",          "error at line :0 col :14 msg:invalid json document!"); // the inner bracket ends both
    row("{\"last\":1,/*",            "error at line :0 col :12 msg:object key must be string");
    row("{\"last\":1/*",             "error at line :0 col :11 msg:invalid json document!");
    row("{\"last\"/*",               "error at line :0 col :9 msg:invalid json document!");
    row("{\"last\":/*",              "error at line :0 col :10 msg:not a valid signed integral like number.");
    row("{/*",                     "error at line :0 col :3 msg:object key must be string");
    row("/*",                      "error at line :0 col :2 msg:read object must start with {!");
    // clang-format on
}

void tst_CodecRecords::unclosedBlockCommentLeavesThePreviousTokenCurrent()
{
    QFETCH(QByteArray, json);
    QFETCH(QByteArray, error);
    QCOMPARE(decodeError<Outer>(json), error);
}

void tst_CodecRecords::vectorsOfEveryTypeAreRead()
{
    const auto record = decoded<Outer>(R"({"list":[{"a":5},{"b":6}],"numbers":[1,"2",3.5,true],)"
                                       R"("words":["a",b,"\n"],"flags":[1,0,true,x],)"
                                       R"("rows":[[],[1],[2,3,]]})");
    QCOMPARE(record.list.size(), std::size_t(2));
    QCOMPARE(record.list.at(1).b, 6);
    QCOMPARE(record.numbers, (std::vector<std::uint8_t>{1, 2, 3, 1}));
    QCOMPARE(record.words, (std::vector<std::string>{"a", "b", "\n"}));
    QCOMPARE(record.flags, (std::vector<bool>{true, false, true, false}));
    QCOMPARE(record.rows, (std::vector<std::vector<std::int32_t>>{{}, {1}, {2, 3}}));
}

void tst_CodecRecords::topLevelArrayIsReadLikeAVectorField()
{
    QVERIFY(decoded<std::vector<Inner>>("[]").empty());
    QVERIFY(decoded<std::vector<Inner>>(" [ ] ").empty());
    const auto list = decoded<std::vector<Inner>>(R"([{"a":1},{"a":2}])");
    QCOMPARE(list.size(), std::size_t(2));
    QCOMPARE(list.at(1).a, 2);
    QCOMPARE(list.at(1).b, 2);
}

void tst_CodecRecords::elementsAreAppended()
{
    std::vector<Inner> list(2);
    std::string error;
    QVERIFY(ajson::decodeRecord(R"([{"a":7}])", list, error));
    QCOMPARE(list.size(), std::size_t(3));
    QCOMPARE(list.at(2).a, 7);
}

void tst_CodecRecords::failingElementStaysInItsVector()
{
    Outer record;
    std::string error;
    QVERIFY(!ajson::decodeRecord(R"({"list":[{"a":7},{"a":8,"b":{}}]})", record, error));
    QCOMPARE(record.list.size(), std::size_t(2));
    QCOMPARE(record.list.at(1).a, 8);
    QVERIFY(!ajson::decodeRecord(R"({"numbers":[7,-1]})", record, error));
    QCOMPARE(record.numbers, (std::vector<std::uint8_t>{7, 0}));
}

void tst_CodecRecords::firstTokenOfAnElementFailsBeforeItIsAppended()
{
    Outer record;
    std::string error;
    QVERIFY(!ajson::decodeRecord("{\"words\":[\"a\",\"b", record, error));
    QCOMPARE(record.words.size(), std::size_t(1));
    QVERIFY(!ajson::decodeRecord(R"({"numbers":[1,2.3.4]})", record, error));
    QCOMPARE(record.numbers.size(), std::size_t(1));
}

void tst_CodecRecords::unknownKeysAreSkippedAtAnyDepth_data()
{
    QTest::addColumn<QByteArray>("value");
    const char *const values[] = {
        "1",
        "-1.5e3",
        "\"}\"",
        "word",
        "[]",
        "{}",
        "[[],[[]],{}]",
        R"({"a":{"b":[1,{"c":"]"}]}})",
        "[1 2 3]", // commas are optional
        "[,,1,,]", // and may be many
        R"({"a":1 "b":2,})", // here too
        R"({1:2,-3:4,5.5:6})", // a number may be a key
        R"({"a":,"b":})", // and a value may be missing
        "", // also this one
        "[{\"a\":[{\"b\":{}}]}]",
    };
    for (const char *value : values)
        QTest::newRow(value) << QByteArray(value);
    const QByteArray deep(100, '[');
    QTest::newRow("deep") << deep + "{\"k\":" + deep + QByteArray(100, ']') + "}"
            + QByteArray(100, ']');
}

void tst_CodecRecords::unknownKeysAreSkippedAtAnyDepth()
{
    QFETCH(QByteArray, value);
    const auto record = decoded<Inner>("{\"a\":5,\"unknown\":" + value + ",\"b\":6}");
    QCOMPARE(record.a, 5);
    QCOMPARE(record.b, 6);
}

void tst_CodecRecords::brokenUnknownValuesFail_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QByteArray>("error");
    const auto row = [](const char *name, const char *json, const char *error) {
        QTest::newRow(name) << QByteArray(json) << QByteArray(error);
    };
    // clang-format off
    row("array cut off",             R"({"u":[1)",        "error at line :0 col :7 msg:invalid json document!");
    row("array cut off at once",     R"({"u":[)",         "error at line :0 col :6 msg:invalid json document!");
    row("brace in an array",         R"({"u":[}],"a":1})", "error at line :0 col :7 msg:invalid json document!");
    row("colon in an array",         R"({"u":[1:2]})",    "error at line :0 col :8 msg:invalid json document!");
    row("object cut off",            R"({"u":{)",         "error at line :0 col :6 msg:invalid json document!");
    row("object cut off in a value", R"({"u":{"k":)",     "error at line :0 col :10 msg:invalid json document!");
    row("bracket in an object",      R"({"u":{]})",       "error at line :0 col :7 msg:invalid json document!");
    row("bracket after a value",     R"({"u":{"k":1]})",  "error at line :0 col :12 msg:invalid json document!");
    row("no colon",                  R"({"u":{"k" 1}})",  "error at line :0 col :11 msg:invalid json document!");
    row("value cut off",             R"({"u":)",          "error at line :0 col :5 msg:invalid json document!");
    row("two values",                R"({"u":1 2})",      "error at line :0 col :8 msg:invalid json document!");
    // clang-format on
}

void tst_CodecRecords::brokenUnknownValuesFail()
{
    QFETCH(QByteArray, json);
    QFETCH(QByteArray, error);
    QCOMPARE(decodeError<Inner>(json), error);
}

void tst_CodecRecords::tenMillionBracketsNeitherOverflowNorHang()
{
    constexpr int depth = 10000000;
    const QByteArray open(depth, '[');
    const QByteArray close(depth, ']');
    QCOMPARE(decodeError<Inner>("{\"u\":" + open),
             QByteArray("error at line :0 col :10000005 msg:invalid json document!"));
    QCOMPARE(decoded<Inner>("{\"u\":" + open + close + ",\"b\":6}").b, 6);
}

QTEST_APPLESS_MAIN(tst_CodecRecords)
#include "tst_codecrecords.moc"
