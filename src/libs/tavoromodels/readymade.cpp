#include "readymade_p.h"

#include "variant_p.h"

#include <tavorobizmodel/device.h>

namespace Tavoro::Models {

QString nameOr(const QString &name, const QString &otherwise)
{
    return name.isEmpty() || name == QLatin1String("N/A") ? otherwise : name;
}

QString nameOr(const std::string &name, const QString &otherwise)
{
    return nameOr(QString::fromStdString(name), otherwise);
}

QString displayOf(const ProtoModel::Interface::s_InterfaceDetail &interface)
{
    const auto &id = interface.interfaceId;
    return nameOr(interface.general.name,
                  QStringLiteral("%1/%2/%3").arg(id.slotId).arg(id.connectorId).arg(id.splitId));
}

bool isOnline(const std::weak_ptr<BizModel::Device> &device)
{
    const auto known = device.lock();
    return known && known->isOnline();
}

bool hasSignal(const ProtoModel::Interface::s_InterfaceDetail &interface)
{
    const auto &timing = interface.actualTiming;
    return timing.horizontal.addTime > 0 && timing.vertical.addTime > 0;
}

QVariantMap identityMap(const ProtoModel::s_ScreenId &id)
{
    return toVariant(id).toMap();
}

QVariantMap identityMap(const ProtoModel::s_InterfaceID &id)
{
    return toVariant(id).toMap();
}

QVariantMap identityMap(const ProtoModel::s_FileIdentity &id)
{
    return toVariant(id).toMap();
}

} // namespace Tavoro::Models
