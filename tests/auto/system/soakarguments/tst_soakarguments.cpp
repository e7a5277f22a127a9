// The soak test refuses wrong arguments with a message.

#include <QProcess>
#include <QTest>

class tst_SoakArguments : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wrongArgumentsEndWithTwo_data();
    void wrongArgumentsEndWithTwo();
    void wrongMinutesEndWithTwo_data();
    void wrongMinutesEndWithTwo();
};

namespace {

/// Runs \a program, which must refuse \a arguments with \a words. PATH is invalid, so that a script
/// that accepts them cannot build anything.
void compareRefusal(const QString &program, const QStringList &arguments, const QByteArray &words)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PATH"), QStringLiteral("/nowhere"));
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardError(), words + '\n');
    QCOMPARE(process.readAllStandardOutput(), QByteArray());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 2);
}

} // namespace

void tst_SoakArguments::wrongArgumentsEndWithTwo_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QByteArray>("words");
    // clang-format off
    QTest::newRow("no number")      << QByteArray("--rounds abc")    << QByteArray(R"("abc" is not valid for --rounds (a number from 2 to 2147483647))");
    QTest::newRow("no round")       << QByteArray("--rounds 0")      << QByteArray(R"("0" is not valid for --rounds (a number from 2 to 2147483647))");
    QTest::newRow("one round")      << QByteArray("--rounds 1")      << QByteArray(R"("1" is not valid for --rounds (a number from 2 to 2147483647))");
    QTest::newRow("no device")      << QByteArray("--devices 0")     << QByteArray(R"("0" is not valid for --devices (a number from 1 to 65535))");
    QTest::newRow("many devices")   << QByteArray("--devices 65536") << QByteArray(R"("65536" is not valid for --devices (a number from 1 to 65535))");
    QTest::newRow("no second")      << QByteArray("--seconds 0")     << QByteArray(R"("0" is not valid for --seconds (a number from 1 to 2147483))");
    QTest::newRow("half a second")  << QByteArray("--seconds 0.5")   << QByteArray(R"("0.5" is not valid for --seconds (a number from 1 to 2147483))");
    QTest::newRow("negative seed")  << QByteArray("--seed -1")       << QByteArray(R"("-1" is not valid for --seed (a number from 0 to 4294967295))");
    QTest::newRow("first fault")    << QByteArray("--seed x --rounds y") << QByteArray(R"("y" is not valid for --rounds (a number from 2 to 2147483647))");
    QTest::newRow("word")           << QByteArray("5")               << QByteArray(R"(unexpected argument "5")");
    QTest::newRow("unknown option") << QByteArray("--fly")           << QByteArray("Unknown option 'fly'.");
    // clang-format on
}

void tst_SoakArguments::wrongArgumentsEndWithTwo()
{
    QFETCH(QByteArray, arguments);
    QFETCH(QByteArray, words);
    compareRefusal(QStringLiteral(SOAK), QString::fromUtf8(arguments).split(QLatin1Char(' ')),
                   "soak: " + words);
}

void tst_SoakArguments::wrongMinutesEndWithTwo_data()
{
    QTest::addColumn<QString>("minutes");
    QTest::newRow("nothing") << "";
    QTest::newRow("no minute") << "0";
    QTest::newRow("in base 8") << "08";
    QTest::newRow("no number") << "abc";
    QTest::newRow("option") << "--seconds";
}

void tst_SoakArguments::wrongMinutesEndWithTwo()
{
    QFETCH(QString, minutes);
    compareRefusal(QStringLiteral(SOAK_SCRIPT), {minutes},
                   "scripts/soak: \"" + minutes.toUtf8() + "\" is not a valid number of minutes");
}

QTEST_GUILESS_MAIN(tst_SoakArguments)
#include "tst_soakarguments.moc"
