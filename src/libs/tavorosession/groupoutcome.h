#pragma once

#include <tavorosession/outcome.h>

#include <QMetaType>
#include <QStringList>

#include <algorithm>
#include <chrono>
#include <vector>

namespace Tavoro {

/// What became of a call to a group of devices, see Session::callAll(). A value.
struct GroupOutcome {
    std::vector<Outcome> outcomes; ///< One for each device, in the order of the call.
    /// The time between the first and the last sending. 0 if fewer than two calls were sent.
    std::chrono::microseconds spread{0};

    /// True if all devices have carried the operation out.
    explicit operator bool() const
    {
        return std::all_of(outcomes.begin(), outcomes.end(),
                           [](const Outcome &outcome) { return bool(outcome); });
    }
    /// The sentences of the outcomes that are not Done, in the order of the devices.
    QStringList failures() const
    {
        QStringList texts;
        for (const Outcome &outcome : outcomes) {
            if (!outcome)
                texts << outcome.text();
        }
        return texts;
    }
};

} // namespace Tavoro

Q_DECLARE_METATYPE(Tavoro::GroupOutcome)
