#include "faultbench.h"

#include <tavorocontrol/autoreportmanager.h>
#include <tavorocontrol/device.h>

#include <QRegularExpression>
#include <QtTest>

using namespace Tavoro;
using namespace std::chrono_literals;

namespace {

#ifdef TAVORO_SANITIZE
constexpr auto grace = 3000ms; // the program itself is several times slower
#else
constexpr auto grace = 500ms;
#endif

Sim::SimOptions deviceOptions()
{
    Sim::SimOptions options;
    options.packetSize = 400;
    options.inputs = 2;
    options.outputs = 2;
    options.screens = 2;
    options.layersPerScreen = 1;
    options.clockSpeed = 2000; // a restart takes 50 ms
    return options;
}

SSProxy::ChannelOptions channelOptions(std::chrono::milliseconds requestTime)
{
    SSProxy::ChannelOptions options;
    options.maxRequestTime = requestTime;
    options.stalledAnswerTimeout = requestTime / 2;
    options.firstReconnectPause = 60s; // the bench reconnects it with reconnectNow()
    options.longestReconnectPause = 60s;
    return options;
}

} // namespace

FaultBench::FaultBench(std::chrono::milliseconds requestTime)
    : sync(deviceOptions(), channelOptions(requestTime)),
      m_requestTime(requestTime),
      m_store(m_folder.filePath(QStringLiteral("devices.sqlite")))
{
    Control::AutoReportManager::instance();
    QString error;
    if (!m_store.isOpen || !sync.import(2, 1, std::string(1000, 'f')) || !synchronise())
        qFatal("no bench: %s", qUtf8Printable(m_store.error));
    // Values that only reports set; a synchronisation must keep them.
    sync.listed()->updateCutoutRGB({1, 2, 3}, error);
    sync.listed()->setScreenGenlocks({{{1, 1}, {}}});
    if (!synchronise())
        qFatal("no bench");
    remember();
}

void FaultBench::remember()
{
    m_rowsBefore = modelRows();
    m_resourcesBefore = Resources::now();
}

void FaultBench::addFault(const QString &rule)
{
    m_connections = sync.connection.channel->statistics().connections;
    const auto answer = sync.connection.simulator->execute(QStringLiteral("fault add ") + rule);
    QVERIFY2(answer.ok, qPrintable(answer.text));
}

Shown FaultBench::run(const std::function<bool(QString &error)> &operation)
{
    static const QRegularExpression tag(QStringLiteral("\" lables: \\d+\""));
    const QString who = QStringLiteral("\"%1\" \"%2\"").arg(device()->name(), device()->ipMacSn());
    const quint64 timeouts = sync.connection.channel->statistics().timeouts;
    journal.clear();

    Shown shown;
    const auto begin = std::chrono::steady_clock::now();
    shown.ok = operation(shown.error);
    const auto end = std::chrono::steady_clock::now();
    shown.time = std::chrono::duration_cast<std::chrono::milliseconds>(end - begin);
    shown.timeouts = sync.connection.channel->statistics().timeouts - timeouts;
    QStringList lines = journal.lines();
    lines.replaceInStrings(who, QStringLiteral("{device}"));
    lines.replaceInStrings(tag, QStringLiteral("{tag}"));
    shown.warnings = lines.filter(QRegularExpression(QStringLiteral("^warning: ")));
    shown.statusBar =
        lines.filter(QRegularExpression(QStringLiteral("^(status bar|callback|message)")));
    return shown;
}

void FaultBench::checkFaultStruck()
{
    QCOMPARE(sync.connection.simulator->execute(QStringLiteral("fault list")).text, QString());
}

void FaultBench::checkTime(const Shown &shown) const
{
    const auto allowed = m_requestTime * std::max<quint64>(shown.timeouts, 1) + grace;
    QVERIFY2(shown.time <= allowed,
             qPrintable(QStringLiteral("it took %1 ms").arg(shown.time.count())));
}

void FaultBench::lift(bool isLost)
{
    const auto &channel = *sync.connection.channel;
    QVERIFY(sync.connection.simulator->execute(QStringLiteral("fault clear")).ok);
    const quint64 wanted = m_connections + (isLost ? 1 : 0);
    QVERIFY(QTest::qWaitFor([&] {
        sync.connection.channel->reconnectNow();
        return channel.statistics().connections == wanted
            && sync.connection.channel->isHardwareReadFinished();
    }));
}

void FaultBench::checkNextExchange()
{
    ProtoModel::Device::s_DeviceDetail detail;
    QString error;
    QVERIFY2(Control::Device(device()).readDetails(detail, error), qPrintable(error));
}

void FaultBench::checkResources() const
{
    QTRY_VERIFY2(
        Resources::now().isWithin(m_resourcesBefore),
        qPrintable(Resources::now().text() + QStringLiteral(" after ") + m_resourcesBefore.text()));
}

void FaultBench::checkModelIsUnchanged() const
{
    QCOMPARE(modelRows(), m_rowsBefore);
    QCOMPARE(storedRows(), m_rowsBefore);
}

QStringList FaultBench::rowsBefore(int kind) const
{
    return StoreText::ofKind(m_rowsBefore, kind);
}

void FaultBench::checkModelHolds(const QStringList &rows) const
{
    QCOMPARE(modelRows(), rows);
}

void FaultBench::checkStoreFollowed() const
{
    for (const QStringList &meanwhile : m_storedMeanwhile)
        QCOMPARE(meanwhile, m_rowsBefore);
    QVERIFY(m_storedMeanwhile.size() > 3);
    const QStringList held = modelRows();
    const QStringList early = storedRows();
    QVERIFY2(early == m_rowsBefore || early == held, qPrintable(early.join(QLatin1Char('\n'))));
    QVERIFY(awaitSave());
    QCOMPARE(storedRows(), held);
}

bool FaultBench::readDevice()
{
    using BizModel::DeviceList;
    m_storeSignals = std::make_unique<StoreSignals>();
    m_storedMeanwhile.clear();
    QObject watcher; // direct connection: the synchronisation waits for the slot
    QObject::connect(
        DeviceList::instance(), &DeviceList::signalShowStatusBarMsg, &watcher,
        [this] { m_storedMeanwhile << storedRows(); }, Qt::DirectConnection);
    return sync.run();
}

bool FaultBench::awaitSave() const
{
    return QTest::qWaitFor([this] { return !m_storeSignals->saved.isEmpty(); });
}

bool FaultBench::synchronise()
{
    const bool isRead = readDevice();
    return awaitSave() && isRead;
}

QStringList FaultBench::modelRows() const
{
    return StoreText::expectedOf(*sync.listed());
}

QStringList FaultBench::storedRows() const
{
    return StoreText::storedIn(m_folder.filePath(QStringLiteral("devices.sqlite")));
}
