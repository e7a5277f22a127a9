#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// Runs Wireshark's programs with the dissector of the build, and without settings or plugins of
/// the user.
namespace Tshark {

/// Returns true if tshark is installed. Otherwise a test skips with this message.
bool isInstalled();
constexpr char skipMessage[] = "tshark is not installed; scripts/setup test installs it";

/// Starts tshark.
void start(QProcess &tshark, const QStringList &arguments);

/// Returns what tshark prints. Ends the test program if tshark reports an error.
QString run(const QStringList &arguments);

/// Returns the lines that tshark prints for the packets of \a capture that \a filter selects. It
/// reads the capture twice, as Wireshark does, so that requests show their answers.
QStringList lines(const QString &capture, const QString &filter, const QStringList &arguments = {});

/// Returns a line for each of these packets with the values of \a fields. "|" separates fields, ","
/// the values of a field that occurs several times.
QStringList fields(const QString &capture, const QString &filter, const QStringList &fields,
                   const QStringList &arguments = {});

/// Returns the text of the column "Info" of each packet of the protocols.
QStringList infos(const QString &capture, const QStringList &arguments = {});

} // namespace Tshark
