#pragma once

#include "faultrows.h"

#include "faultbench.h"

#include <QString>
#include <QStringList>

/// An operation that exchanges of a bench go wrong in, and its words.
struct Operation {
    const char *name;
    const char *rule; ///< Which of its exchanges goes wrong, as the end of a rule.
    const char *failed; ///< The sentence on the status bar, "%1" is the reason.
    const char *error; ///< What the caller gets of it.
    const char *logged; ///< The warning after "TavoroCmd" and the device, "%1" is the sentence.
    const char *logsBesides; ///< A second warning, "%1" is the sentence.
    const char *packet; ///< Count of the packet that goes wrong, if it is a further one.
    const char *succeeded; ///< On the status bar.
    bool (*run)(FaultBench &bench, QString &error);
    /// What the device has when the operation has happened; null for those that change nothing.
    bool (*hasHappened)(FaultBench &bench);

    bool isSynchronisation() const { return qstrcmp(name, "synchronisation") == 0; }
    bool isStreamed() const { return qstrcmp(name, "streamed read") == 0; }
};

extern const Operation operations[operationCount];

/// Brings the device to the state in which no operation has happened.
void resetDevice(FaultBench &bench);
