#include <support/proto/recordprobe.h>

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/recordcodec.h>

#include <QtTest>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <new>

namespace CodecWriter {

struct Flag {
    bool on = true;
    TAVORO_FIELDS(on)
};

struct Numbers {
    std::uint8_t u8 = 0;
    std::int8_t i8 = 0;
    std::uint32_t u32 = 0;
    std::int32_t i32 = 0;
    std::uint64_t u64 = 0;
    std::int64_t i64 = 0;
    TAVORO_FIELDS(u8, i8, u32, i32, u64, i64)
};

struct Text {
    std::string s;
    TAVORO_FIELDS(s)
};

/// Larger than the buffer of the writer, because of its keys.
struct LongKeys {
    std::int64_t theFirstOfFourKeysThatAreMuchLongerThanAnyKeyThatADeviceUses = -1;
    std::int64_t theSecondOfFourKeysThatAreMuchLongerThanAnyKeyThatADeviceUses = -2;
    std::int64_t theThirdOfFourKeysThatAreMuchLongerThanAnyKeyThatADeviceUses = -3;
    std::string theLastOfFourKeysThatAreMuchLongerThanAnyKeyThatADeviceUses = "x";
    TAVORO_FIELDS(theFirstOfFourKeysThatAreMuchLongerThanAnyKeyThatADeviceUses,
                  theSecondOfFourKeysThatAreMuchLongerThanAnyKeyThatADeviceUses,
                  theThirdOfFourKeysThatAreMuchLongerThanAnyKeyThatADeviceUses,
                  theLastOfFourKeysThatAreMuchLongerThanAnyKeyThatADeviceUses)
};
struct Long4 {
    LongKeys a;
    LongKeys b;
    LongKeys c;
    LongKeys d;
    TAVORO_FIELDS(a, b, c, d)
};
struct Long16 {
    Long4 a;
    Long4 b;
    Long4 c;
    Long4 d;
    TAVORO_FIELDS(a, b, c, d)
};
struct Long64 {
    Long16 a;
    Long16 b;
    Long16 c;
    Long16 d;
    TAVORO_FIELDS(a, b, c, d)
};

/// The order in memory differs from the order of the list.
struct Mixed {
    std::vector<Flag> flags;
    std::vector<std::vector<std::int32_t>> rows;
    std::vector<std::string> words;
    std::vector<bool> bits;
    Flag flag;
    std::int32_t type = 3;
    TAVORO_FIELDS(type, flag, flags, rows, words, bits)
};

} // namespace CodecWriter

TAVORO_CODEC(CodecWriter::Flag)
TAVORO_CODEC(CodecWriter::Numbers)
TAVORO_CODEC(CodecWriter::Text)
TAVORO_CODEC(CodecWriter::LongKeys)
TAVORO_CODEC(CodecWriter::Long64)
TAVORO_CODEC(CodecWriter::Mixed)

using CodecWriter::Flag;
using CodecWriter::Long64;
using CodecWriter::LongKeys;
using CodecWriter::Mixed;
using CodecWriter::Numbers;
using CodecWriter::Text;

namespace {

int allocations = 0;

} // namespace

