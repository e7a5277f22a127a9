#pragma once

#include <QProcess>
#include <QStringList>

namespace Bench {

/// The simulated device in a process of its own, without its log. The target that uses it defines
/// TAVOROSIM, the path of the program.
class DeviceProcess {
public:
    /// \a arguments are added to those that choose free ports.
    DeviceProcess(const QString &program, const QStringList &arguments);
    ~DeviceProcess();
    DeviceProcess(const DeviceProcess &) = delete;
    DeviceProcess &operator=(const DeviceProcess &) = delete;

    quint16 port() const { return m_port; }
    /// The port for console commands.
    quint16 controlPort() const { return m_controlPort; }
    qint64 pid() const { return m_process.processId(); }

private:
    quint16 readPort();

    QProcess m_process;
    quint16 m_port = 0;
    quint16 m_controlPort = 0;
};

} // namespace Bench
