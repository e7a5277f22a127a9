#pragma once

#include <tavorobizmodel/interface.h>
#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/interface.h>

#include <QString>
#include <QVariantMap>

#include <memory>
#include <string>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Models {

/// Returns \a name, or \a otherwise if an object has no name.
QString nameOr(const QString &name, const QString &otherwise);
QString nameOr(const std::string &name, const QString &otherwise);
/// Returns the name of an interface, or its slot, connector and split.
QString displayOf(const ProtoModel::Interface::s_InterfaceDetail &interface);

bool isOnline(const std::weak_ptr<BizModel::Device> &device);
/// Returns whether the device measures a picture at the interface.
bool hasSignal(const ProtoModel::Interface::s_InterfaceDetail &interface);

/// \name Identities, as the write records contain them
/// @{
QVariantMap identityMap(const ProtoModel::s_ScreenId &id);
QVariantMap identityMap(const ProtoModel::s_InterfaceID &id);
QVariantMap identityMap(const ProtoModel::s_FileIdentity &id);
/// @}

} // namespace Tavoro::Models
