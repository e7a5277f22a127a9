#include <support/proto/recordprobe.h>

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/recordcodec.h>

#include <QtTest>

#include <cstdint>

namespace CodecValues {

template <class Value>
struct Holder {
    Value v = Value();
    TAVORO_FIELDS(v)
};

} // namespace CodecValues

TAVORO_CODEC(CodecValues::Holder<std::uint8_t>)
TAVORO_CODEC(CodecValues::Holder<std::uint16_t>)
TAVORO_CODEC(CodecValues::Holder<std::uint32_t>)
TAVORO_CODEC(CodecValues::Holder<std::uint64_t>)
TAVORO_CODEC(CodecValues::Holder<std::int8_t>)
TAVORO_CODEC(CodecValues::Holder<std::int16_t>)
TAVORO_CODEC(CodecValues::Holder<std::int32_t>)
TAVORO_CODEC(CodecValues::Holder<std::int64_t>)
TAVORO_CODEC(CodecValues::Holder<bool>)
TAVORO_CODEC(CodecValues::Holder<std::string>)

namespace {

using CodecValues::Holder;

/// The value that a field of type \a Value reads from the text, or the text of the failure.
template <class Value>
QByteArray readAs(const QByteArray &text)
{
    const QByteArray json = "{\"v\":" + text + '}';
    const QByteArray error = decodeError<Holder<Value>>(json);
    if (!error.isEmpty())
        return error.mid(error.indexOf("msg:") + 4);
    const Value value = decoded<Holder<Value>>(json).v;
    if constexpr (std::is_same_v<Value, std::string>)
        return QByteArray::fromStdString(value);
    else
        return QByteArray::fromStdString(std::to_string(value));
}

const QByteArray notUnsigned("not a valid unsigned integral like number.");
const QByteArray notSigned("not a valid signed integral like number.");
const QByteArray notBool("not a valid bool.");
const QByteArray notString("not a valid string.");
const QByteArray negativeInteger("assign a negative signed integral to unsigned integral number.");
const QByteArray negativeFloat("assign a negative float point to unsigned integral number.");

} // namespace

class tst_CodecValues : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void numbersAndWordsBecomeNumbers_data();
    void numbersAndWordsBecomeNumbers();
    void unsignedFieldReadsQuotedPlainFloatAndTrueButNoMinus();
    void signedFieldCutsANegativeFraction();
    void exponentEndsAtThePlusSignAndScalesOtherwise();
    void lowBitsAreKeptWithoutARangeCheck();
    void smallestIntegersAreReadUnchanged();
    void floatsBeyondTheRangeSaturateAndAreCutToTheField();
    void roundingOfDigitByDigitFractionsIsKept();
    void boolIsTrueForTheWordAndForNumbersOtherThanZero_data();
    void boolIsTrueForTheWordAndForNumbersOtherThanZero();
    void stringsAreUnescaped_data();
    void stringsAreUnescaped();
    void badEscapesFail_data();
    void badEscapesFail();
    void badEscapeKeepsTheTextBeforeIt();
    void longStringsWithEscapesAreReadCompletely();
    void numberIsNotAString();
    void typeErrorsGiveThePlaceAfterTheValue_data();
    void typeErrorsGiveThePlaceAfterTheValue();
};

void tst_CodecValues::numbersAndWordsBecomeNumbers_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("asU32");
    QTest::addColumn<QByteArray>("asI32");
    const auto row = [](const char *text, const QByteArray &u32, const QByteArray &i32) {
        QTest::newRow(text) << QByteArray(text) << u32 << i32;
    };
    // clang-format off
    //   text           unsigned          signed
    row("0",            "0",              "0");
    row("7",            "7",              "7");
    row("007",          "7",              "7");
    row("4294967295",   "4294967295",     "-1");
    row("4294967296",   "0",              "0");
    row("-1",           negativeInteger,  "-1");
    row("-0",           negativeInteger,  "0");
    row("-",            negativeInteger,  "0");
    row("7.9",          "7",              "7");
    row("-1.5",         negativeFloat,    "-1");
    row("-0.0",         negativeFloat,    "0");
    row("\"12\"",       "12",             "12");
    row("\" 12x\"",     "12",             "12");
    row("\"-5\"",       "4294967291",     "-5");
    row("\"+5\"",       "5",              "5");
    row("+5",           "5",              "5");
    row("\"\"",         "0",              "0");
    row("true",         "1",              "1");
    row("TRUE",         "1",              "1");
    row("\"tRuE\"",     "1",              "1");
    row("true2",        "0",              "0");
    row("false",        "0",              "0");
    row("null",         "0",              "0");
    row("\"1\\n\"",     "1",              "1");
    row("{}",           notUnsigned,      notSigned);
    row("[1]",          notUnsigned,      notSigned);
    row(",",            notUnsigned,      notSigned);
    row("",             notUnsigned,      notSigned);
    // clang-format on
}

void tst_CodecValues::numbersAndWordsBecomeNumbers()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, asU32);
    QFETCH(QByteArray, asI32);
    QCOMPARE(readAs<std::uint32_t>(text), asU32);
    QCOMPARE(readAs<std::int32_t>(text), asI32);
}

