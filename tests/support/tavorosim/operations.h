#pragma once

#include "faultrows.h"

#include "faultbench.h"

#include <QString>
#include <QStringList>

/// An operation in which one exchange gets a fault, and the texts that it then shows.
struct Operation {
    const char *name;
    const char *rule; ///< The exchange that gets the fault, as the end of a rule.
    const char *failed; ///< The sentence on the status bar, "%1" is the reason.
    const char *error; ///< The error text of the caller, "%1" is the reason or the sentence.
    const char *logged; ///< The warning after "TavoroCmd" and the device, "%1" is the sentence.
    const char *logsBesides; ///< A second warning, "%1" is the sentence.
    const char *packet; ///< The packet that gets the fault, unless it is the first one: "2/2".
    const char *succeeded; ///< The text of the status bar after a success.
    bool (*run)(FaultBench &bench, QString &error);
    /// Whether the device has carried out the operation; null for operations that change nothing.
    bool (*hasHappened)(FaultBench &bench);

    bool isSynchronisation() const { return qstrcmp(name, "synchronisation") == 0; }
    bool isStreamed() const { return qstrcmp(name, "streamed read") == 0; }
};

extern const Operation operations[operationCount];

/// Restores the state of the device before all operations.
void resetDevice(FaultBench &bench);
