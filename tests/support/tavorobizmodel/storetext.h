#pragma once

#include <tavorobizmodel/device.h>

#include <QString>
#include <QStringList>

/// The contents of a store as lines of text, one per record, in the order of devices and records.
/// The times in the identity are left out, since they change when a device is restarted.
///
/// \code
/// SN MAC kind key body content
/// \endcode
namespace StoreText {

/// Every row of both tables of the file, read in one transaction. A row with a wrong digest is
/// marked.
QStringList storedIn(const QString &fileName);

/// The rows that a store must hold for \a device, derived from the public interface of the device.
QStringList expectedOf(const Tavoro::BizModel::Device &device);

/// The rows of one kind in \a lines.
QStringList ofKind(const QStringList &lines, int kind);

} // namespace StoreText
