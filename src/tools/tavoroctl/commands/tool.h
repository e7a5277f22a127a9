#pragma once

#include <tavoroctl/output/console.h>
#include <tavoroctl/session/session.h>
#include <tavorossproxy/exchangewatch.h>

#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace Tavoro::Ctl {

/// The context of a command.
struct Tool {
    Console console;
    Session session;
    int timeout = 5000; ///< How long a device may be away, in milliseconds.
    QString command; ///< The name of the command.
    SSProxy::ExchangeWatch watch; ///< The exchanges of the main thread.
};

/// The words and options after the name of a command.
struct Arguments {
    QStringList words;
    QMap<QString, QString> options; ///< The values of the given options, by name.
};

/// Reports a fault of the command line.
ExitStatus refuse(Tool &tool, const QString &fault);
/// Reports why something failed. The exit status is that of the last exchange of the main thread,
/// or of \a last.
/// @{
ExitStatus fail(Tool &tool, const QString &error);
ExitStatus fail(Tool &tool, const QString &error, const std::optional<SSProxy::Exchange> &last);
ExitStatus fail(Tool &tool, const QString &error, ExitStatus status);
/// @}

/// Reports that \a text is not HOST[:PORT].
ExitStatus refuseHost(Tool &tool, const QString &text);
/// The same as a text.
QString faultOfHost(const QString &text);
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

/// Ends a command that has succeeded: with JSON, prints \a result with the name of the command.
ExitStatus finish(Tool &tool, QJsonObject result = {});

/// Prints \a json or \a table, depending on the command line.
void show(Tool &tool, const std::string &json, const QString &table);

} // namespace Tavoro::Ctl
