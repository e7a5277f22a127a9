// Suggestions for misspelt names.

#include <tavorooperations/nearest.h>

#include <QTest>

using namespace Tavoro::Operations;

class tst_Nearest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void misspeltNameIsFound_data();
    void misspeltNameIsFound();
    void firstOfEquallyNearNamesIsSuggested();
    void errorTextsNameTheSuggestion();
};

void tst_Nearest::misspeltNameIsFound_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("name");
    QTest::newRow("same") << "discover"
                          << "discover";
    QTest::newRow("letter missing") << "discver"
                                    << "discover";
    QTest::newRow("letter too many") << "seelfcheck"
                                     << "selfcheck";
    QTest::newRow("other letter") << "discower"
                                  << "discover";
    QTest::newRow("neighbours exchanged") << "lsit"
                                          << "list";
    QTest::newRow("another case") << "device.writeswap"
                                  << "Device.writeSwap";
    QTest::newRow("without its verb") << "Device.swap"
                                      << "Device.writeSwap";
    QTest::newRow("another class") << "Screen.swap"
                                   << "";
    QTest::newRow("something else") << "dance"
                                    << "";
    QTest::newRow("empty") << ""
                           << "";
}

void tst_Nearest::misspeltNameIsFound()
{
    QFETCH(QString, word);
    QFETCH(QString, name);
    const QStringList names{QStringLiteral("discover"), QStringLiteral("list"),
                            QStringLiteral("selfcheck"), QStringLiteral("Device.writeSwap"),
                            QStringLiteral("Screen.writeTake")};
    QCOMPARE(nearest(word, names), name);
}

void tst_Nearest::firstOfEquallyNearNamesIsSuggested()
{
    QCOMPARE(nearest(QStringLiteral("cat"), {QStringLiteral("bat"), QStringLiteral("hat")}),
             QStringLiteral("bat"));
}

void tst_Nearest::errorTextsNameTheSuggestion()
{
    QCOMPARE(suggestion(QStringLiteral("lits"), {QStringLiteral("list")}),
             QStringLiteral("; did you mean \"list\""));
    QCOMPARE(suggestion(QStringLiteral("dance"), {QStringLiteral("list")}), QString());
}

QTEST_GUILESS_MAIN(tst_Nearest)
#include "tst_nearest.moc"
