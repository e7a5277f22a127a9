#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>

/// A simulated device in a separate process.
class Simulator {
public:
    ~Simulator();

    /// Starts \a program and waits until it listens. False if it does not.
    bool start(const QString &program);
    bool isRunning() const { return m_process.state() == QProcess::Running; }
    /// Sends \a line to its console.
    void execute(const QByteArray &line) { m_process.write(line + '\n'); }
    /// The UDP port on which it answers discovery requests.
    quint16 discoveryPort() const { return m_discoveryPort; }

private:
    QProcess m_process;
    quint16 m_discoveryPort = 0;
};
