// The setup that the simulated device saves with its files.

#include <support/common/contains.h>
#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/simbench.h>
#include <support/tavorosim/sqlfile.h>

#include <QRegularExpression>
#include <QTemporaryDir>

using namespace CommandCodes;

class tst_TavoroSimSetup : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void savedSetupIsRestoredCompletely();
    void unsavedSetupIsNotRestored();
    void savedNamesMayHoldAnyCharacter();
    void factoryResetIsSaved();
    void factoryResetWithFilesIsOneStep();
    void setupOfOtherConnectorsIsIgnored();
    void damagedSetupIsReported_data();
    void damagedSetupIsReported();
    void failedWriteRefusesTheSave();

private:
    void restart()
    {
        m_bench.reset(); // the database serves one device at a time
        m_bench = std::make_unique<SimBench>(m_options);
    }
    std::string read(quint16 code) { return m_bench->client->read(code).body; }
    std::string whole() { return read(deviceDetail) + read(0x1200) + read(0x1300) + read(0x1400); }
    bool isSwapped() { return contains(read(deviceDetail), "\"swap\":1"); }
    /// Runs a statement on the database while the device is off.
    bool change(const char *statement, const QVariant &value = {})
    {
        m_bench.reset(); // the database serves one device at a time
        return runSql(m_folder->filePath(QStringLiteral("device.sqlite")), QLatin1String(statement),
                      value);
    }
    bool refuseSetups()
    {
        return change("CREATE TRIGGER refuse BEFORE INSERT ON setup"
                      " BEGIN SELECT RAISE(ABORT, 'refused'); END");
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    Tavoro::Sim::SimOptions m_options;
    std::unique_ptr<SimBench> m_bench;
};

namespace {

constexpr int storageFailed = 10;

} // namespace

void tst_TavoroSimSetup::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_options = {};
    m_options.inputs = 4;
    m_options.outputs = 4;
    m_options.screens = 1;
    m_options.filesFolder = m_folder->path();
    restart();
}

void tst_TavoroSimSetup::cleanup()
{
    m_bench.reset();
}

void tst_TavoroSimSetup::savedSetupIsRestoredCompletely()
{
    const std::string factory = whole();
    QCOMPARE(m_bench->write(deviceSwap, swapOff), 0);
    QCOMPARE(m_bench->write(screenDeleted, R"([{"screenId":1,"screenType":1}])"), 0);
    QCOMPARE(m_bench->write(save, {}), 0);
    const std::string saved = whole();
    QVERIFY(saved != factory);
    restart();
    QCOMPARE(whole(), saved);
}

void tst_TavoroSimSetup::unsavedSetupIsNotRestored()
{
    QCOMPARE(m_bench->write(deviceSwap, swapOff), 0);
    restart();
    QVERIFY(isSwapped());
}

void tst_TavoroSimSetup::savedNamesMayHoldAnyCharacter()
{
    const QString name = QStringLiteral("group 9 Wall\U0001F4FA");
    QVERIFY(m_bench->device->execute(name).ok);
    const std::string before = whole();
    QCOMPARE(m_bench->write(save, {}), 0);
    restart();
    QCOMPARE(whole(), before);
}

void tst_TavoroSimSetup::factoryResetWithFilesIsOneStep()
{
    m_bench->import(2, 7, "a");
    QCOMPARE(m_bench->write(deviceSwap, swapOff), 0);
    QCOMPARE(m_bench->write(save, {}), 0);
    QVERIFY(refuseSetups());
    restart();
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("device\\.sqlite: .*refused")));
    QCOMPARE(m_bench->write(factoryReset, R"({"type":1})"), storageFailed);
    QCOMPARE(m_bench->receive(2, 7).body, std::string("a"));
    QVERIFY(!isSwapped());
}

void tst_TavoroSimSetup::factoryResetIsSaved()
{
    const std::string factory = whole();
    QCOMPARE(m_bench->write(deviceSwap, swapOff), 0);
    QCOMPARE(m_bench->write(save, {}), 0);
    QCOMPARE(m_bench->write(factoryReset, R"({"type":0})"), 0);
    restart();
    QCOMPARE(whole(), factory);
}

void tst_TavoroSimSetup::setupOfOtherConnectorsIsIgnored()
{
    QCOMPARE(m_bench->write(deviceSwap, swapOff), 0);
    QCOMPARE(m_bench->write(save, {}), 0);
    m_options.inputs = 8;
    restart();
    QVERIFY(isSwapped());
}

void tst_TavoroSimSetup::damagedSetupIsReported_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("cut off") << QByteArray("{\"device\":");
    QTest::newRow("empty") << QByteArray("");
}

void tst_TavoroSimSetup::damagedSetupIsReported()
{
    QFETCH(QByteArray, text);
    QCOMPARE(m_bench->write(save, {}), 0);
    QVERIFY(change("UPDATE setup SET record = ?", text));
    Tavoro::Sim::SimulatedDevice device(m_options);
    QString error;
    QVERIFY(!device.start(error));
    QVERIFY2(error.startsWith(QLatin1String("the saved setup is damaged: ")), qPrintable(error));
}

void tst_TavoroSimSetup::failedWriteRefusesTheSave()
{
    QVERIFY(refuseSetups());
    restart();
    const QRegularExpression failure(QStringLiteral("^cannot write .*device\\.sqlite: "));
    QTest::ignoreMessage(QtWarningMsg, failure);
    QTest::ignoreMessage(QtWarningMsg, failure);
    QCOMPARE(m_bench->write(save, {}), storageFailed);
    QCOMPARE(m_bench->write(deviceSwap, swapOff), 0);
    QCOMPARE(m_bench->write(factoryReset, R"({"type":0})"), storageFailed);
    QVERIFY(!isSwapped());
}

QTEST_GUILESS_MAIN(tst_TavoroSimSetup)
#include "tst_tavorosimsetup.moc"
