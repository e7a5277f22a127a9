#pragma once

#include "callrequest.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QString>

#include <chrono>
#include <deque>
#include <optional>
#include <vector>

namespace Tavoro::Gate {

/// The calls of one device that a gateway has received and that have not ended, in the order of
/// their arrival.
///
/// While the gateway watches, another one carries the calls out. A call is doubtful after
/// another gateway has claimed it, or this one has missed claims: it may have been carried out. A
/// call is overdue when it has waited for longer than \c longestWait, or than its message is valid.
class WaitingCalls {
public:
    /// How long a call waits for a gateway that works. Later the caller may not expect it.
    static constexpr std::chrono::seconds longestWait{30};

    struct Entry {
        CallRequest call;
        bool isDoubtful = false;
        QDeadlineTimer patience{QDeadlineTimer::Forever}; ///< Until the call is overdue.
    };

    bool isEmpty() const { return m_entries.empty(); }
    std::size_t size() const { return m_entries.size(); }

    /// Adds a call that has arrived.
    void append(const CallRequest &call);
    /// Adds a call again that was taken and has not ended. It is doubtful if it was sent.
    void putBack(const CallRequest &call, bool isDoubtful);
    /// Takes the call that has arrived first.
    Entry takeFirst();
    void remove(const CallKey &key);
    /// The call that expects an answer with this correlation data on this topic.
    std::optional<CallRequest> find(const QString &topic, const QByteArray &correlation) const;

    /// Marks a call as doubtful, or all of them. A call without correlation data is removed
    /// instead, since no answer could be recognised as its own.
    void doubt(const CallKey &key);
    void doubtAll();
    /// The active gateway is going to answer the call: it is not doubtful, and its time begins
    /// again.
    void confirm(const CallKey &key);

    /// The gateway watches from now on: the time of each call begins.
    void startPatience();
    /// The gateway works from now on: no further call becomes overdue.
    void endPatience();

    /// The calls that are doubtful or overdue.
    std::vector<Entry> unclear() const;

private:
    static QDeadlineTimer patienceFor(const CallRequest &call);

    bool m_isPatient = false; ///< The gateway watches.
    std::deque<Entry> m_entries;
};

} // namespace Tavoro::Gate
