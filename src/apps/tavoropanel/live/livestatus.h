#pragma once

#include <QString>

namespace Tavoro::Panel {

/// What the operator must know before the next take.
struct LiveStatus {
    enum Kind {
        Idle, ///< Nothing to report: the screens can be operated.
        Blocked, ///< The screens cannot be operated.
        Waiting, ///< A call has no answer yet.
        Unknown, ///< It is not known whether a call was carried out.
        Failed, ///< A call was not carried out.
        Done, ///< A call was carried out after the operator was asked to wait.
    };
    Kind kind = Idle;
    QString text; ///< One sentence.
};

} // namespace Tavoro::Panel
