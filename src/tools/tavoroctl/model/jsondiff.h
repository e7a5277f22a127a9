#pragma once

#include <QJsonValue>
#include <QString>
#include <QStringList>

namespace Tavoro::Ctl {

/// What is other in \a after than in \a before, a text for each value: "window.x 0 -> 960".
/// Elements of lists are told by their place: "powers[0].status 1 -> 0".
QStringList differences(const QJsonValue &before, const QJsonValue &after);

} // namespace Tavoro::Ctl
