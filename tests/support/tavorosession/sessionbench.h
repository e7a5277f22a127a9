#pragma once

#include <support/common/patience.h>
#include <support/tavorosim/simulatedconnection.h>

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/deviceconfig.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorosession/session.h>

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>

/// Sees whether the thread that created it was blocked: counts the shots of a timer of 10 ms, and
/// measures the longest gap between two of them.
class Heartbeat {
public:
    Heartbeat()
    {
        m_timer.setInterval(10);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
        m_elapsed.start();
        m_timer.start();
    }
    /// In milliseconds, up to now.
    qint64 longestGap() const { return std::max(m_longest, m_elapsed.elapsed()); }
    /// Waits until the timer has fired \a count times more.
    bool waitForBeats(int count = 10) const
    {
        return QTest::qWaitFor([this, wanted = m_beats + count] { return m_beats >= wanted; },
                               60000);
    }

private:
    void beat()
    {
        m_longest = std::max(m_longest, m_elapsed.restart());
        ++m_beats;
    }

    QTimer m_timer;
    QElapsedTimer m_elapsed;
    qint64 m_longest = 0;
    int m_beats = 0;
};

/// A simulated device and a session. Each bench may give its device another identity.
class SessionBench {
public:
    using Options = Tavoro::SessionOptions;

    static Options fastOptions()
    {
        using namespace std::chrono_literals;
        Options options;
        options.channel.firstReconnectPause = 20ms;
        options.channel.longestReconnectPause = 20ms;
        options.readPause = 50ms;
        return options;
    }
    static Tavoro::Sim::SimOptions smallDevice(quint8 number = 1)
    {
        Tavoro::Sim::SimOptions options;
        options.inputs = 2;
        options.outputs = 2;
        options.screens = 2;
        options.layersPerScreen = 2;
        options.name = QStringLiteral("wall %1").arg(number);
        options.sn.back() = number;
        options.mac.back() = number;
        options.clockSpeed = 2000; // a restart takes 50 ms
        return options;
    }

    explicit SessionBench(const Options &options = fastOptions(),
                          const Tavoro::Sim::SimOptions &device = smallDevice())
        : running(std::make_unique<RunningSimulator>(device)),
          session(std::make_unique<Tavoro::Session>(options))
    { }
    ~SessionBench()
    {
        session.reset();
        const auto devices = Tavoro::BizModel::DeviceList::instance()->devices();
        for (const auto &device : devices)
            Tavoro::BizModel::DeviceList::instance()->remove(device);
    }

    /// Opens the device. Its session is in \c wall.
    void open() { wall = open(*running); }
    /// Opens another device. Its requests may take a minute, so that their answers can be held.
    Tavoro::DeviceSession *open(const RunningSimulator &device) const
    {
        auto *const opened = session->open(QStringLiteral("127.0.0.1"), device.simulator->port());
        QObject::connect(opened, &Tavoro::DeviceSession::deviceChanged, opened, [opened] {
            constexpr quint32 patience = 60000; // milliseconds
            // Before the device is shared: the first signal precedes its first reading.
            if (opened->device() && opened->device()->deviceConfig().defaultTimeout != patience)
                opened->device()->deviceConfig().defaultTimeout = patience;
        });
        return opened;
    }
    /// Opens the device and waits until it is ready.
    bool openReady()
    {
        open();
        return QTest::qWaitFor([this] { return wall->isReady(); }, 30000);
    }
    /// Carries out a line of the device's console.
    bool execute(const QString &line) { return running->simulator->execute(line).ok; }
    bool addFault(const char *rule)
    {
        return execute(QStringLiteral("fault add ") + QLatin1String(rule));
    }
    /// Sends the answers that the fault "hold" keeps back. They were requested: wait for
    /// hasFaults().
    bool releaseAnswers() { return execute(QStringLiteral("fault release")); }
    /// Sets how long the library waits for the answer to one command. Of a device that is ready,
    /// and while nothing is read.
    void setTimeout(quint16 code, std::chrono::milliseconds time) const
    {
        auto entry = std::make_shared<Tavoro::BizModel::s_CommandTimeout>();
        entry->BC = code >> 8;
        entry->FC = code & 0xFF;
        entry->timeout = static_cast<quint32>(time.count());
        wall->device()->deviceConfig().timeouts.prepend(entry);
    }
    /// Whether the device has rules left that contain \a text. A rule with a count is removed when
    /// its exchanges have arrived.
    bool hasFaults(const char *text = "")
    {
        const QString rules = running->simulator->execute(QStringLiteral("fault list")).text;
        return !rules.isEmpty() && rules.contains(QLatin1String(text));
    }

    std::unique_ptr<RunningSimulator> running;
    std::unique_ptr<Tavoro::Session> session;
    Tavoro::DeviceSession *wall = nullptr;
};

/// Waits for the result of a call, which must arrive within a minute.
template <class Result>
Result resultOf(const Tavoro::PendingCall<Result> &call)
{
    const QFuture<Result> future = call.future();
    if (!QTest::qWaitFor([&] { return future.isFinished(); }, 60000))
        qFatal("the call did not end");
    return future.result();
}
