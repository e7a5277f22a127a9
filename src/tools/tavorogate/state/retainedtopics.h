#pragma once

#include "statetopics.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>

#include <deque>
#include <optional>
#include <utility>

namespace Tavoro::Gate {

/// Compares the state that a device has with the state that the broker holds, topic by topic, and
/// finds what has to be published. It keeps a hash of each payload instead of the payload.
class RetainedTopics {
public:
    /// Replaces the topics of a kind; each of them, and each that is gone, may have changed.
    void setTopics(StateKind kind, const std::vector<StateTopic> &topics);
    /// The record of a topic may have changed.
    void markChanged(const QString &name);

    /// The broker holds nothing that is known; every topic may have changed.
    void forgetBroker();
    /// The broker holds this payload, which is empty if the topic has none.
    void setHeld(const QString &name, const QByteArray &payload);

    /// True if topics may have changed.
    bool hasChanges() const { return !m_changed.empty(); }
    /// The next topic whose record differs from what the broker holds, with its payload: an empty
    /// one clears it. From now on the broker is taken to hold that. Nothing if all are equal.
    std::optional<std::pair<QString, QByteArray>> takeDifference();

private:
    struct Record {
        StateKind kind;
        std::function<QByteArray()> make;
    };

    QHash<QString, Record> m_records;
    QHash<QString, QByteArray> m_held; ///< Hash of what the broker holds.
    std::deque<QString> m_changed; ///< In the order in which they changed.
    QSet<QString> m_isChanged; ///< The same names.
};

} // namespace Tavoro::Gate
