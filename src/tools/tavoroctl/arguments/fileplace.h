#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace Tavoro::Ctl {

/// The highest type and the highest ID of a file: 255 stands for all.
constexpr int highestFileNumber = 254;

/// Type and ID of a file on a device. Each is one byte in the head of a command, and 255 stands for
/// all.
struct FilePlace {
    int type = 0;
    int id = 0;
};

/// The type for \a text, a number or a name; nothing if it is neither.
std::optional<int> parseFileType(const QString &text);

/// The names of all types that have one.
QStringList fileTypeNames();

/// The name of a type, or its number if it has no name.
QString fileTypeName(int type);

/// Reads type and ID of a file. False with the reason in \a fault if one is not valid.
bool readFilePlace(const QString &type, const QString &id, FilePlace &place, QString &fault);

/// "2:7": type and ID.
QString placeName(const FilePlace &place);

} // namespace Tavoro::Ctl
