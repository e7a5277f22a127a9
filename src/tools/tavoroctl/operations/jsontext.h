#pragma once

#include <QJsonValue>
#include <QString>

#include <string>

namespace Tavoro::Ctl {

/// A value as JSON.
QString jsonText(const QJsonValue &value);

/// The value of a valid JSON text.
QJsonValue jsonValue(const std::string &text);

} // namespace Tavoro::Ctl
