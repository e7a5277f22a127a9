#pragma once

#include <tavorosim/faults/faultrules.h>
#include <tavorosim/faults/faulttable.h>

#include <QRegularExpression>
#include <QStringList>

/// The fault rule that \a text describes. An invalid text ends the program.
inline Tavoro::Sim::FaultRule faultRule(const char *text)
{
    QString error;
    const auto rule = Tavoro::Sim::parseFaultRule(QLatin1String(text), error);
    if (!rule)
        qFatal("%s", qUtf8Printable(error));
    return *rule;
}

/// All faults, in the order of the help.
inline QStringList faultNames()
{
    static const QRegularExpression name(QStringLiteral("^  ([a-z-]+)"),
                                         QRegularExpression::MultilineOption);
    QStringList names;
    for (auto found = name.globalMatch(Tavoro::Sim::faultHelp()); found.hasNext();)
        names << found.next().captured(1);
    return names;
}
