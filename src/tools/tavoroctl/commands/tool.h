#pragma once

#include <tavoroctl/output/console.h>
#include <tavoroctl/session/session.h>

#include <QMap>
#include <QString>
#include <QStringList>

#include <memory>
#include <string>

namespace Tavoro::Ctl {

/// What the commands of the tool work with.
struct Tool {
    Console console;
    Session session;
    bool asJson = false; ///< Commands that show something print JSON in place of tables.
    int timeout = 5000; ///< Milliseconds that a device may be away.
};

/// What stands behind a command.
struct Arguments {
    QStringList words;
    QMap<QString, QString> options; ///< By name; only those that were given.
};

/// Tells what is wrong with the command line.
ExitStatus refuse(Tool &tool, const QString &fault);
/// Tells why something failed.
ExitStatus fail(Tool &tool, const QString &error);

/// Tells that \a text is no HOST[:PORT]; \a place stands in front of it.
ExitStatus refuseHost(Tool &tool, const QString &text, const QString &place = {});
/// Tells that the word in the place of \a name, such as FILE, is empty.
ExitStatus refuseEmpty(Tool &tool, const QString &name);

/// The device at HOST[:PORT], connected. Null when it cannot be had: that has then been told, and
/// \a status is what the command ends with.
std::shared_ptr<BizModel::Device> openDevice(Tool &tool, const QString &hostText,
                                             ExitStatus &status);

/// Prints what a command shows: \a json or \a table, as the command line says.
void show(Tool &tool, const std::string &json, const QString &table);

} // namespace Tavoro::Ctl
