#include "tracedrun.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

namespace TracedRun {

namespace {

QStringList inject(const QString &call, const char *fault, int number)
{
    return {QStringLiteral("-e"),
            QStringLiteral("inject=%1:%2:when=%3")
                .arg(call, QLatin1String(fault), QString::number(number))};
}

} // namespace

QStringList logTo(const QString &fileName)
{
    return {QStringLiteral("-o"), fileName};
}

QStringList killAt(const QString &call, int number)
{
    return inject(call, "signal=SIGKILL", number);
}

QStringList failWithoutSpaceAt(const QString &call, int number)
{
    return inject(call, "error=ENOSPC", number);
}

Result run(const QStringList &options, const QStringList &arguments)
{
    QStringList command{QStringLiteral("-f"), QStringLiteral("-qq"), QStringLiteral("-o"),
                        QStringLiteral("/dev/null")};
    command << options << QCoreApplication::applicationFilePath() << arguments;
    QProcess child;
    child.start(QStringLiteral("strace"), command);
    if (!child.waitForFinished())
        return {};
    return {child.exitStatus() == QProcess::CrashExit, child.exitCode()};
}

Calls callsIn(const QString &log)
{
    Calls counts;
    QFile lines(log);
    if (!lines.open(QIODevice::ReadOnly))
        return counts;
    const QRegularExpression call(QStringLiteral("^\\d+ +(\\w+)\\("));
    while (!lines.atEnd()) {
        const auto match = call.match(QString::fromUtf8(lines.readLine()));
        if (match.hasMatch())
            ++counts[match.captured(1).toUtf8()];
    }
    return counts;
}

void addRows(const Calls &calls)
{
    QTest::addColumn<int>("count");
    for (auto call = calls.begin(); call != calls.end(); ++call)
        QTest::newRow(call.key().constData()) << call.value();
}

} // namespace TracedRun
