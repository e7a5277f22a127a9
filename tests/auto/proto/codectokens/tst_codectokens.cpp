#include <tavorocontrol/proto/json/jsonexception.h>
#include <tavorocontrol/proto/json/jsonreader.h>

#include <QtTest>

using ajson::JsonReader;
using ajson::JsonTokenKind;

namespace {

QByteArray kindName(const ajson::JsonToken &token)
{
    switch (token.kind) {
    case JsonTokenKind::word:
        return "word";
    case JsonTokenKind::negativeInteger:
        return token.negative ? "minus" : "minus that is lost";
    case JsonTokenKind::unsignedInteger:
        return "integer";
    case JsonTokenKind::floatNumber:
        return token.negative ? "-float" : "float";
    case JsonTokenKind::symbol:
        return "symbol";
    case JsonTokenKind::end:
        return "end";
    }
    return {};
}

/// Kind and text of each token up to the end or the error.
QByteArrayList tokensOf(const QByteArray &text)
{
    QByteArrayList tokens;
    try {
        JsonReader reader(text.constData());
        for (reader.next(); reader.token.kind != JsonTokenKind::end; reader.next())
            tokens << kindName(reader.token) + ' '
                    + QByteArray(reader.token.text, static_cast<int>(reader.token.length));
    } catch (const ajson::exception &e) {
        tokens << e.what();
    }
    return tokens;
}

/// The first token of a text that begins with a number.
JsonReader numberIn(const char *text)
{
    JsonReader reader(text);
    reader.next();
    return reader;
}

} // namespace

class tst_CodecTokens : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textIsSplitIntoTokens_data();
    void textIsSplitIntoTokens();
    void malformedTextFailsAfterTheMalformedToken_data();
    void malformedTextFailsAfterTheMalformedToken();
    void tokenKindsHaveFixedValues();
    void integerDigitsWrapAround();
    void fractionIsSummedDigitByDigit();
    void exponentScalesAndAHugeOneTakesNoTime();
    void negativeIntegerPartOfAFractionWrapsAround();
    void unclosedBlockCommentLeavesThePreviousTokenCurrent();
    void firstTokenHasNoPreviousTokenAlsoWhenReadAgain();
    void lineFeedAsFirstCharacterBeginsNoLine();
    void carriageReturnHasNoColumn();
    void endOfTheInputIsACharacterOfItsLine();
    void readerBeginsAtTheFirstCharacter();
    void nullAndEmptyTextsAreAtTheEndImmediately();
    void lengthEndsTheInputBeforeTheNul();
    void readingPastTheEndChangesNothing();
};

void tst_CodecTokens::textIsSplitIntoTokens_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArrayList>("tokens");
    const auto row = [](const char *name, const char *text, const QByteArrayList &tokens) {
        QTest::newRow(name) << QByteArray(text) << tokens;
    };
    // clang-format off
    row("nothing",                     "",                   {});
    row("blanks",                      " \t\r\n ",           {});
    row("symbols",                     "{}[]:,",             {"symbol {", "symbol }", "symbol [", "symbol ]", "symbol :", "symbol ,"});
    row("symbols in quotes are words", "\"}\"\",\"\":\"",    {"word }", "word ,", "word :"});
    row("quoted string",               "\"a b\"",            {"word a b"});
    row("empty string",                "\"\"",               {"word "});
    row("raw tab and return",          "\"a\t\rb\"",         {"word a\t\rb"});
    row("escapes stay in place",       R"("\"\\\n\u00e9")",  {R"(word \"\\\n\u00e9)"});
    row("escaped line feed",           "\"a\\\nb\"",         {"word a\\\nb"});
    row("bare word",                   "abc,",               {"word abc", "symbol ,"});
    row("bare word up to a blank",     "abc def ",           {"word abc", "word def"});
    row("bare word up to a symbol",    "a:b[c]d{e}f,",       {"word a", "symbol :", "word b", "symbol [", "word c", "symbol ]", "word d", "symbol {",
                                                              "word e", "symbol }", "word f", "symbol ,"});
    row("quote inside a bare word",    "a\"b ",              {"word a\"b"});
    row("slash inside a bare word",    "a//b ",              {"word a//b"});
    row("form feed is not a blank",    "\f ",                {"word \f"});
    row("bytes from 126 upward",       "~\x7F\x80\xFF ",     {"word ~\x7F\x80\xFF"});
    row("point begins a bare word",    ".5 ",                {"word .5"});
    row("plus begins a bare word",     "+5 ",                {"word +5"});
    row("integers",                    "0 7 007 123",        {"integer 0", "integer 7", "integer 007", "integer 123"});
    row("negative integers",           "-1 -0 -12",          {"minus -1", "minus -0", "minus -12"});
    row("lone minus",                  "-,",                 {"minus -", "symbol ,"});
    row("two minus signs",             "--1",                {"minus -", "minus -1"});
    row("floats",                      "1.5 1. 2e3 2E3",     {"float 1.5", "float 1.", "float 2e3", "float 2E3"});
    row("negative floats",             "-1.5 -.5 -2e-3",     {"-float -1.5", "-float -.5", "-float -2e-3"});
    row("plus ends an exponent",       "1e+2,",              {"float 1e", "word +2", "symbol ,"});
    row("letter ends an exponent",     "1ex,",               {"float 1e", "word x", "symbol ,"});
    row("point ends an empty one",     "1e.5,",              {"float 1e", "word .5", "symbol ,"});
    row("minus alone is an exponent",  "1e-,",               {"float 1e-", "symbol ,"});
    row("exponent after exponent",     "1e2e1",              {"float 1e2e1"});
    row("word after a number",         "12abc ",             {"integer 12", "word abc"});
    row("byte from 128 ends a number", "12\xC3\xA9 ",        {"integer 12", "word \xC3\xA9"});
    row("line comment",                "1// note\n2",        {"integer 1", "integer 2"});
    row("line comment at the end",     "1 // note",          {"integer 1"});
    row("line comments in a row",      "//\n // b\n3",       {"integer 3"});
    // clang-format on
}

