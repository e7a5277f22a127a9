#pragma once

#include <tavorosim/faults/faultrules.h>

/// A rule of a test; one that is none ends the program.
inline Tavoro::Sim::FaultRule faultRule(const char *text)
{
    QString error;
    const auto rule = Tavoro::Sim::parseFaultRule(QLatin1String(text), error);
    if (!rule)
        qFatal("%s", qUtf8Printable(error));
    return *rule;
}
