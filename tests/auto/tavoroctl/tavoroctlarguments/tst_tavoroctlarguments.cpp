// Hosts, and lines of a batch.

#include <support/common/texts.h>

#include <tavoroctl/arguments/batchline.h>
#include <tavoroctl/arguments/host.h>

#include <QTest>

using namespace Tavoro::Ctl;

class tst_TavoroCtlArguments : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void batchLinesAreSplitIntoWords_data();
    void batchLinesAreSplitIntoWords();
    void incompleteQuotesAreRefused_data();
    void incompleteQuotesAreRefused();
    void hostsAreParsed_data();
    void hostsAreParsed();
};

void tst_TavoroCtlArguments::batchLinesAreSplitIntoWords_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArrayList>("words");
    // clang-format off
    QTest::newRow("empty")    << " \t"                                    << QByteArrayList{};
    QTest::newRow("comment")  << "  # Device.writeSwap {}"                << QByteArrayList{};
    QTest::newRow("words")    << " a  -1 b\t2 "                           << QByteArrayList{"a", "-1", "b", "2"};
    QTest::newRow("object")   << R"(a {"x": "y z"} )"                     << QByteArrayList{"a", R"({"x": "y z"})"};
    QTest::newRow("list")     << R"(a [1, 2])"                            << QByteArrayList{"a", "[1, 2]"};
    QTest::newRow("quoted")   << R"(a '{"x": 1}' 'b c' d)"                << QByteArrayList{"a", R"({"x": 1})", "b c", "d"};
    QTest::newRow("within")   << R"(a' b'c {"x": "don't"})"               << QByteArrayList{"a'", "b'c", R"({"x": "don't"})"};
    QTest::newRow("no text")  << "a '' b ''"                              << QByteArrayList{"a", "", "b", ""};
    // clang-format on
}

void tst_TavoroCtlArguments::batchLinesAreSplitIntoWords()
{
    QFETCH(QString, line);
    QFETCH(QByteArrayList, words);
    const BatchLine split = splitBatchLine(line);
    QCOMPARE(split.fault, QString());
    QCOMPARE(split.words, toTexts(words));
}

void tst_TavoroCtlArguments::incompleteQuotesAreRefused_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("fault");
    QTest::newRow("unclosed") << "a 'b c"
                              << "the closing quote is missing";
    QTest::newRow("only opened") << "'"
                                 << "the closing quote is missing";
    QTest::newRow("record after the quote") << R"('a'{"x":1})"
                                            << "expected a space after the closing quote";
    QTest::newRow("word after the quote") << "a 'b'c"
                                          << "expected a space after the closing quote";
    QTest::newRow("first of two") << "'a''b"
                                  << "expected a space after the closing quote";
}

void tst_TavoroCtlArguments::incompleteQuotesAreRefused()
{
    QFETCH(QString, line);
    QFETCH(QString, fault);
    QCOMPARE(splitBatchLine(line).fault, fault);
}

void tst_TavoroCtlArguments::hostsAreParsed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("port");
    QTest::newRow("name") << "wall.example"
                          << "wall.example" << 6630;
    QTest::newRow("port") << "10.0.0.7:99"
                          << "10.0.0.7" << 99;
    QTest::newRow("version 6") << "[::1]"
                               << "::1" << 6630;
    QTest::newRow("version 6 with port") << "[::1]:99"
                                         << "::1" << 99;
    QTest::newRow("version 6 without brackets") << "::1"
                                                << "::1" << 6630;
    QTest::newRow("long version 6 without brackets") << "fe80::1:99"
                                                     << "fe80::1:99" << 6630;
    QTest::newRow("two colons") << "a:b:c"
                                << "" << 0;
    QTest::newRow("nothing") << ""
                             << "" << 0;
    QTest::newRow("no port") << "wall:"
                             << "" << 0;
    QTest::newRow("port 0") << "wall:0"
                            << "" << 0;
    QTest::newRow("port above") << "wall:65536"
                                << "" << 0;
    QTest::newRow("no number") << "wall:http"
                               << "" << 0;
}

void tst_TavoroCtlArguments::hostsAreParsed()
{
    QFETCH(QString, text);
    QFETCH(QString, name);
    QFETCH(int, port);
    const std::optional<Host> host = parseHost(text);
    QCOMPARE(host.has_value(), port != 0);
    if (!host)
        return;
    QCOMPARE(host->name, name);
    QCOMPARE(int(host->port), port);
}

QTEST_GUILESS_MAIN(tst_TavoroCtlArguments)
#include "tst_tavoroctlarguments.moc"