void tst_CodecTokens::textIsSplitIntoTokens()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArrayList, tokens);
    QCOMPARE(tokensOf(text), tokens);
}

void tst_CodecTokens::malformedTextFailsAfterTheMalformedToken_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("error");
    const auto row = [](const char *name, const char *text, const char *error) {
        QTest::newRow(name) << QByteArray(text) << QByteArray(error);
    };
    // clang-format off
    row("lone slash",                    "/",               "error at line :0 col :1 msg:not a comment!");
    row("slash before a letter",         " /a",             "error at line :0 col :2 msg:not a comment!");
    row("slash before a line feed",      "/\n",             "error at line :1 col :0 msg:not a comment!");
    row("closed block comment",          "/* note */ 1",    "error at line :0 col :10 msg:not a comment!");
    row("shortest block comment",        "/**/1",           "error at line :0 col :4 msg:not a comment!");
    row("star before the closing star",  "/***/1",          "error at line :0 col :5 msg:not a comment!");
    row("star of the opening",           "/*/ */1",         "error at line :0 col :6 msg:not a comment!");
    row("block comment over two lines",  "/*\n*/1",         "error at line :1 col :3 msg:not a comment!");
    row("bare word at the end",          "abc",             "error at line :0 col :3 msg:not a valid string!");
    row("bare word in the second line",  "\nabc",           "error at line :0 col :4 msg:not a valid string!");
    row("bare word in the third line",   " \n\nabc",        "error at line :2 col :4 msg:not a valid string!");
    row("unterminated string",           "\"abc",           "error at line :0 col :4 msg:not a valid quote string!");
    row("raw line feed in a string",     "\"ab\nc\"",       "error at line :1 col :0 msg:not a valid quote string!");
    row("backslash at the end",          "\"ab\\",          "error at line :0 col :4 msg:not a valid quote string!");
    row("escaped quote at the end",      "\"ab\\\"",        "error at line :0 col :5 msg:not a valid quote string!");
    row("second point",                  "1.2.3",           "error at line :0 col :3 msg:not a valid number!");
    row("point after an exponent",       "1e2.5",           "error at line :0 col :3 msg:not a valid number!");
    row("point after a bare minus",      "1e-.5",           "error at line :0 col :3 msg:not a valid number!");
    // clang-format on
}

void tst_CodecTokens::malformedTextFailsAfterTheMalformedToken()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, error);
    const QByteArrayList tokens = tokensOf(text);
    QCOMPARE(tokens, QByteArrayList{error});
}

void tst_CodecTokens::tokenKindsHaveFixedValues()
{
    QCOMPARE(static_cast<int>(JsonTokenKind::word), 0);
    QCOMPARE(static_cast<int>(JsonTokenKind::negativeInteger), 1);
    QCOMPARE(static_cast<int>(JsonTokenKind::unsignedInteger), 2);
    QCOMPARE(static_cast<int>(JsonTokenKind::floatNumber), 3);
    QCOMPARE(static_cast<int>(JsonTokenKind::symbol), 4);
    QCOMPARE(static_cast<int>(JsonTokenKind::end), 5);
}

void tst_CodecTokens::integerDigitsWrapAround()
{
    QCOMPARE(numberIn("18446744073709551615").token.value.integer, std::uint64_t(-1));
    QCOMPARE(numberIn("18446744073709551617").token.value.integer, std::uint64_t(1));
    QCOMPARE(numberIn("-5").token.value.integer, std::uint64_t(5));
}

// Bit for bit: each weight is 0.1 times the previous one, rounded at each step.
void tst_CodecTokens::fractionIsSummedDigitByDigit()
{
    QVERIFY(numberIn("0.29").token.value.real == 0.0 + 2 * 0.1 + 9 * (0.1 * 0.1));
    QVERIFY(numberIn("0.29e2").token.value.real >= 29.0);
    QVERIFY(numberIn("3.5").token.value.real == 3.5);
}