void *operator new(std::size_t size)
{
    ++allocations;
    if (void *const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace {

/// The text between the quotes.
QByteArray written(const std::string &text)
{
    const QByteArray json = encoded(Text{text});
    return json.mid(6, json.size() - 8);
}

} // namespace

class tst_CodecWriter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFieldIsWrittenInListOrderWithoutBlanks();
    void emptyVectorsAreTwoBrackets();
    void commasSeparateElements();
    void boolIsADigit();
    void numbersArePlainDecimals();
    void numbersOfEveryLengthAreWritten();
    void shortEscapesAreUsedWhereTheyExist();
    void otherCharactersOutsidePrintableAsciiAreLongEscapes();
    void everyPrintableAsciiCharacterIsWrittenAsItIs();
    void codePointAboveFFFFIsWrittenAsItsTwoHalves();
    void textEndsAtTheFirstNul();
    void malformedTextEndsTheStringWithoutAnError_data();
    void malformedTextEndsTheStringWithoutAnError();
    void textOfEveryLengthIsWrittenCompletely();
    void bodiesOfEverySizeAroundThatOfTheBufferAreWritten();
    void recordLargerThanTheBufferIsWritten();
    void smallBodyNeedsOneAllocation();
    void manyEscapesNeedFewAllocations_data();
    void manyEscapesNeedFewAllocations();
    void previousTextIsReplaced();
    void largeBodiesAreWrittenAndReadCompletely();
};

void tst_CodecWriter::everyFieldIsWrittenInListOrderWithoutBlanks()
{
    QCOMPARE(encoded(Mixed()),
             QByteArray(R"({"type":3,"flag":{"on":1},"flags":[],"rows":[],"words":[],"bits":[]})"));
}

void tst_CodecWriter::emptyVectorsAreTwoBrackets()
{
    QCOMPARE(encoded(std::vector<Flag>()), QByteArray("[]"));
    Mixed record;
    record.rows = {{}, {}};
    QVERIFY(encoded(record).contains(R"("rows":[[],[]])"));
}

void tst_CodecWriter::commasSeparateElements()
{
    Mixed record;
    record.flags.resize(2);
    record.rows = {{1}, {}, {-2, 3}};
    record.words = {"a", ""};
    record.bits = {true, false};
    QCOMPARE(encoded(record),
             QByteArray(R"({"type":3,"flag":{"on":1},"flags":[{"on":1},{"on":1}],)"
                        R"("rows":[[1],[],[-2,3]],"words":["a",""],"bits":[1,0]})"));
    QCOMPARE(encoded(std::vector<Flag>(3)), QByteArray(R"([{"on":1},{"on":1},{"on":1}])"));
}

void tst_CodecWriter::boolIsADigit()
{
    QCOMPARE(encoded(Flag{true}), QByteArray(R"({"on":1})"));
    QCOMPARE(encoded(Flag{false}), QByteArray(R"({"on":0})"));
}

void tst_CodecWriter::numbersArePlainDecimals()
{
    QCOMPARE(encoded(Numbers()), QByteArray(R"({"u8":0,"i8":0,"u32":0,"i32":0,"u64":0,"i64":0})"));
    const Numbers largest{
        255, 127, 4294967295, 2147483647, 18446744073709551615U, 9223372036854775807};
    QCOMPARE(encoded(largest),
             QByteArray(R"({"u8":255,"i8":127,"u32":4294967295,"i32":2147483647,)"
                        R"("u64":18446744073709551615,"i64":9223372036854775807})"));
    const Numbers smallest{0, -128,
                           0, std::numeric_limits<std::int32_t>::min(),
                           0, std::numeric_limits<std::int64_t>::min()};
    QCOMPARE(encoded(smallest),
             QByteArray(R"({"u8":0,"i8":-128,"u32":0,"i32":-2147483648,)"
                        R"("u64":0,"i64":-9223372036854775808})"));
}

void tst_CodecWriter::numbersOfEveryLengthAreWritten()
{
    QByteArray digits;
    for (int length = 1; length < 20; ++length) {
        digits += static_cast<char>('0' + length % 10);
        Numbers numbers;
        numbers.u64 = digits.toULongLong();
        QVERIFY(encoded(numbers).contains("\"u64\":" + digits + ','));
        numbers.u64 = (digits[0] + QByteArray(length - 1, '0')).toULongLong();
        QVERIFY(encoded(numbers).contains("\"u64\":1" + QByteArray(length - 1, '0') + ','));
    }
}

void tst_CodecWriter::shortEscapesAreUsedWhereTheyExist()
{
    QCOMPARE(written("\b\t\n\f\r\"\\"), QByteArray(R"(\b\t\n\f\r\"\\)"));
}

void tst_CodecWriter::otherCharactersOutsidePrintableAsciiAreLongEscapes()
{
    QCOMPARE(written("\x01\x0B\x1F"), QByteArray(R"(\u0001\u000B\u001F)"));
    QCOMPARE(written("\x7F"), QByteArray(R"(\u007F)"));
    QCOMPARE(written("\xC3\xA9"), QByteArray(R"(\u00E9)"));
    QCOMPARE(written("caf\xC3\xA9 \xE2\x82\xAC!"), QByteArray(R"(caf\u00E9 \u20AC!)"));
    QCOMPARE(written("\xEF\xBF\xBF"), QByteArray(R"(\uFFFF)"));
}

void tst_CodecWriter::everyPrintableAsciiCharacterIsWrittenAsItIs()
{
    for (char c = ' '; c <= '~'; ++c) {
        if (c != '"' && c != '\\')
            QCOMPARE(written(std::string(9, c)), QByteArray(9, c));
    }
    QCOMPARE(written("a/b"), QByteArray("a/b"));
}

void tst_CodecWriter::codePointAboveFFFFIsWrittenAsItsTwoHalves()
{
    QCOMPARE(written("\xF0\x9F\x98\x80"), QByteArray(R"(\u0001\uF600)"));
    QCOMPARE(written("\xF0\x90\x80\x80"), QByteArray(R"(\u0001\u0000)"));
    QCOMPARE(written("\xF4\x8F\xBF\xBF"), QByteArray(R"(\u0010\uFFFF)"));
}

void tst_CodecWriter::textEndsAtTheFirstNul()
{
    using namespace std::string_literals;
    QCOMPARE(written("ab\0cd"s), QByteArray("ab"));
    QCOMPARE(written("\0"s), QByteArray());
    QCOMPARE(written("\xC3\xA9\0\xC3\xA9"s), QByteArray(R"(\u00E9)"));
    QCOMPARE(written("eight or more\0plain characters"s), QByteArray("eight or more"));
}

void tst_CodecWriter::malformedTextEndsTheStringWithoutAnError_data()
{
    QTest::addColumn<QByteArray>("bytes");
    // clang-format off
    QTest::newRow("continuation alone")      << QByteArray("\x80");
    QTest::newRow("lead alone")              << QByteArray("\xC3");
    QTest::newRow("lead before ASCII")       << QByteArray("\xC3(");
    QTest::newRow("overlong of two")         << QByteArray("\xC0\x80");
    QTest::newRow("overlong of two, C1")     << QByteArray("\xC1\xBF");
    QTest::newRow("overlong of three")       << QByteArray("\xE0\x9F\xBF");
    QTest::newRow("overlong of four")        << QByteArray("\xF0\x8F\xBF\xBF");
    QTest::newRow("surrogate")               << QByteArray("\xED\xA0\x80");
    QTest::newRow("beyond the last")         << QByteArray("\xF4\x90\x80\x80");
    QTest::newRow("five bytes")              << QByteArray("\xF8\x88\x80\x80\x80");
    QTest::newRow("cut after two of three")  << QByteArray("\xE2\x82");
    QTest::newRow("cut after three of four") << QByteArray("\xF0\x9F\x98");
    QTest::newRow("lead in third place")     << QByteArray("\xE2\x82\xC3\xA9");
    // clang-format on
}

void tst_CodecWriter::malformedTextEndsTheStringWithoutAnError()
{
    QFETCH(QByteArray, bytes);
    QCOMPARE(written("ok\xC3\xA9" + bytes.toStdString() + "lost"), QByteArray(R"(ok\u00E9)"));
    QCOMPARE(written(bytes.toStdString()), QByteArray());
}

void tst_CodecWriter::textOfEveryLengthIsWrittenCompletely()
{
    for (int length = 0; length < 50; ++length) {
        const QByteArray plain(length, 'p');
        QCOMPARE(written(plain.toStdString()), plain);
        QCOMPARE(written((plain + '\n' + plain).toStdString()), plain + "\\n" + plain);
    }
}

// The content of the last string fills the buffer, exceeds it, or leaves less than the fixed rest.
void tst_CodecWriter::bodiesOfEverySizeAroundThatOfTheBufferAreWritten()
{
    const QByteArray first(ajson::JsonWriter::bufferSize / 2, 'a');
    const int most = static_cast<int>(ajson::JsonWriter::bufferSize / 2 + 64);
    for (int size = most - 256; size < most; ++size) {
        const QByteArray second(size, 'b');
        const std::vector<Text> list{{first.toStdString()}, {second.toStdString()}, {"c"}};
        QCOMPARE(encoded(list),
                 R"([{"s":")" + first + R"("},{"s":")" + second + R"("},{"s":"c"}])");
        const std::vector<Text> escaped{{first.toStdString()}, {second.toStdString() + '\t'}};
        QCOMPARE(encoded(escaped), R"([{"s":")" + first + R"("},{"s":")" + second + R"(\t"}])");
    }
}

void tst_CodecWriter::recordLargerThanTheBufferIsWritten()
{
    const QByteArray part = encoded(LongKeys());
    const auto four = [](const QByteArray &each) {
        return R"({"a":)" + each + R"(,"b":)" + each + R"(,"c":)" + each + R"(,"d":)" + each + '}';
    };
    const QByteArray whole = four(four(four(part)));
    QVERIFY(whole.size() > static_cast<int>(ajson::JsonWriter::bufferSize));
    QCOMPARE(encoded(Long64()), whole);
    QCOMPARE(encoded(std::vector<Long64>(2)), '[' + whole + ',' + whole + ']');
}

void tst_CodecWriter::smallBodyNeedsOneAllocation()
{
    const std::vector<Flag> list(100);
    std::string json;
    const int before = allocations;
    ajson::encodeRecord(list, json);
    QCOMPARE(allocations - before, 1);
    ajson::encodeRecord(list, json);
    QCOMPARE(allocations - before, 1);
}

void tst_CodecWriter::manyEscapesNeedFewAllocations_data()
{
    QTest::addColumn<QByteArray>("unit");
    QTest::addColumn<QByteArray>("escape");
    QTest::newRow("tab") << QByteArray("\t") << QByteArray("\\t");
    QTest::newRow("delete") << QByteArray("\x7F") << QByteArray("\\u007F");
    QTest::newRow("four bytes") << QByteArray("\xF0\x9F\x93\xBA") << QByteArray("\\u0001\\uF4FA");
}

/// The text at least doubles its capacity whenever it is full, so the bytes that are copied stay
/// proportional to its size.
void tst_CodecWriter::manyEscapesNeedFewAllocations()
{
    QFETCH(QByteArray, unit);
    QFETCH(QByteArray, escape);
    constexpr int count = 1 << 20;
    const Text text{unit.repeated(count).toStdString()};
    std::string json;
    const int before = allocations;
    ajson::encodeRecord(text, json);
    const int growthSteps = allocations - before;
    QVERIFY2(growthSteps <= 12, qPrintable(QString::number(growthSteps)));
    QCOMPARE(json.size(), std::size_t(8) + std::size_t(count) * std::size_t(escape.size()));
    QCOMPARE(QByteArray::fromStdString(json.substr(6, 24)), escape.repeated(12).left(24));
}

void tst_CodecWriter::previousTextIsReplaced()
{
    std::string text = "old text that is longer than the new one";
    ajson::encodeRecord(Flag(), text);
    QCOMPARE(text, std::string(R"({"on":1})"));
}

// Takes hours if a long body is copied for each step of the buffer.
void tst_CodecWriter::largeBodiesAreWrittenAndReadCompletely()
{
    const std::vector<Text> list(200000, Text{std::string(300, 't') + "\xC3\xA9"});
    std::string json;
    ajson::encodeRecord(list, json);
    QCOMPARE(json.size(), 2 + list.size() * (8 + 300 + 6) + list.size() - 1);
    std::vector<Text> read;
    std::string error;
    QVERIFY2(ajson::decodeRecord(json, read, error), error.c_str());
    QCOMPARE(read.size(), list.size());
    QCOMPARE(read.back().s, list.back().s);
}

QTEST_APPLESS_MAIN(tst_CodecWriter)
#include "tst_codecwriter.moc"
