#pragma once

#include <tavorosession/outcome.h>

#include <QSharedData>
#include <QString>

namespace Tavoro::SessionInternal {

class OutcomeData : public QSharedData {
public:
    Outcome::Kind kind = Outcome::NotSent;
    quint16 status = 0;
    QString reason;
    QString operation;
    QString deviceName;
    bool isReplaced = false;
    bool isCanceled = false;
};

/// Makes an outcome from \a data.
Outcome makeOutcome(const OutcomeData &data);

} // namespace Tavoro::SessionInternal