void tst_CodecValues::unsignedFieldReadsQuotedPlainFloatAndTrueButNoMinus()
{
    QCOMPARE(readAs<std::uint8_t>("\"7\""), QByteArray("7"));
    QCOMPARE(readAs<std::uint8_t>("7"), QByteArray("7"));
    QCOMPARE(readAs<std::uint8_t>("7.9"), QByteArray("7"));
    QCOMPARE(readAs<std::uint8_t>("true"), QByteArray("1"));
    QCOMPARE(readAs<std::uint8_t>("-1"), negativeInteger);
    QCOMPARE(readAs<std::uint8_t>("-1.5"), negativeFloat);
}

void tst_CodecValues::signedFieldCutsANegativeFraction()
{
    QCOMPARE(readAs<std::int32_t>("-1.5"), QByteArray("-1"));
}

void tst_CodecValues::exponentEndsAtThePlusSignAndScalesOtherwise()
{
    QCOMPARE(readAs<std::int32_t>("1e2"), QByteArray("100"));
    QCOMPARE(readAs<std::int32_t>("1E2"), QByteArray("100"));
    QCOMPARE(readAs<std::int32_t>("1e-2"), QByteArray("0"));
    QCOMPARE(readAs<std::int32_t>("-1e2"), QByteArray("-100"));
    QCOMPARE(readAs<std::int32_t>("1e2e1"), QByteArray("1000"));
    QCOMPARE(readAs<std::int32_t>("1e+2"), QByteArray("invalid json document!")); // 1e, then +2
    QCOMPARE(readAs<std::int32_t>("1e2.5"), QByteArray("not a valid number!"));
}

void tst_CodecValues::lowBitsAreKeptWithoutARangeCheck()
{
    QCOMPARE(readAs<std::uint8_t>("300"), QByteArray("44"));
    QCOMPARE(readAs<std::uint8_t>("\"300\""), QByteArray("44"));
    QCOMPARE(readAs<std::uint8_t>("\"-5\""), QByteArray("251"));
    QCOMPARE(readAs<std::uint16_t>("65537"), QByteArray("1"));
    QCOMPARE(readAs<std::int8_t>("200"), QByteArray("-56"));
    QCOMPARE(readAs<std::int16_t>("-32769"), QByteArray("32767"));
    QCOMPARE(readAs<std::uint8_t>("300.7"), QByteArray("44"));
    QCOMPARE(readAs<std::uint64_t>("18446744073709551617"), QByteArray("1"));
}

void tst_CodecValues::smallestIntegersAreReadUnchanged()
{
    QCOMPARE(readAs<std::int8_t>("-128"), QByteArray("-128"));
    QCOMPARE(readAs<std::int16_t>("-32768"), QByteArray("-32768"));
    QCOMPARE(readAs<std::int32_t>("-2147483648"), QByteArray("-2147483648"));
    QCOMPARE(readAs<std::int64_t>("-9223372036854775808"), QByteArray("-9223372036854775808"));
    QCOMPARE(readAs<std::int32_t>("\"-2147483648\""), QByteArray("-2147483648"));
}

// First the nearest integer of 64 bits, then its low bits.
void tst_CodecValues::floatsBeyondTheRangeSaturateAndAreCutToTheField()
{
    QCOMPARE(readAs<std::uint64_t>("1e99"), QByteArray("18446744073709551615"));
    QCOMPARE(readAs<std::uint32_t>("1e99"), QByteArray("4294967295"));
    QCOMPARE(readAs<std::uint8_t>("1e999999999"), QByteArray("255"));
    QCOMPARE(readAs<std::int64_t>("1e99"), QByteArray("9223372036854775807"));
    QCOMPARE(readAs<std::int32_t>("1e99"), QByteArray("-1"));
    QCOMPARE(readAs<std::int64_t>("-1e99"), QByteArray("-9223372036854775807"));
    QCOMPARE(readAs<std::int32_t>("4294967301.5"), QByteArray("5"));
    QCOMPARE(readAs<std::int32_t>("1e-999999999"), QByteArray("0"));
}

void tst_CodecValues::roundingOfDigitByDigitFractionsIsKept()
{
    QCOMPARE(readAs<std::int32_t>("0.29e2"), QByteArray("29"));
}

void tst_CodecValues::boolIsTrueForTheWordAndForNumbersOtherThanZero_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("value");
    const auto row = [](const char *text, const QByteArray &value) {
        QTest::newRow(text) << QByteArray(text) << value;
    };
    // clang-format off
    row("1",                    "1");
    row("0",                    "0");
    row("25",                   "1");
    row("-1",                   "1");
    row("-0",                   "0");
    row("256",                  "1");
    row("4294967296",           "1");
    row("18446744073709551616", "0");
    row("0.1",                  "1");
    row("0.0",                  "0");
    row("-0.5",                 "1");
    row("true",                 "1");
    row("TruE",                 "1");
    row("\"true\"",             "1");
    row("false",                "0");
    row("\"1\"",                "0");
    row("truer",                "0");
    row("null",                 "0");
    row("{}",                   notBool);
    row("]",                    notBool);
    // clang-format on
}

