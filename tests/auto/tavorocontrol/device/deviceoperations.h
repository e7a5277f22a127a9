#pragma once

#include <tavorocontrol/device.h>

#include <QString>
#include <QtGlobal>

#include <string>
#include <vector>

/// Calls one operation. \a seen gets what a read returned, as JSON.
using Call = bool (*)(Tavoro::Control::Device &device, Tavoro::BizModel::Device *model,
                      std::string &seen, QString &error);

/// What an operation does besides the exchange.
enum Kind : unsigned {
    Plain = 0,
    Decodes = 1,
    LocksFirst = 2, ///< Locks the model device before it sends.
};

struct OperationRow {
    const char *name;
    quint8 type;
    quint16 code;
    const char *label;
    const char *body; ///< Body of the request.
    const char *answer;
    const char *seen; ///< The result that the caller or the model gets.
    unsigned kind;
    Call call;
};

/// Every operation of the class, written by hand.
///
/// In a separate file, since the test would be too long.
extern const std::vector<OperationRow> operationRows;

/// The whole state of a device; no field has its default.
extern const char *const detailBody;
