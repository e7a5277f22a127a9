// Texts in the columns of a terminal.

#include <programhelp/columns.h>

#include <QTest>

using namespace Tavoro::Help;

class tst_Columns : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void chineseCharactersTakeTwoColumns_data();
    void chineseCharactersTakeTwoColumns();
    void textIsPaddedToItsColumns();
    void textIsCutAtItsColumns();
    void linesBreakAtBlanks();
    void linesBreakBetweenChineseCharacters();
    void linesDoNotBreakAtBlanksThatMayNotBreak();
    void longWordHasALineOfItsOwn();
};

void tst_Columns::chineseCharactersTakeTwoColumns_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("columns");
    // clang-format off
    QTest::newRow("empty")       << QString()                        << 0;
    QTest::newRow("English")     << QStringLiteral("layer")          << 5;
    QTest::newRow("German")      << QStringLiteral("Höhe")           << 4;
    QTest::newRow("Chinese")     << QStringLiteral("图层")           << 4;
    QTest::newRow("punctuation") << QStringLiteral("用法：FILE")     << 10;
    // clang-format on
}

void tst_Columns::chineseCharactersTakeTwoColumns()
{
    QFETCH(const QString, text);
    QTEST(columnsOf(text), "columns");
}

void tst_Columns::textIsPaddedToItsColumns()
{
    QCOMPARE(padded(QStringLiteral("图层 1"), 8), QStringLiteral("图层 1  "));
    QCOMPARE(padded(QStringLiteral("layer"), 3), QStringLiteral("layer"));
}

void tst_Columns::textIsCutAtItsColumns()
{
    QCOMPARE(leftColumns(QStringLiteral("读取图层"), 5), QStringLiteral("读取"));
    QCOMPARE(leftColumns(QStringLiteral("layer"), 5), QStringLiteral("layer"));
    QCOMPARE(leftColumns(QStringLiteral("layer"), 0), QString());
}

void tst_Columns::linesBreakAtBlanks()
{
    QCOMPARE(linesOf(QStringLiteral("one two three"), 7),
             (QStringList{QStringLiteral("one two"), QStringLiteral("three")}));
}

void tst_Columns::linesBreakBetweenChineseCharacters()
{
    QCOMPARE(linesOf(QStringLiteral("显示设备的文件。"), 8),
             (QStringList{QStringLiteral("显示设备"), QStringLiteral("的文件。")}));
    QCOMPARE(linesOf(QStringLiteral("显示设备，文件"), 8),
             (QStringList{QStringLiteral("显示设"), QStringLiteral("备，文件")}));
}

void tst_Columns::linesDoNotBreakAtBlanksThatMayNotBreak()
{
    const QString text = QStringLiteral("une valeur\u00a0: 4");
    QCOMPARE(linesOf(text, 11),
             (QStringList{QStringLiteral("une"), QStringLiteral("valeur\u00a0: 4")}));
}

void tst_Columns::longWordHasALineOfItsOwn()
{
    QCOMPARE(
        linesOf(QStringLiteral("a HOST[:PORT] b"), 6),
        (QStringList{QStringLiteral("a"), QStringLiteral("HOST[:PORT]"), QStringLiteral("b")}));
}

QTEST_APPLESS_MAIN(tst_Columns)
#include "tst_columns.moc"
