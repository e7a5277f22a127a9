#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>

/// A simulated device as a process of its own.
class Simulator {
public:
    ~Simulator();

    /// Starts \a program and waits until it serves. False when it does not.
    bool start(const QString &program);
    bool isRunning() const { return m_process.state() == QProcess::Running; }
    /// Types \a line into its console.
    void execute(const QByteArray &line) { m_process.write(line + '\n'); }
    /// The UDP port on which it answers those who look for devices.
    quint16 discoveryPort() const { return m_discoveryPort; }

private:
    QProcess m_process;
    quint16 m_discoveryPort = 0;
};
