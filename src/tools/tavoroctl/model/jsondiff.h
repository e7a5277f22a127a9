#pragma once

#include <QJsonValue>
#include <QString>
#include <QStringList>

namespace Tavoro::Ctl {

/// The differences between two values, one text for each: "window.x 0 -> 960". Elements of lists
/// are named by their index: "powers[0].status 1 -> 0".
QStringList differences(const QJsonValue &before, const QJsonValue &after);

} // namespace Tavoro::Ctl
