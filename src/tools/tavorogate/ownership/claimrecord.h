#pragma once

#include <tavorogate/calls/callanswer.h>
#include <tavorogate/calls/callrequest.h>
#include <tavorossproxy/exchangewatch.h>

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tavoro::Gate {

/// What gateways publish for each other about a call. docs/gateway.md describes the JSON.
struct ClaimRecord {
    enum State : quint8 {
        Claimed, ///< The active gateway is about to send the call.
        Ended, ///< It has published the answer of the call.
        Asked, ///< A gateway that watches asks the active one about the call.
        Waiting, ///< The active gateway has the call, and is going to answer it.
        Answered, ///< The active gateway has published the answer before.
    };

    quint64 sequence = 0; ///< Counts the records about a device, over all gateways.
    QString instance; ///< Identifies the running gateway that has published the record.
    QString gateway; ///< Its name.
    State state = Claimed;
    bool isDoubtful = false; ///< Of a question: the call may have been carried out.
    SSProxy::RequestIdentity request; ///< The request that carries the call; empty for a read.
    CallRequest call; ///< Operation, user and key of the call.
    CallAnswer answer; ///< Of a call that has ended.

    /// True for the records that make the sequence, the last of which is retained.
    bool isRetained() const { return state == Claimed || state == Ended; }
    bool hasAnswer() const { return state == Ended || state == Answered; }

    QByteArray toJson() const;
    static std::optional<ClaimRecord> fromJson(const QByteArray &json);
};

} // namespace Tavoro::Gate
