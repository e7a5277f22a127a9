// The differences between two records, as text.

#include <tavoroctl/model/jsondiff.h>
#include <tavorooperations/jsontext.h>

#include <QTest>

using namespace Tavoro;
using namespace Tavoro::Ctl;

class tst_TavoroCtlDifferences : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachChangedValueIsListed_data();
    void eachChangedValueIsListed();
};

void tst_TavoroCtlDifferences::eachChangedValueIsListed_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QByteArray>("message");
    // clang-format off
    QTest::newRow("nothing")         << QByteArray(R"({"a":1,"b":[1,{"c":"x"}]})") << QByteArray(R"({"b":[1,{"c":"x"}],"a":1})") << QByteArray();
    QTest::newRow("number")          << QByteArray(R"({"a":1})")       << QByteArray(R"({"a":-2})")       << QByteArray("a 1 -> -2");
    QTest::newRow("large number")    << QByteArray(R"({"a":4294967295})") << QByteArray(R"({"a":0})")     << QByteArray("a 4294967295 -> 0");
    QTest::newRow("text")            << QByteArray(R"({"a":""})")      << QByteArray(R"({"a":"\u00e4"})") << QByteArray("a \"\" -> \"\303\244\"");
    QTest::newRow("truth")           << QByteArray(R"({"a":true})")    << QByteArray(R"({"a":false})")    << QByteArray("a true -> false");
    QTest::newRow("inside")          << QByteArray(R"({"a":{"b":{"c":1,"d":2}}})") << QByteArray(R"({"a":{"b":{"c":1,"d":3}}})") << QByteArray("a.b.d 2 -> 3");
    QTest::newRow("several")         << QByteArray(R"({"a":1,"b":1})") << QByteArray(R"({"a":2,"b":2})")  << QByteArray("a 1 -> 2, b 1 -> 2");
    QTest::newRow("in a list")       << QByteArray(R"({"a":[{"b":1},{"b":2}]})") << QByteArray(R"({"a":[{"b":1},{"b":5}]})") << QByteArray("a[1].b 2 -> 5");
    QTest::newRow("list grows")      << QByteArray(R"({"a":[1]})")     << QByteArray(R"({"a":[1,{"b":2}]})") << QByteArray("a[1] nothing -> {\"b\":2}");
    QTest::newRow("list shrinks")    << QByteArray(R"({"a":[1,2]})")   << QByteArray(R"({"a":[1]})")      << QByteArray("a[1] 2 -> nothing");
    QTest::newRow("key comes")       << QByteArray(R"({})")            << QByteArray(R"({"a":0})")        << QByteArray("a nothing -> 0");
    QTest::newRow("key goes")        << QByteArray(R"({"a":{}})")      << QByteArray(R"({})")             << QByteArray("a {} -> nothing");
    QTest::newRow("other kind")      << QByteArray(R"({"a":{"b":1}})") << QByteArray(R"({"a":[1]})")      << QByteArray("a {\"b\":1} -> [1]");
    // clang-format on
}

void tst_TavoroCtlDifferences::eachChangedValueIsListed()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QByteArray, message);
    const std::vector<Difference> found = differences(Operations::jsonValue(before.toStdString()),
                                                      Operations::jsonValue(after.toStdString()));
    QCOMPARE(textOf(found).toUtf8(), message);
}

QTEST_GUILESS_MAIN(tst_TavoroCtlDifferences)
#include "tst_tavoroctldifferences.moc"
