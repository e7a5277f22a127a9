// The setup that the simulated device keeps beside its files from one program to the next.

#include <support/tavorosim/simbench.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class tst_TavoroSimSetup : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void whatWasSavedComesBackWhole();
    void whatWasNotSavedDoesNotComeBack();
    void aFactoryResetIsKept();
    void whatOtherConnectorsSavedDoesNotCount();
    void aDamagedSetupIsRefused_data();
    void aDamagedSetupIsRefused();
    void aFolderThatCannotBeWrittenRefusesTheSave();

private:
    void startAnew()
    {
        m_bench.reset(); // the folder serves one device at a time
        m_bench = std::make_unique<SimBench>(m_options);
    }
    std::string read(quint16 code) { return m_bench->client->read(code).body; }
    std::string whole() { return read(0x1100) + read(0x1200) + read(0x1300) + read(0x1400); }
    bool isSwapped() { return read(0x1100).find("\"swap\":1") != std::string::npos; }
    QString setupPath() const { return m_folder->filePath(QStringLiteral("setup.json")); }

    std::unique_ptr<QTemporaryDir> m_folder;
    Tavoro::Sim::SimOptions m_options;
    std::unique_ptr<SimBench> m_bench;
};

namespace {

constexpr quint16 deviceSwap = 0x1107;
constexpr quint16 screenFtb = 0x130F;
constexpr quint16 factoryReset = 0xFC02;
constexpr quint16 save = 0xFC03;
const char *const swapOff = R"({"swap":0})";
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
    startAnew();
}

void tst_TavoroSimSetup::cleanup()
{
    m_bench.reset();
}

void tst_TavoroSimSetup::whatWasSavedComesBackWhole()
{
    const std::string factory = whole();
    QCOMPARE(m_bench->write(deviceSwap, swapOff), 0);
    QCOMPARE(m_bench->write(screenFtb, R"([{"screenId":1,"screenType":1}])"), 0);
    QCOMPARE(m_bench->write(save, {}), 0);
    const std::string saved = whole();
    QVERIFY(saved != factory);
    startAnew();
    QCOMPARE(whole(), saved);
}

void tst_TavoroSimSetup::whatWasNotSavedDoesNotComeBack()
{
    QCOMPARE(m_bench->write(deviceSwap, swapOff), 0);
    startAnew();
    QVERIFY(isSwapped());
    QVERIFY(!QFile::exists(setupPath()));
}

void tst_TavoroSimSetup::aFactoryResetIsKept()
{
    const std::string factory = whole();
    QCOMPARE(m_bench->write(deviceSwap, swapOff), 0);
    QCOMPARE(m_bench->write(save, {}), 0);
    QCOMPARE(m_bench->write(factoryReset, R"({"type":0})"), 0);
    startAnew();
    QCOMPARE(whole(), factory);
}

void tst_TavoroSimSetup::whatOtherConnectorsSavedDoesNotCount()
{
    QCOMPARE(m_bench->write(deviceSwap, swapOff), 0);
    QCOMPARE(m_bench->write(save, {}), 0);
    m_options.inputs = 8;
    startAnew();
    QVERIFY(isSwapped());
}

void tst_TavoroSimSetup::aDamagedSetupIsRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("cut off") << QByteArray("{\"device\":");
    QTest::newRow("empty") << QByteArray();
}

void tst_TavoroSimSetup::aDamagedSetupIsRefused()
{
    QFETCH(QByteArray, text);
    m_bench.reset();
    QFile setup(setupPath());
    QVERIFY(setup.open(QIODevice::WriteOnly));
    QCOMPARE(setup.write(text), qint64(text.size()));
    setup.close();
    Tavoro::Sim::SimulatedDevice device(m_options);
    QString error;
    QVERIFY(!device.start(error));
    QVERIFY2(error.startsWith(QLatin1String("setup.json is damaged: ")), qPrintable(error));
}

void tst_TavoroSimSetup::aFolderThatCannotBeWrittenRefusesTheSave()
{
    QVERIFY(QDir().mkdir(setupPath())); // nobody can put a file there, not even root
    QCOMPARE(m_bench->write(save, {}), storageFailed);
    QCOMPARE(m_bench->write(deviceSwap, swapOff), 0);
    QCOMPARE(m_bench->write(factoryReset, R"({"type":0})"), storageFailed);
    QVERIFY(!isSwapped());
    QVERIFY(QDir().rmdir(setupPath()));
}

QTEST_GUILESS_MAIN(tst_TavoroSimSetup)
#include "tst_tavorosimsetup.moc"
