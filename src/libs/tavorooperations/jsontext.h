#pragma once

#include <tavorooperations/export.h>

#include <QJsonValue>
#include <QString>

#include <string>

namespace Tavoro::Operations {

/// A value as JSON, in one line. Any thread; does not block.
TAVOROOPERATIONS_EXPORT QString jsonText(const QJsonValue &value);

/// The value of a valid JSON text, such as CallResult::answer. Any thread; does not block.
TAVOROOPERATIONS_EXPORT QJsonValue jsonValue(const std::string &text);

} // namespace Tavoro::Operations
