#pragma once

#include <tavorocontrol/device.h>

#include <QString>
#include <QtGlobal>

#include <string>
#include <vector>

/// Calls one operation. \a seen gets what a read handed over, as JSON.
using Call = bool (*)(Tavoro::Control::Device &device, Tavoro::BizModel::Device *model,
                      std::string &seen, QString &error);

/// What an operation does beside the exchange.
enum Kind : unsigned {
    Plain = 0,
    Decodes = 1,
    LocksFirst = 2, ///< Asks for the model device before it sends.
};

struct OperationRow {
    const char *name;
    quint8 type;
    quint16 code;
    const char *label;
    const char *body; ///< Of the request.
    const char *answer;
    const char *seen; ///< By the caller or in the model.
    unsigned kind;
    Call call;
};

/// Every operation of the class, worked out by hand.
///
/// Apart from the test itself, which would be too long with them.
extern const std::vector<OperationRow> operationRows;

/// The whole of a device, no field at its default.
extern const char *const detailBody;
