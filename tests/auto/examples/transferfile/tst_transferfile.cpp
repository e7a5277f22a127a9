// The example that transfers a file.

#include <support/examples/examplebench.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class tst_TransferFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sendsTheFileAndPrintsTheProgress();
    void cancelsATransferThatTakesTooLong();
    void printsWhyAFileCannotBeSent();

private:
    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    QStringList arguments(const ExampleBench &bench, const char *file, const char *seconds) const
    {
        return bench.hostAndPort() << path(file) << QString::fromLatin1(seconds);
    }

    const QTemporaryDir m_folder;
};

void tst_TransferFile::initTestCase()
{
    QFile file(path("wall.png"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(QByteArray(1000000, 'x')), qint64(1000000)); // 16 packets
}

void tst_TransferFile::sendsTheFileAndPrintsTheProgress()
{
    const ExampleBench bench;
    ExampleProgram program(EXAMPLE, arguments(bench, "wall.png", "60"));
    QCOMPARE(program.readAll(),
             QStringLiteral("Main hall: file import information was carried out.\n"));
    QCOMPARE(program.process.exitCode(), 0);
    QVERIFY(program.process.readAllStandardError().endsWith("100 %\n"));
}

void tst_TransferFile::cancelsATransferThatTakesTooLong()
{
    ExampleBench bench;
    QVERIFY(bench.execute("fault add late=500,code=0xFA03")); // 8 s for all packets
    ExampleProgram program(EXAMPLE, arguments(bench, "wall.png", "0.7"));
    QCOMPARE(program.readAll(),
             QStringLiteral("Main hall: file import information was cancelled.\n"));
    QCOMPARE(program.process.exitCode(), 1);
    QVERIFY(!program.process.readAllStandardError().contains("100 %\n"));
}

void tst_TransferFile::printsWhyAFileCannotBeSent()
{
    const ExampleBench bench;
    ExampleProgram program(EXAMPLE, arguments(bench, "missing", "60"));
    QCOMPARE(
        program.readAll(),
        QStringLiteral("Main hall: file import information was not sent: the content could not "
                       "be read (No such file or directory).\n"));
    QCOMPARE(program.process.exitCode(), 1);
}

QTEST_GUILESS_MAIN(tst_TransferFile)
#include "tst_transferfile.moc"
