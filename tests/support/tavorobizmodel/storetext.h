#pragma once

#include <tavorobizmodel/device.h>

#include <QString>
#include <QStringList>

/// What a store of devices holds, as lines of text: one for each record of each device, in their
/// order, without the times in the identity of a device that is started anew.
///
/// \code
/// SN MAC kind key body content
/// \endcode
namespace StoreText {

/// Every row of both tables of the file, read at one moment. A row whose digest is not that of its
/// body and content says so.
QStringList storedIn(const QString &fileName);

/// The rows that a store has to hold of \a device, worked out from what the device shows to an
/// application.
QStringList expectedOf(const Tavoro::BizModel::Device &device);

/// Of \a lines those of a kind.
QStringList ofKind(const QStringList &lines, int kind);

} // namespace StoreText
