#pragma once

#include <tavorogate/broker/brokermessage.h>

#include <QByteArray>
#include <QDateTime>
#include <QDeadlineTimer>
#include <QHash>
#include <QMetaType>
#include <QString>
#include <QStringList>

namespace Tavoro::Gate {

/// What identifies a call: who calls, the topic of the answer and the correlation data. Two
/// messages with the same key are the same call, delivered twice.
struct CallKey {
    QString user;
    QString answerTopic;
    QByteArray correlation;

    friend bool operator==(const CallKey &one, const CallKey &other)
    {
        return one.user == other.user && one.answerTopic == other.answerTopic
            && one.correlation == other.correlation;
    }
};

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
using HashSeed = uint;
#else
using HashSeed = std::size_t;
#endif

inline HashSeed qHash(const CallKey &key, HashSeed seed = 0)
{
    return qHash(key.user, seed) ^ qHash(key.answerTopic, seed) ^ qHash(key.correlation, seed);
}

/// A call of an operation that arrived from the broker.
struct CallRequest {
    QString operation; ///< "Screen.writeTake"
    QString user; ///< Who calls, see \c isUserVerified; empty if the message does not say.
    bool isUserVerified = false; ///< The topic names the user, which an access list can check.
    QStringList arguments; ///< One JSON text for each argument of the operation.
    QByteArray body; ///< The arguments as they arrived.
    CallKey key;
    QDateTime arrival;
    QDeadlineTimer deadline{QDeadlineTimer::Forever}; ///< Until the message expires.
    QString fault; ///< Why the call cannot be carried out; empty if it can.
};

/// Which calls are accepted.
struct CallRules {
    bool requiresUser = false; ///< Only calls whose topic names the user.
};

/// Reads a message to a topic that begins with \a beginning, see Topics::call().
CallRequest readCall(const QString &beginning, const BrokerMessage &message,
                     const CallRules &rules);

} // namespace Tavoro::Gate

Q_DECLARE_METATYPE(Tavoro::Gate::CallRequest)
