#include "simulator.h"

#include <QStringList>

namespace {

constexpr int processLimit = 10000; ///< Milliseconds.

} // namespace

Simulator::~Simulator()
{
    m_process.kill();
    m_process.waitForFinished(processLimit);
}

bool Simulator::start(const QString &program)
{
    const QString options = QStringLiteral("--port 0 --discovery 0 --clock-speed 5000");
    m_process.start(program, options.split(QLatin1Char(' ')));
    const QString wanted = QStringLiteral("discovery port ");
    QString line;
    while (!line.startsWith(wanted)) {
        if (!m_process.canReadLine() && !m_process.waitForReadyRead(processLimit))
            return false;
        line = QString::fromLocal8Bit(m_process.readLine()).trimmed();
    }
    m_discoveryPort = static_cast<quint16>(line.mid(wanted.size()).toUInt());
    return true;
}
