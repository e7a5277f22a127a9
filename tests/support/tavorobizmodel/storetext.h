#pragma once

#include <tavorobizmodel/device.h>

#include <QString>
#include <QStringList>

/// The contents of a store of devices as lines of text: one for each record of each device, in
/// their order. The times in the identity are left out, as they change when a device is restarted.
///
/// \code
/// SN MAC kind key body content
/// \endcode
namespace StoreText {

/// Every row of both tables of the file, read at one moment. A row with a wrong digest is marked.
QStringList storedIn(const QString &fileName);

/// The rows that a store must hold for \a device, derived from what the device shows to an
/// application.
QStringList expectedOf(const Tavoro::BizModel::Device &device);

/// Of \a lines those of a kind.
QStringList ofKind(const QStringList &lines, int kind);

} // namespace StoreText
