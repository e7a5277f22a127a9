#pragma once

#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <string>

namespace Tavoro::Ctl {

/// A value as it would be written in a JSON text.
QString jsonText(const QJsonValue &value);

/// The value of a JSON text.
QJsonValue jsonValue(const std::string &text);

/// What is other in \a after than in \a before, a text for each value: "window.x 0 -> 960".
/// Elements of lists are told by their place: "powers[0].status 1 -> 0".
QStringList differences(const QJsonValue &before, const QJsonValue &after);

} // namespace Tavoro::Ctl
