#pragma once

#include <tavorogate/calls/callanswer.h>
#include <tavorogate/calls/callrequest.h>
#include <tavorossproxy/exchangewatch.h>

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tavoro::Gate {

/// What an active gateway publishes for the others about a call: that it is about to send it, or
/// that it has ended. docs/gateway.md describes the JSON.
struct ClaimRecord {
    quint64 sequence = 0; ///< Counts the records about a device, over all gateways.
    QString instance; ///< Identifies the running gateway that has published the record.
    QString gateway; ///< Its name.
    bool isEnded = false; ///< The call has ended, and its answer was published before.
    SSProxy::RequestIdentity request; ///< The request that carries the call; empty for a read.
    CallRequest call; ///< Operation, user and key of the call.
    CallAnswer answer; ///< Of a call that has ended.

    QByteArray toJson() const;
    static std::optional<ClaimRecord> fromJson(const QByteArray &json);
};

} // namespace Tavoro::Gate