void tst_CodecTokens::exponentScalesAndAHugeOneTakesNoTime()
{
    QVERIFY(numberIn("1e2").token.value.real == 100.0);
    QVERIFY(numberIn("5e0").token.value.real == 5.0);
    QVERIFY(numberIn("1e2e1").token.value.real == 1000.0);
    QVERIFY(numberIn("2e-1").token.value.real == 2.0 * 0.1);
    QVERIFY(numberIn("0e999999999").token.value.real == 0.0);
    QVERIFY(numberIn("1e-99999999999999").token.value.real == 0.0);
    QVERIFY(qIsInf(numberIn("1e99999999999999").token.value.real));
    JsonReader reader("1e3 1e2");
    reader.next();
    reader.next();
    QVERIFY(reader.token.value.real == 100.0); // the first exponent does not count again
}

// When an integer becomes a float, it is read as signed if it is negative, and as unsigned
// otherwise.
void tst_CodecTokens::negativeIntegerPartOfAFractionWrapsAround()
{
    QVERIFY(numberIn("18446744073709551615.0").token.value.real == 18446744073709551616.0);
    QVERIFY(numberIn("-18446744073709551615.0").token.value.real == -1.0);
}

void tst_CodecTokens::unclosedBlockCommentLeavesThePreviousTokenCurrent()
{
    JsonReader reader("-7 /* no end");
    reader.next();
    reader.next();
    QCOMPARE(reader.token.kind, JsonTokenKind::negativeInteger);
    QCOMPARE(reader.token.value.integer, std::uint64_t(7));
    QVERIFY(!reader.token.negative);
    QVERIFY(reader.atEnd());
    reader.next();
    QCOMPARE(reader.token.kind, JsonTokenKind::end);
}

void tst_CodecTokens::firstTokenHasNoPreviousTokenAlsoWhenReadAgain()
{
    const char text[] = "{/* no end";
    JsonReader reader(text + 1); // the brace is not part of its text
    reader.next();
    QVERIFY(reader.atEnd());
    QCOMPARE(reader.token.kind, JsonTokenKind::word);
    reader.readTokenAt(text + 1);
    QCOMPARE(reader.token.kind, JsonTokenKind::word);
    QCOMPARE(reader.token.length, std::size_t(0));
}

void tst_CodecTokens::lineFeedAsFirstCharacterBeginsNoLine()
{
    JsonReader reader("\n\n:");
    reader.next();
    QCOMPARE(reader.line(), std::uint64_t(1));
    QCOMPARE(reader.column(), std::uint64_t(2)); // the colon, and the end after it
}

void tst_CodecTokens::carriageReturnHasNoColumn()
{
    JsonReader reader(" \r\r: ");
    reader.next();
    QCOMPARE(reader.position(), std::size_t(4));
    QCOMPARE(reader.column(), std::uint64_t(2));
}

void tst_CodecTokens::endOfTheInputIsACharacterOfItsLine()
{
    JsonReader reader(" \n12");
    reader.next();
    QCOMPARE(reader.line(), std::uint64_t(1));
    QCOMPARE(reader.column(), std::uint64_t(3));
}

void tst_CodecTokens::readerBeginsAtTheFirstCharacter()
{
    const char text[] = "{}";
    const JsonReader reader(text);
    QVERIFY(reader.place() == text);
    QCOMPARE(reader.position(), std::size_t(0));
    QCOMPARE(reader.line(), std::uint64_t(0));
    QCOMPARE(reader.column(), std::uint64_t(0));
    QVERIFY(!reader.atEnd());
}

void tst_CodecTokens::nullAndEmptyTextsAreAtTheEndImmediately()
{
    QVERIFY(JsonReader(nullptr).atEnd());
    QVERIFY(JsonReader("abc", 0).atEnd());
    QVERIFY(JsonReader("").atEnd());
    JsonReader reader("\0abc", 4);
    QVERIFY(reader.atEnd());
    reader.next();
    QCOMPARE(reader.token.kind, JsonTokenKind::end);
    QCOMPARE(reader.token.length, std::size_t(1));
    QCOMPARE(*reader.token.text, '\0');
}

void tst_CodecTokens::lengthEndsTheInputBeforeTheNul()
{
    JsonReader reader("12345", 3);
    QCOMPARE(reader.length(), std::size_t(3));
    reader.next();
    QCOMPARE(reader.token.value.integer, std::uint64_t(123));
    QCOMPARE(reader.column(), std::uint64_t(3));
    reader.next();
    QCOMPARE(reader.token.kind, JsonTokenKind::end);
}

void tst_CodecTokens::readingPastTheEndChangesNothing()
{
    JsonReader reader("1");
    for (int i = 0; i < 3; ++i)
        reader.next();
    QCOMPARE(reader.token.kind, JsonTokenKind::end);
    QCOMPARE(reader.position(), std::size_t(1));
    QCOMPARE(reader.column(), std::uint64_t(1));
}

QTEST_APPLESS_MAIN(tst_CodecTokens)
#include "tst_codectokens.moc"
