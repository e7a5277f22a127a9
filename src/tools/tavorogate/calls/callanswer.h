#pragma once

#include <tavorosession/outcome.h>

#include <QByteArray>
#include <QString>

#include <optional>
#include <string>

namespace Tavoro::Gate {

/// What became of a call.
struct CallAnswer {
    Outcome::Kind kind = Outcome::NotSent;
    int status = 0; ///< As Outcome::status().
    QString text; ///< A sentence for people.
    std::string record; ///< What a read returned, as JSON; empty for a write.

    /// The answer for a call that reached the device, or was to be sent to it.
    static CallAnswer of(const Answer<std::string> &answer);
    /// The answer for a call that the gateway did not send, for this reason.
    static CallAnswer notSent(const QString &reason);
    /// The answer for a call that may have been carried out.
    static CallAnswer unknown(const QString &reason);
    /// Reads what toJson() has made for a call of this device.
    static std::optional<CallAnswer> fromJson(const QByteArray &json, const QString &serial);

    /// "done", "refused", "not-sent" or "unknown".
    QString outcomeName() const;
    /// What the status means, in a few words; empty for 0.
    QString meaning() const;
    /// The object that is published as the answer to a call of \a operation on a device.
    QByteArray toJson(const QString &serial, const QString &operation) const;
};

} // namespace Tavoro::Gate
