#include <tavorowire/jsonelements.h>

#include <tavorocontrol/proto/json/jsonexception.h>
#include <tavorocontrol/proto/json/jsonreader.h>

#include <QTest>

#include <random>
#include <string>

using Tavoro::SSProxy::Wire::JsonElements;

namespace {

quint64 elementsOf(std::string_view text)
{
    JsonElements elements;
    elements.add(text);
    return elements.count();
}

/// The same, with the text cut into two pieces.
quint64 elementsOf(std::string_view text, std::size_t cut)
{
    JsonElements elements;
    elements.add(text.substr(0, cut));
    elements.add(text.substr(cut));
    return elements.count();
}

/// The commas and opening brackets that the decoder finds until it refuses the text.
quint64 elementsOfDecoder(const std::string &text)
{
    quint64 count = 0;
    ajson::JsonReader reader(text.c_str());
    try {
        for (reader.next(); reader.token.kind != ajson::JsonTokenKind::end; reader.next()) {
            const char c = *reader.token.text;
            const bool isSymbol = reader.token.kind == ajson::JsonTokenKind::symbol;
            count += isSymbol && (c == ',' || c == '[' || c == '{');
        }
    } catch (const ajson::exception &) { }
    return count;
}

std::string randomText(std::mt19937 &random, std::string_view characters)
{
    std::string text(random() % 200, ' ');
    for (char &c : text)
        c = characters[random() % characters.size()];
    return text;
}

/// Valid JSON: nested lists of strings with everything that a string may hold.
std::string randomJson(std::mt19937 &random, int depth = 0)
{
    static const char *const parts[] = {R"(\")", R"(\\)", ",", "[", "{", "/", ":", "a", "\t", " "};
    if (depth < 3 && random() % 3 != 0) {
        std::string list = "[";
        for (auto left = random() % 6; left > 0; --left)
            list += randomJson(random, depth + 1) + (left > 1 ? ", " : " ");
        return list + "]";
    }
    std::string text = "\"";
    for (auto left = random() % 40; left > 0; --left)
        text += parts[random() % std::size(parts)];
    return text + "\"";
}

} // namespace

class tst_JsonElements : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void elementsAreCommasAndOpeningBracketsOutsideStrings_data();
    void elementsAreCommasAndOpeningBracketsOutsideStrings();
    void countDoesNotDependOnThePlaceInABlock();
    void countDoesNotDependOnThePieces();
    void emptyPiecesChangeNothing();
    void jsonHasTheCountOfTheDecoder();
    void anyTextHasAtLeastTheCountOfTheDecoder();
};

void tst_JsonElements::elementsAreCommasAndOpeningBracketsOutsideStrings_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("count");
    // clang-format off
    QTest::newRow("nothing")                          << QByteArray()                      << 0;
    QTest::newRow("record")                           << QByteArray(R"({"a":1,"b":2})")    << 2;
    QTest::newRow("list")                             << QByteArray("[1,2,3]")             << 3;
    QTest::newRow("list of records")                  << QByteArray("[{a:},{a:},{a:}]")    << 6;
    QTest::newRow("with blanks")                      << QByteArray("[ {\"a\" : \"b\"} ,\r\n\t\"c\" ]") << 3;
    QTest::newRow("commas in a string")               << QByteArray(R"(["a,b,[{",1])")     << 2;
    QTest::newRow("escaped quote in a string")        << QByteArray(R"(["a\",b",1])")      << 2;
    QTest::newRow("escaped backslash ends a string")  << QByteArray(R"(["a\\",1,2])")      << 3;
    QTest::newRow("three backslashes and a quote")    << QByteArray(R"(["a\\\",b",1])")    << 2;
    QTest::newRow("slash in a string")                << QByteArray(R"(["a//b,c","d,e"])") << 2;
    QTest::newRow("empty strings")                    << QByteArray(R"(["","",""])")       << 3;
    QTest::newRow("unfinished string")                << QByteArray(R"(["a,b,c)")          << 1;
    // What follows is not JSON, but the decoder reads some of it: all commas count from there on.
    QTest::newRow("quote in a bare word")             << QByteArray(R"([a",b",c])")        << 3;
    QTest::newRow("quote after a string")             << QByteArray(R"(["a"",,",b])")      << 4;
    QTest::newRow("quote in a comment")               << QByteArray("[//\"\n1,2,3]")       << 3;
    QTest::newRow("backslash outside strings")        << QByteArray("[\\\",1,\"a,b\"]")    << 4;
    QTest::newRow("quote after a form feed")          << QByteArray("[\f\",1,2]")          << 3;
    // clang-format on
}

void tst_JsonElements::elementsAreCommasAndOpeningBracketsOutsideStrings()
{
    QFETCH(const QByteArray, text);
    QFETCH(const int, count);
    QCOMPARE(elementsOf(text.toStdString()), quint64(count));
}

void tst_JsonElements::countDoesNotDependOnThePlaceInABlock()
{
    const std::string text = R"([{"a":"x,\\\"y,\\","b":[1,2]},{"a":"","b":[]}])";
    for (std::size_t before = 0; before < 130; ++before)
        QCOMPARE(elementsOf(std::string(before, ' ') + text + ",,"), quint64(11));
}

void tst_JsonElements::countDoesNotDependOnThePieces()
{
    const std::string text =
        R"([{"a":"x,\\\"y,\\","b":[1,2]},{"a":"","b":[]},"\"\"\"",[a"b"],","])";
    for (std::size_t cut = 0; cut <= text.size(); ++cut)
        QCOMPARE(elementsOf(text, cut), elementsOf(text));
    JsonElements bytewise;
    for (const char c : text)
        bytewise.add({&c, 1});
    QCOMPARE(bytewise.count(), elementsOf(text));
}

void tst_JsonElements::emptyPiecesChangeNothing()
{
    JsonElements elements;
    for (const char *const piece : {"", "[\"a\\", "", "\",", "", "\",1]", ""})
        elements.add(piece);
    QCOMPARE(elements.count(), quint64(2));
}

void tst_JsonElements::jsonHasTheCountOfTheDecoder()
{
    std::mt19937 random(1);
    for (int i = 0; i < 20000; ++i) {
        const std::string text = randomJson(random);
        const quint64 expected = elementsOfDecoder(text + ' ');
        QVERIFY2(elementsOf(text) == expected, text.c_str());
        QVERIFY2(elementsOf(text, random() % (text.size() + 1)) == expected, text.c_str());
    }
}

/// Otherwise a device could hide elements from the count.
void tst_JsonElements::anyTextHasAtLeastTheCountOfTheDecoder()
{
    std::mt19937 random(2);
    for (const std::string_view characters :
         {"{}[]:,\"\\/ a", ",\"a \n/", ",,,,\"\\a", ",\"\t\f1-.e*"})
        for (int i = 0; i < 50000; ++i) {
            const std::string text = randomText(random, characters);
            const quint64 least = elementsOfDecoder(text);
            QVERIFY2(elementsOf(text) >= least, text.c_str());
            QVERIFY2(elementsOf(text, random() % (text.size() + 1)) >= least, text.c_str());
        }
}

QTEST_GUILESS_MAIN(tst_JsonElements)
#include "tst_jsonelements.moc"
