#include "createcommands.h"

#include "createhandlers_p.h"
#include "maintenancecommands.h"

#include <tavorosim/state/edid.h>
#include <tavorosim/state/picture.h>

#include <QDateTime>
#include <QString>

#include <algorithm>

namespace Tavoro::Sim {

using namespace ProtoModel;
using namespace ProtoModel::File;

namespace {

constexpr qint32 maxZoom = 64;

DeviceStatus makeImage(const SimState &state, const s_CreateImageFile &record, s_FileDetail &detail,
                       std::string &content)
{
    const qint32 step = record.source.zoomRatio;
    if (step < 1 || step > maxZoom)
        return DeviceStatus::ValueOutOfRange;
    const auto picture = findPicture(state, record.source.type, record.source.id);
    if (!picture)
        return DeviceStatus::NoSuchObject;
    detail.source = record.source;
    detail.size.width = (picture->width + step - 1) / step;
    detail.size.height = (picture->height + step - 1) / step;
    content = picture->toPixmap(step);
    return DeviceStatus::Success;
}

DeviceStatus makeLog(const SimState &state, const s_CreateLogFile &record,
                     s_FileDetail & /*detail*/, std::string &content)
{
    const auto &cards = state.device.subcards;
    const QDateTime now = QDateTime::fromMSecsSinceEpoch(timeOfDay(state.maintenance), Qt::UTC);
    content = now.toString(Qt::ISODateWithMs).toStdString() + '\n';
    for (const s_LogPart &part : record.parts) {
        const auto card = std::find_if(cards.begin(), cards.end(), [&](const auto &candidate) {
            return candidate.slotId == part.slotId;
        });
        if (part.slotId != 0 && card == cards.end())
            return DeviceStatus::NoSuchObject;
        const QString line = part.slotId == 0
            ? QStringLiteral("device: %1\n").arg(QString::fromStdString(state.device.general.name))
            : QStringLiteral("slot %1: card 0x%2, %3\n")
                  .arg(part.slotId)
                  .arg(card->modelId, 4, 16, QLatin1Char('0'))
                  .arg(card->online != 0 ? QStringLiteral("online") : QStringLiteral("offline"));
        content += line.toStdString();
    }
    return DeviceStatus::Success;
}

DeviceStatus makeEdid(const SimState &state, const s_CreateFileInfo &record,
                      s_FileDetail & /*detail*/, std::string &content)
{
    const auto *const interface = find(state, record.interfaceId);
    if (!interface)
        return DeviceStatus::NoSuchObject;
    content = encodeEdid(*interface);
    return DeviceStatus::Success;
}

} // namespace

DeviceStatus writeCreateImage(SimState &state, const Request &request, Reports & /*reports*/)
{
    return createEach<s_CreateImageFile>(state, request, makeImage);
}

DeviceStatus writeCreateLog(SimState &state, const Request &request, Reports & /*reports*/)
{
    return createEach<s_CreateLogFile>(state, request, makeLog);
}

DeviceStatus writeCreateEdid(SimState &state, const Request &request, Reports & /*reports*/)
{
    return createEach<s_CreateFileInfo>(state, request, makeEdid);
}

} // namespace Tavoro::Sim
