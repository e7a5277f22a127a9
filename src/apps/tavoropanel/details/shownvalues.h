#pragma once

#include <QString>
#include <QVariant>

/// Values of records as texts.
namespace Tavoro::Panel {

/// Returns a timing such as "1920 × 1080, 60 Hz", or the words for a missing signal.
QString timingText(const QVariant &timing);
/// A number of bytes with a unit.
QString bytesText(const QVariant &length);
/// "Yes" or "No".
QString yesNoText(const QVariant &flag);
/// Width and height of a record that has them, in pixels.
QString sizeText(const QVariant &record);
/// How many entries a list has.
QString countText(const QVariant &list);
/// A text or number as it is.
QString plainText(const QVariant &value);
/// A type of files in words.
QString fileTypeText(const QVariant &fileType);

} // namespace Tavoro::Panel
