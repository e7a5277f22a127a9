#pragma once

#include <QString>

#include <optional>

namespace Tavoro::Ctl {

/// A file on a device. Type and number are a byte each in the head of a command, and 255 names all.
struct FilePlace {
    int type = 0;
    int id = 0;
};

/// The type that \a text names: a number, or one of the words below.
std::optional<int> parseFileType(const QString &text);

/// The word for a type that has one, else its number.
QString fileTypeName(int type);

/// Reads type and number of a file. False with what is wrong in \a fault.
bool readFilePlace(const QString &type, const QString &id, FilePlace &place, QString &fault);

/// "2:7", type and number.
QString placeName(const FilePlace &place);

} // namespace Tavoro::Ctl
