#pragma once

#include <tavoroctl/output/console.h>
#include <tavoroctl/session/session.h>

#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <string>

namespace Tavoro::Ctl {

/// The context of a command.
struct Tool {
    Console console;
    Session session;
    bool asJson = false; ///< Print JSON instead of tables.
    int timeout = 5000; ///< How long a device may be away, in milliseconds.
};

/// The words and options after the name of a command.
struct Arguments {
    QStringList words;
    QMap<QString, QString> options; ///< The values of the given options, by name.
};

/// Reports a fault of the command line.
ExitStatus refuse(Tool &tool, const QString &fault);
/// Reports why something failed.
ExitStatus fail(Tool &tool, const QString &error);

/// Reports that \a text is not HOST[:PORT]. \a place precedes the message.
ExitStatus refuseHost(Tool &tool, const QString &text, const QString &place = {});
/// Reports that the word for \a name, such as FILE, is empty.
ExitStatus refuseEmpty(Tool &tool, const QString &name);

/// Connects to the device at HOST[:PORT]. Returns null if that fails; the reason has been reported
/// then, and \a status is the exit status of the command.
std::shared_ptr<BizModel::Device> openDevice(Tool &tool, const QString &hostText,
                                             ExitStatus &status);

/// Connects to the device at HOST[:PORT] and carries out \a operation on it, which returns false
/// with the reason in its second argument. Reports what fails.
ExitStatus carryOut(
    Tool &tool, const QString &hostText,
    const std::function<bool(const std::shared_ptr<BizModel::Device> &, QString &)> &operation);

/// Prints \a json or \a table, depending on the command line.
void show(Tool &tool, const std::string &json, const QString &table);

} // namespace Tavoro::Ctl
