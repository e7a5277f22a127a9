#include "upload.h"

#include <tavorobizmodel/device.h>
#include <tavoroctl/output/console.h>

#include <algorithm>
#include <utility>

namespace Tavoro::Ctl {

Upload::Upload(Console &console, const std::shared_ptr<BizModel::Device> &device,
               const ProtoModel::File::s_FileInfo &info)
    : m_console(console), m_target(device), m_info(info)
{
    constexpr quint32 most = 1 << 20; // For a device that names a larger limit, or none.
    const quint32 limit = device->deviceBaseInfo().maxPacketSize;
    m_packetSize = limit == 0 ? most : std::min(limit, most);
}

bool Upload::run(ContentSource &content)
{
    if (!m_target.importFile({m_info}, m_error))
        return false;
    const auto length = static_cast<quint32>(m_info.size.length);
    const quint32 count = std::max(1u, (length + m_packetSize - 1) / m_packetSize);
    for (quint32 i = 0; i < count; ++i) {
        if (m_isCancelled) {
            m_error = QStringLiteral("Interrupted.");
            return false;
        }
        if (!sendPacket(content.read(m_packetSize), count, i))
            return false;
        showProgress(count, i);
    }
    return true;
}

bool Upload::sendPacket(const std::string &piece, quint32 count, quint32 index)
{
    const auto type = static_cast<BizModel::Enum::File::FileType>(m_info.fileType);
    return m_target.writeFileBinary(piece, type, m_info.fileId, count, index, m_error, false);
}

void Upload::showProgress(quint32 count, quint32 index)
{
    const auto percent = static_cast<int>((index + 1) * quint64{100} / count);
    if (std::exchange(m_percent, percent) != percent)
        m_console.progress(percent, QString::fromStdString(m_info.general.name));
}

} // namespace Tavoro::Ctl
