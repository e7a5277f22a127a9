#pragma once

#include <QString>

/// The topics of the gateway. docs/gateway.md lists them.
namespace Tavoro::Gate::Topics {

/// Whether the gateway with this name is connected.
QString gatewayOnline(const QString &gateway);
/// Messages of a gateway to itself about the device with this serial number.
QString mark(const QString &gateway, const QString &serial);

/// Whether the device is connected to a gateway.
QString deviceOnline(const QString &serial);
/// The beginning of all topics of a device's state, with a slash at the end.
QString state(const QString &serial);
/// The beginning of all topics for calls to a device, with a slash at the end.
QString call(const QString &serial);
/// Who called what on the device, and what became of it.
QString audit(const QString &serial);

/// The beginning of all topics for answers, with a slash at the end.
QString answers();
/// The beginning of the topics for answers to this user.
QString answersTo(const QString &user);

/// The filter that matches all topics with this beginning.
QString filterOf(const QString &beginning);

} // namespace Tavoro::Gate::Topics
