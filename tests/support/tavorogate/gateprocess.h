#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>

class MosquittoBroker;

/// A gateway in a process of its own. Each wait ends after a minute.
class GateProcess {
public:
    GateProcess(const MosquittoBroker &broker, quint16 devicePort, const QString &name,
                int leaseSeconds);
    ~GateProcess();

    const QString &name() const { return m_name; }
    void signal(int number) const;
    bool waitForEnd();
    /// Waits until the log has \a text at least \a count times.
    bool waitForLog(const QByteArray &text, int count = 1);
    int count(const QByteArray &text) { return static_cast<int>(log().count(text)); }
    QByteArray log() { return m_log += m_process.readAll(); }

private:
    const QString m_name;
    QProcess m_process;
    QByteArray m_log;
};
