#pragma once

#include "reported.h"

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

/// A report, and its effect.
struct ReportRow {
    const char *name;
    quint16 code;
    const char *codes; ///< As the log shows them.
    const char *label;
    std::string body;
    std::string (*held)(const Reported &); ///< The part of the model that the report is about.
    std::string effect; ///< That part after the report.
    const char *failed; ///< Logged before the error text.
    const char *badBody;
    int resultOfFailure;
};

/// Every report that is handled, written by hand.
extern const std::vector<ReportRow> reportRows;

/// How the log names the device of a Reported.
inline constexpr auto identity = "stage left 192.0.2.7 02005E100007 0123456789ABCD07";

/// Everything that reports may change.
QStringList snapshot(const Reported &it);
