#include "download.h"

#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/output/console.h>
#include <tavorossproxy/channeloptions.h>
#include <tavorowire/checksums.h>

#include <QFileInfo>

namespace Tavoro::Ctl {

namespace {

/// Packets of a content whose length the device does not announce.
const quint32 mostUnannounced = SSProxy::ChannelOptions().maxPacketCount;

} // namespace

Download::Download(Console &console, const std::shared_ptr<BizModel::Device> &device,
                   ContentTarget &target, const ProtoModel::File::s_FileSize &size)
    : m_console(console), m_source(device), m_target(target), m_size(size)
{ }

void Download::run(const FilePlace &place)
{
    const SSProxy::ExchangeWatch watch;
    m_source.readBinary(place.type, place.id,
                        [this](bool ok, double share, const std::string &data, QString &reason) {
                            if (ok)
                                write(share, data);
                            else
                                stop(reason);
                        });
    m_lastExchange = watch.last();
}

QString Download::error() const
{
    if (!m_error.isEmpty())
        return m_error;
    if (m_size.length != 0 && m_size.length != m_length)
        return Texts::tr("Received %1 bytes, but the device announced %2.")
            .arg(m_length)
            .arg(m_size.length);
    if (m_size.hashSum != 0 && static_cast<quint32>(m_size.hashSum) != m_checksum)
        return Texts::tr("The checksum of the received file does not match the one the "
                         "device reports.");
    return {};
}

void Download::write(double share, const std::string &data)
{
    QString reason;
    if (!m_target.write(data, reason)) {
        stop(reason);
        cancel();
    }
    m_length += static_cast<qint64>(data.size());
    ++m_packets;
    if (m_size.length != 0 ? m_length > m_size.length : m_packets > mostUnannounced) {
        stop(Texts::tr("Received %1 bytes in %2 packets, but the device announced %3 bytes.")
                 .arg(m_length)
                 .arg(m_packets)
                 .arg(m_size.length));
        cancel();
    }
    m_checksum = SSProxy::Wire::crc32(data, m_checksum);
    const int percent = static_cast<int>(share * 100);
    if (m_pace.mayShow(percent))
        m_console.progress(
            {percent, QFileInfo(m_target.name()).fileName(), m_length, m_size.length});
}

void Download::stop(const QString &reason)
{
    if (m_error.isEmpty())
        m_error = reason;
}

} // namespace Tavoro::Ctl
