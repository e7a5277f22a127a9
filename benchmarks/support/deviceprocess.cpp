#include "deviceprocess.h"

#include "bench.h"

#include <QProcessEnvironment>

namespace Bench {

DeviceProcess::DeviceProcess(const QString &program, const QStringList &arguments)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("tavoro.*=false"));
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const QStringList ports{QStringLiteral("--port"), QStringLiteral("0"),
                            QStringLiteral("--control-port"), QStringLiteral("0"),
                            QStringLiteral("--no-discovery")};
    m_process.start(program, ports + arguments);
    require(m_process.waitForStarted(), QStringLiteral("%1 does not start").arg(program));
    m_port = readPort(); // "listening on ADDRESS:PORT"
    m_controlPort = readPort(); // "control port PORT"
}

DeviceProcess::~DeviceProcess()
{
    m_process.write("quit\n");
    m_process.waitForFinished();
}

/// Returns the number at the end of the next line.
quint16 DeviceProcess::readPort()
{
    while (!m_process.canReadLine())
        require(m_process.waitForReadyRead(patience),
                QStringLiteral("%1 does not listen").arg(m_process.program()));
    const QByteArray line = m_process.readLine().trimmed();
    return line.mid(line.lastIndexOf(line.contains(':') ? ':' : ' ') + 1).toUShort();
}

} // namespace Bench
