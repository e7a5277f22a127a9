// The line that shows how far a transfer has got.

#include <tavoroctl/output/progress.h>

#include <QJsonDocument>
#include <QTest>

using namespace Tavoro::Ctl;

Q_DECLARE_METATYPE(Progress)

class tst_TavoroCtlProgress : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void lineFitsTheTerminal_data();
    void lineFitsTheTerminal();
    void noLineIsWiderThanTheTerminal();
    void objectHasTheSameValues_data();
    void objectHasTheSameValues();
};

void tst_TavoroCtlProgress::lineFitsTheTerminal_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<Progress>("progress");
    QTest::addColumn<QString>("line");
    const QString name = QStringLiteral("wall.png");
    const Progress half{50, name, 5000000, 10000000, 2000};
    const QString narrowBar = QStringLiteral("[#####-----]");
    // clang-format off
    QTest::newRow("wide")            << 100 << half << QStringLiteral("[###############---------------]  50 %  wall.png  5.0 MB/10.0 MB  0:02 left  2.5 MB/s");
    QTest::newRow("without the rate") << 61 << half << QStringLiteral("[##########----------]  50 %  wall.png  5.0 MB/10.0 MB");
    QTest::newRow("name only")       << 40  << half << QStringLiteral("[######-------]  50 %  wall.png");
    QTest::newRow("part of the name") << 25 << half << narrowBar + QStringLiteral("  50 %  wall.");
    QTest::newRow("percent only")    << 12  << half << QStringLiteral("50 %");
    QTest::newRow("long name")       << 60  << Progress{50, QString(80, QLatin1Char('n')), 0, 0, 0}
        << QStringLiteral("[##########----------]  50 %  ") + QString(30, QLatin1Char('n'));
    QTest::newRow("no bytes")        << 79  << Progress{25, QStringLiteral("upgrade"), 0, 0, 30000}
        << QStringLiteral("[######--------------------]  25 %  upgrade  1:30 left");
    QTest::newRow("an hour left")    << 79  << Progress{1, QStringLiteral("x"), 0, 0, 40000}
        << QStringLiteral("[--------------------------]   1 %  x  1:06:00 left");
    QTest::newRow("at the start")    << 79  << Progress{0, name, 0, 999, 0}
        << QStringLiteral("[--------------------------]   0 %  wall.png  0 B/999 B");
    QTest::newRow("at the end")      << 79  << Progress{100, name, 1500, 1500, 1000}
        << QStringLiteral("[##########################] 100 %  wall.png  1.5 kB/1.5 kB  1.5 kB/s");
    QTest::newRow("control characters") << 79 << Progress{100, QStringLiteral("a\x1b"), 0, 0, 0}
        << QStringLiteral("[##########################] 100 %  a\\x1b");
    // clang-format on
}

void tst_TavoroCtlProgress::lineFitsTheTerminal()
{
    QFETCH(int, width);
    QFETCH(Progress, progress);
    QFETCH(QString, line);
    QCOMPARE(progressLine(progress, width), line);
}

void tst_TavoroCtlProgress::noLineIsWiderThanTheTerminal()
{
    const Progress progress{50, QString(300, QLatin1Char('n')), 123456789, 987654321, 4000000};
    for (int width = 1; width < 200; ++width)
        QVERIFY(progressLine(progress, width).size() <= width);
}

void tst_TavoroCtlProgress::objectHasTheSameValues_data()
{
    QTest::addColumn<Progress>("progress");
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("transfer")
        << Progress{50, QStringLiteral("wall"), 500, 1000, 2000}
        << QByteArray(R"({"bytes":500,"bytesPerSecond":250,"event":"progress","percent":50,)"
                      R"("secondsLeft":2,"text":"wall","total":1000})");
    QTest::newRow("nothing known")
        << Progress{0, QStringLiteral("upgrade"), 0, 0, 500}
        << QByteArray(R"({"event":"progress","percent":0,"text":"upgrade"})");
}

void tst_TavoroCtlProgress::objectHasTheSameValues()
{
    QFETCH(Progress, progress);
    QFETCH(QByteArray, json);
    QCOMPARE(QJsonDocument(progressObject(progress)).toJson(QJsonDocument::Compact), json);
}

QTEST_GUILESS_MAIN(tst_TavoroCtlProgress)
#include "tst_tavoroctlprogress.moc"
