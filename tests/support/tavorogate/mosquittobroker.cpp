#include "mosquittobroker.h"

#include <QFile>
#include <QHostAddress>
#include <QTcpServer>
#include <QTest>

namespace {

constexpr int patience = 30000; ///< Milliseconds.

quint16 freePort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost, 0);
    return server.serverPort();
}

} // namespace

MosquittoBroker::MosquittoBroker(const QByteArray &lines) : m_lines(lines)
{
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    QObject::connect(&m_process, &QProcess::readyRead, &m_process,
                     [this] { m_log += m_process.readAll(); });
}

MosquittoBroker::~MosquittoBroker()
{
    stop();
}

void MosquittoBroker::writeFile(const QString &name, const QByteArray &content) const
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

bool MosquittoBroker::start()
{
    if (m_port != 0)
        return startOnce();
    // Another process may take the port before the broker does.
    for (int attempt = 0; attempt < 10; ++attempt) {
        m_port = freePort();
        if (startOnce())
            return true;
    }
    return false;
}

bool MosquittoBroker::startOnce()
{
    // Without the line "user" a broker that is started by root could not read its files.
    QByteArray config = "user root\nlog_type all\nlog_dest stderr\nlistener "
        + QByteArray::number(m_port) + " 127.0.0.1\n" + m_lines;
    config.replace("FOLDER", folder().toLocal8Bit());
    writeFile(QStringLiteral("mosquitto.conf"), config);
    m_log.clear();
    m_process.start(QStringLiteral("mosquitto"),
                    {QStringLiteral("-c"), m_folder.filePath(QStringLiteral("mosquitto.conf"))});
    const bool hasAnswered = QTest::qWaitFor(
        [this] {
            return m_log.contains(" running\n") || m_process.state() == QProcess::NotRunning;
        },
        patience);
    const bool isRunning = hasAnswered && m_process.state() == QProcess::Running;
    if (!isRunning)
        qWarning("mosquitto does not run: %s", m_log.constData());
    return isRunning;
}

void MosquittoBroker::stop()
{
    m_process.kill();
    m_process.waitForFinished(patience);
}
