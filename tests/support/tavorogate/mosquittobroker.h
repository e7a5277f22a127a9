#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/// A real broker on a free port of this machine. It keeps nothing when it is stopped.
class MosquittoBroker {
public:
    /// \a lines are added to the configuration of the broker. FOLDER stands for folder().
    explicit MosquittoBroker(const QByteArray &lines = "allow_anonymous true\n");
    ~MosquittoBroker();

    quint16 port() const { return m_port; }
    /// A folder for files that the configuration names.
    QString folder() const { return m_folder.path(); }
    void writeFile(const QString &name, const QByteArray &content) const;

    /// Whether a client receives what is published for this filter, with QoS 1.
    bool hasSubscriber(const QByteArray &clientId, const QByteArray &filter) const
    {
        return m_log.contains(clientId + " 1 " + filter + '\n');
    }

    /// Starts the broker, and waits until it listens. The first call selects the port.
    bool start();
    /// Ends the broker at once: its clients lose their connections.
    void stop();

private:
    bool startOnce();

    const QByteArray m_lines;
    const QTemporaryDir m_folder;
    QProcess m_process;
    QByteArray m_log;
    quint16 m_port = 0;
};
