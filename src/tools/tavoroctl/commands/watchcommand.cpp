// Shows the changes of devices as they happen.

#include "commandlist.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/autoreportmanager.h>
#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/model/modelreader.h>
#include <tavoroctl/model/modelwatch.h>
#include <tavoroctl/session/interruption.h>
#include <tavorossproxy/networkchannel.h>

#include <QEventLoop>
#include <QTimer>

#include <deque>
#include <utility>
#include <vector>

namespace Tavoro::Ctl {

namespace {

constexpr int connectionCheckInterval =
    200; ///< Milliseconds between two checks of the connections.

/// A device that is watched, and its connection.
class WatchedDevice {
public:
    /// \a host names the device in each line; empty if it is the only one.
    WatchedDevice(Tool &tool, QString host, std::shared_ptr<BizModel::Device> device)
        : m_tool(tool),
          m_host(std::move(host)),
          m_device(std::move(device)),
          m_channel(tool.session.channel(*m_device)),
          m_watch([this](const ModelChange &change) { showChange(change); })
    { }

    const std::shared_ptr<BizModel::Device> &device() const { return m_device; }

    void beginReading()
    {
        m_isReading = true;
        m_connections = m_channel->statistics().connections;
    }

    void endReading(bool success)
    {
        m_isReading = false;
        if (!success)
            m_tool.console.notice(named(Texts::tr("The device could not be read completely.")));
        const auto device = listedDevice(*m_device);
        if (!device)
            return;
        m_watch.follow(device);
        m_tool.console.notice(
            named(Texts::tr("Watching %1; press Ctrl-C to stop.").arg(device->name())));
    }

    /// Looks at the connection. True if the device has to be read again.
    bool hasReconnected()
    {
        const bool isConnected = m_channel->isHardwareReadFinished();
        if (std::exchange(m_isConnected, isConnected) && !isConnected)
            m_tool.console.notice(named(Texts::tr("Connection lost.")));
        if (m_isReading || !isConnected || m_channel->statistics().connections == m_connections)
            return false;
        m_tool.console.notice(named(Texts::tr("Reconnected.")));
        return true;
    }

private:
    QString named(const QString &text) const
    {
        return m_host.isEmpty() ? text : m_host + QStringLiteral(": ") + text;
    }

    void showChange(const ModelChange &change) const
    {
        if (!m_tool.console.isJson())
            return m_tool.console.answer(named(change.text()));
        QJsonObject object = change.toJson();
        object.insert(QStringLiteral("host"), m_host);
        m_tool.console.answerObject(object);
    }

    Tool &m_tool;
    const QString m_host;
    const std::shared_ptr<BizModel::Device> m_device;
    const std::shared_ptr<SSProxy::NetworkChannel> m_channel;
    ModelWatch m_watch;
    bool m_isReading = false;
    bool m_isConnected = true;
    quint64 m_connections = 0; ///< The count at the start of the last read.
};

/// Keeps the models of devices up to date: by their reports, and by reading a device again after
/// each reconnect, one device at a time.
class Watcher {
public:
    explicit Watcher(Tool &tool)
        : m_tool(tool), m_reader(tool.console, [this](bool success) { endReading(success); })
    { }

    void add(const QString &host, const std::shared_ptr<BizModel::Device> &device)
    {
        m_devices.push_back(std::make_unique<WatchedDevice>(m_tool, host, device));
    }

    /// Watches until \a loop is left, or until standard output cannot be written.
    void run(QEventLoop &loop)
    {
        for (const auto &device : m_devices)
            enqueue(*device);
        QTimer timer;
        timer.setInterval(connectionCheckInterval);
        QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
            if (m_tool.console.hasOutputFailed())
                loop.quit();
            else
                lookAtConnections();
        });
        timer.start();
        loop.exec();
    }

private:
    void lookAtConnections()
    {
        for (const auto &device : m_devices) {
            if (device->hasReconnected())
                enqueue(*device);
        }
    }

    void enqueue(WatchedDevice &device)
    {
        device.beginReading();
        m_queue.push_back(&device);
        if (m_queue.size() == 1)
            readFirst();
    }

    void readFirst()
    {
        if (!m_reader.start(m_queue.front()->device()))
            endReading(false);
    }

    void endReading(bool success)
    {
        WatchedDevice &device = *m_queue.front();
        m_queue.pop_front();
        device.endReading(success);
        if (!m_queue.empty())
            readFirst();
    }

    Tool &m_tool;
    std::vector<std::unique_ptr<WatchedDevice>> m_devices;
    std::deque<WatchedDevice *> m_queue; ///< To be read; the first one is being read.
    ModelReader m_reader;
};

} // namespace

ExitStatus runWatch(Tool &tool, const Arguments &arguments)
{
    QEventLoop loop;
    const Interruption interruption([&] { loop.quit(); });
    // Before the first connection: reports are handled on the thread that creates the manager.
    Control::AutoReportManager::instance();
    Watcher watcher(tool);
    const bool isOne = arguments.words.size() == 1;
    for (const QString &host : arguments.words) {
        ExitStatus status = Done;
        const auto device = openDevice(tool, host, status);
        if (!device)
            return status;
        watcher.add(isOne && !tool.console.isJson() ? QString() : host, device);
    }
    watcher.run(loop);
    return Done;
}

} // namespace Tavoro::Ctl
