#pragma once

#include "callanswer.h"
#include "callrequest.h"

#include <QByteArray>
#include <QHash>

#include <deque>
#include <optional>

namespace Tavoro::Gate {

/// The calls of one device that have arrived, by which a second delivery of a call is recognised.
///
/// Keeps every call that has not ended, and the last \c mostEnded that have. A call without
/// correlation data is not kept.
class RememberedCalls {
public:
    static constexpr std::size_t mostEnded = 10000;
    /// Bytes of the longest record that is kept with an answer. A read with a longer one is carried
    /// out again.
    static constexpr std::size_t longestRecord = 4096;

    /// What is known about a call that has arrived.
    enum class Kind : quint8 {
        New, ///< It has not arrived before.
        UnderWay, ///< It has arrived before, and has not ended.
        Ended, ///< It has an answer.
        Different, ///< Its correlation data belongs to another call.
    };
    struct Recall {
        Kind kind = Kind::New;
        CallAnswer answer; ///< Of a call that has ended.
    };

    /// Looks a call up, and keeps it if it is new.
    Recall arrive(const CallRequest &call);
    /// Looks a call up whose content is not known: its kind is not Different.
    Recall find(const CallKey &key) const;
    /// Keeps the answer of a call.
    void end(const CallRequest &call, const CallAnswer &answer);
    /// Forgets a call that has not ended, and that this gateway does not carry out.
    void forget(const CallKey &key) { m_calls.remove(key); }

private:
    struct Entry {
        /// Hash of operation and arguments; empty if only another gateway has received the call.
        QByteArray content;
        std::optional<CallAnswer> answer;
    };

    QHash<CallKey, Entry> m_calls;
    std::deque<CallKey> m_ended; ///< In the order in which they have ended.
};

} // namespace Tavoro::Gate
