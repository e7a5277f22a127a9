#pragma once

#include <QJsonValue>
#include <QString>

#include <string>

namespace Tavoro::Ctl {

/// A value as it would be written in a JSON text.
QString jsonText(const QJsonValue &value);

/// The value of a JSON text.
QJsonValue jsonValue(const std::string &text);

} // namespace Tavoro::Ctl
