#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

/// Runs of the test program itself as a child process under strace, which counts its system calls,
/// kills it at one of them or lets one of them fail.
namespace TracedRun {

/// How often a run makes each system call.
using Calls = QMap<QByteArray, int>;

/// The end of a run.
struct Result {
    bool isKilled = false;
    int exitCode = -1; ///< -1: strace could not run, or the child did not end.
};

/// Options of strace.
/// @{
QStringList logTo(const QString &fileName);
QStringList killAt(const QString &call, int number);
QStringList failWithoutSpaceAt(const QString &call, int number);
/// @}

/// Runs this program with \a arguments. strace follows its threads, and gets \a options.
Result run(const QStringList &options, const QStringList &arguments);

/// Counts the calls in a log of strace.
Calls callsIn(const QString &log);

/// Adds a row for each call to the data of a test, with its count in the column "count".
void addRows(const Calls &calls);

} // namespace TracedRun
