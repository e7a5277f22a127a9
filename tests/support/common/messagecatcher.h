#pragma once

#include <QList>
#include <QString>
#include <QtGlobal>

#include <mutex>

/// One caught log line.
struct CaughtMessage {
    QtMsgType level;
    QString category;
    QString text;
    bool hasLocation; ///< Source file, line and function were given.
};

/// Takes every log line of the process for as long as it lives. One at a time; lines may come from
/// any thread.
class MessageCatcher {
public:
    MessageCatcher();
    ~MessageCatcher();
    MessageCatcher(const MessageCatcher &) = delete;
    MessageCatcher &operator=(const MessageCatcher &) = delete;

    QList<CaughtMessage> messages() const;
    /// The lines of one category and one level, in their order.
    QStringList texts(const char *category, QtMsgType level) const;
    void clear();

private:
    static void handle(QtMsgType level, const QMessageLogContext &context, const QString &text);

    mutable std::mutex m_mutex; // not QMutex, whose waiting ThreadSanitizer cannot see
    QList<CaughtMessage> m_messages; // guarded by m_mutex
    QtMessageHandler m_previous;
};
