#pragma once

#include <QJsonObject>

#include <string>

namespace Tavoro::Ctl {

/// The version of the objects that the tool writes. It changes when a program that reads them would
/// have to change.
constexpr int formatVersion = 1;

/// The beginning of an object that is put together as text: "{" and its version.
std::string formatHead();

/// \a object with its version, in one line.
std::string jsonLine(QJsonObject object);

/// A valid JSON text with one value per line, and its keys in the same order: version control shows
/// what changed in it.
std::string indented(const std::string &json);

} // namespace Tavoro::Ctl
