// The first program of README.md: the page shows its source, and it does what the page says.

#include <QFile>
#include <QProcess>
#include <QTest>

class tst_FirstProgram : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readmeShowsTheWholeSource();
    void readsTheDeviceTakesAndPrintsReports();
    void printsWhyItCannotConnect();
};

namespace {

constexpr int patience = 20000; ///< Milliseconds.

/// A program with the lines that it prints.
class Program {
public:
    Program(const char *path, const QStringList &arguments)
    {
        process.start(QString::fromLocal8Bit(path), arguments);
    }

    ~Program()
    {
        process.kill();
        process.waitForFinished(patience);
    }

    QString readLine()
    {
        while (!process.canReadLine() && process.waitForReadyRead(patience)) { }
        return QString::fromLocal8Bit(process.readLine()).trimmed();
    }

    QProcess process;
};

QByteArray content(const char *path)
{
    QFile file(QString::fromLocal8Bit(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void tst_FirstProgram::readmeShowsTheWholeSource()
{
    const QByteArray source = content(FIRST_PROGRAM_SOURCE);
    QVERIFY(!source.isEmpty());
    QVERIFY(content(README).contains("```cpp\n" + source + "```\n"));
}

void tst_FirstProgram::readsTheDeviceTakesAndPrintsReports()
{
    Program device(TAVOROSIM,
                   QStringLiteral("--port 0 --discovery 0 --name Wall").split(QLatin1Char(' ')));
    const QString port = device.readLine().section(QLatin1Char(':'), -1);
    Program program(FIRST_PROGRAM, {QStringLiteral("127.0.0.1"), port});
    QVERIFY(program.readLine().startsWith(QStringLiteral("Wall has ")));
    QCOMPARE(program.readLine(), QStringLiteral("The take is done."));
    device.process.write("power 1 0\n");
    QVERIFY(device.process.waitForBytesWritten(patience));
    QCOMPARE(program.readLine(), QStringLiteral("The device reports a change of part 5."));
}

void tst_FirstProgram::printsWhyItCannotConnect()
{
    Program program(FIRST_PROGRAM, {QStringLiteral("127.0.0.1"), QStringLiteral("0")});
    QVERIFY(!program.readLine().isEmpty());
    QVERIFY(program.process.waitForFinished(patience));
    QCOMPARE(program.process.exitCode(), 1);
}

QTEST_GUILESS_MAIN(tst_FirstProgram)
#include "tst_firstprogram.moc"
