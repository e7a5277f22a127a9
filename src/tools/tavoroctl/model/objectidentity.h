#pragma once

#include <tavorooperations/scope.h>

#include <QJsonObject>
#include <QString>

namespace Tavoro::Ctl {

/// The keys of a record that identify an object of \a kind, as far as the record has them:
/// "interfaceId" or "slotId", "connectorId" and "splitId". Empty for a device.
QJsonObject identityKeys(Operations::ScopeKind kind, const QJsonObject &record);

/// The identity as one object with numbers, the same for each record of an object.
QJsonObject identityOf(Operations::ScopeKind kind, const QJsonObject &record);

/// Whether the record identifies one object of \a kind.
bool identifies(Operations::ScopeKind kind, const QJsonObject &record);

/// "screen 1 (type 1)".
QString objectName(Operations::ScopeKind kind, const QJsonObject &record);

} // namespace Tavoro::Ctl
