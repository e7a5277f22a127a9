#include "fleetdevices.h"

#include "bench.h"

namespace Bench {

FleetDevices::FleetDevices(const QString &program, int count)
{
    m_process.start(program, {QString::number(count)});
    require(m_process.waitForStarted(), m_process.errorString());
    for (int number = 0; number < count; ++number)
        m_ports.push_back(static_cast<quint16>(readNumber()));
}

FleetDevices::~FleetDevices()
{
    m_process.closeWriteChannel();
    m_process.waitForFinished();
}

void FleetDevices::startReports(int rate)
{
    m_process.write(QByteArrayLiteral("report ") + QByteArray::number(rate) + '\n');
    m_process.waitForBytesWritten();
}

qint64 FleetDevices::stopReports()
{
    m_process.write(QByteArrayLiteral("quiet\n"));
    return readNumber();
}

qint64 FleetDevices::readNumber()
{
    while (!m_process.canReadLine())
        require(m_process.waitForReadyRead(patience), QStringLiteral("fleetdevices is silent"));
    return m_process.readLine().trimmed().toLongLong();
}

} // namespace Bench
