// Reads a whole device into the model and shows the model or its changes.

#include "commandlist.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/autoreportmanager.h>
#include <tavoroctl/model/modelreader.h>
#include <tavoroctl/model/modelwatch.h>
#include <tavoroctl/output/modeltree.h>
#include <tavoroctl/session/interruption.h>
#include <tavorossproxy/networkchannel.h>

#include <QEventLoop>
#include <QTimer>

namespace Tavoro::Ctl {

namespace {

const QString notReadWhole = QStringLiteral("The device could not be read completely.");

/// Keeps the model of one device up to date: by its reports, and by reading the device again after
/// each reconnect.
class Watcher {
public:
    Watcher(Tool &tool, std::shared_ptr<BizModel::Device> device)
        : m_tool(tool),
          m_device(std::move(device)),
          m_channel(tool.session.channel(*m_device)),
          m_watch([this](const QString &line) { m_tool.console.answer(line); }),
          m_reader(tool.console, [this](bool success) { take(success); })
    { }

    /// Watches until \a loop is left, or until standard output cannot be written.
    void run(QEventLoop &loop)
    {
        read();
        QTimer timer;
        timer.setInterval(lookInterval);
        QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
            if (m_tool.console.hasOutputFailed())
                loop.quit();
            else
                lookAtConnection();
        });
        timer.start();
        loop.exec();
    }

private:
    static constexpr int lookInterval = 200; ///< Milliseconds between two checks of the connection.

    void read()
    {
        m_isReading = true;
        m_connections = m_channel->statistics().connections;
        if (!m_reader.start(m_device))
            take(false);
    }

    void take(bool success)
    {
        m_isReading = false;
        if (!success)
            m_tool.console.error(notReadWhole);
        const auto device = listedDevice(*m_device);
        if (!device)
            return;
        m_watch.follow(device);
        m_tool.console.error(
            QStringLiteral("Watching %1; press Ctrl-C to stop.").arg(device->name()));
    }

    void lookAtConnection()
    {
        const bool isConnected = m_channel->isHardwareReadFinished();
        if (std::exchange(m_isConnected, isConnected) && !isConnected)
            m_tool.console.error(QStringLiteral("Connection lost."));
        if (m_isReading || !isConnected)
            return;
        if (m_channel->statistics().connections != m_connections) {
            m_tool.console.error(QStringLiteral("Reconnected."));
            read();
        }
    }

    Tool &m_tool;
    const std::shared_ptr<BizModel::Device> m_device;
    const std::shared_ptr<SSProxy::NetworkChannel> m_channel;
    ModelWatch m_watch;
    ModelReader m_reader;
    bool m_isReading = false;
    bool m_isConnected = true;
    quint64 m_connections = 0; ///< The count at the start of the last read.
};

} // namespace

ExitStatus runSync(Tool &tool, const Arguments &arguments)
{
    ExitStatus status = Done;
    const auto device = openDevice(tool, arguments.words.at(0), status);
    if (!device)
        return status;
    const bool isWhole = readModel(tool.console, device);
    if (const auto model = listedDevice(*device))
        show(tool, modelJson(*model), modelTree(*model));
    return isWhole ? Done : fail(tool, notReadWhole);
}

ExitStatus runWatch(Tool &tool, const Arguments &arguments)
{
    QEventLoop loop;
    const Interruption interruption([&] { loop.quit(); });
    // Before the first connection: reports are handled on the thread that creates the manager.
    Control::AutoReportManager::instance();
    ExitStatus status = Done;
    const auto device = openDevice(tool, arguments.words.at(0), status);
    if (!device)
        return status;
    Watcher watcher(tool, device);
    watcher.run(loop);
    return Done;
}

} // namespace Tavoro::Ctl