void tst_CodecValues::boolIsTrueForTheWordAndForNumbersOtherThanZero()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, value);
    QCOMPARE(readAs<bool>(text), value);
}

void tst_CodecValues::stringsAreUnescaped_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("value");
    const auto row = [](const char *name, const char *text, const char *value) {
        QTest::newRow(name) << QByteArray(text) << QByteArray(value);
    };
    // clang-format off
    row("empty",                   R"("")",                       "");
    row("plain",                   R"("abc")",                    "abc");
    row("raw tab",                 "\"a\tb\"",                    "a\tb");
    row("raw UTF-8",               "\"\xC3\xA9\"",                "\xC3\xA9");
    row("short escapes",           R"("\"\/\\\b\f\n\r\t")",       "\"/\\\b\f\n\r\t");
    row("one byte",                R"("\u0041\u007f")",           "A\x7F");
    row("two bytes",               R"("\u0080\u00e9\u07FF")",     "\xC2\x80\xC3\xA9\xDF\xBF");
    row("three bytes",             R"("\u0800\u20AC\uffff")",     "\xE0\xA0\x80\xE2\x82\xAC\xEF\xBF\xBF");
    row("surrogates are not paired", R"("\uD83D\uDE00")",         "\xED\xA0\xBD\xED\xB8\x80");
    row("bare word",               "null",                        "null");
    row("bare word with escapes",  R"(a\u0042\n)",                "aB\n");
    row("bare word true",          "true",                        "true");
    // clang-format on
}

void tst_CodecValues::stringsAreUnescaped()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, value);
    QCOMPARE(readAs<std::string>(text), value);
}

void tst_CodecValues::badEscapesFail_data()
{
    QTest::addColumn<QByteArray>("text");
    const char *const texts[] = {R"("\x")",     R"("\u0000")", R"("\u12")",  R"("\u12G4")",
                                 R"("\U0041")", R"("\u")",     R"("\'")",    "\"\\\n\"",
                                 "word\\",      "word\\u00",   R"("ab\u-1")"};
    for (const char *text : texts)
        QTest::newRow(text) << QByteArray(text);
}

void tst_CodecValues::badEscapesFail()
{
    QFETCH(QByteArray, text);
    QCOMPARE(readAs<std::string>(text), notString);
}

void tst_CodecValues::badEscapeKeepsTheTextBeforeIt()
{
    Holder<std::string> record;
    record.v = "before";
    std::string error;
    QVERIFY(!ajson::decodeRecord(R"({"v":"ab\u00e9\x"})", record, error));
    QCOMPARE(record.v, std::string("ab\xC3\xA9"));
}

void tst_CodecValues::longStringsWithEscapesAreReadCompletely()
{
    for (int length = 0; length < 40; ++length) {
        const QByteArray plain(length, 'p');
        QCOMPARE(readAs<std::string>('"' + plain + '"'), plain);
        QCOMPARE(readAs<std::string>('"' + plain + "\\n" + plain + '"'), plain + '\n' + plain);
        QCOMPARE(readAs<std::string>('"' + plain + '\t' + plain + '"'), plain + '\t' + plain);
    }
}

void tst_CodecValues::numberIsNotAString()
{
    QCOMPARE(readAs<std::string>("7"), notString);
    QCOMPARE(readAs<std::string>("-7.5"), notString);
    QCOMPARE(readAs<std::string>("{}"), notString);
}

void tst_CodecValues::typeErrorsGiveThePlaceAfterTheValue_data()
{
    QTest::addColumn<QByteArray>("error");
    QTest::addColumn<QByteArray>("expected");
    // clang-format off
    QTest::newRow("unsigned")       << decodeError<Holder<std::uint32_t>>("{\"v\":[")   << "error at line :0 col :6 msg:" + notUnsigned;
    QTest::newRow("signed")         << decodeError<Holder<std::int32_t>>("{\"v\":\n[")  << "error at line :1 col :2 msg:" + notSigned;
    QTest::newRow("bool")           << decodeError<Holder<bool>>("{\"v\":{ ")           << "error at line :0 col :6 msg:" + notBool;
    QTest::newRow("string")         << decodeError<Holder<std::string>>("{\"v\":12 ")   << "error at line :0 col :7 msg:" + notString;
    QTest::newRow("minus")          << decodeError<Holder<std::uint8_t>>("{\"v\":-1 ")  << "error at line :0 col :7 msg:" + negativeInteger;
    QTest::newRow("negative float") << decodeError<Holder<std::uint8_t>>("{\"v\":-1. ") << "error at line :0 col :8 msg:" + negativeFloat;
    // clang-format on
}

void tst_CodecValues::typeErrorsGiveThePlaceAfterTheValue()
{
    QFETCH(QByteArray, error);
    QFETCH(QByteArray, expected);
    QCOMPARE(error, expected);
}

QTEST_APPLESS_MAIN(tst_CodecValues)
#include "tst_codecvalues.moc"
