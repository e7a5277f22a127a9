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
    bool hasLocation; ///< True if source file, line and function are known.
};

/// Catches every log line of the process during its lifetime. Only one catcher may exist at a time.
/// Lines may come from any thread.
class MessageCatcher {
public:
    MessageCatcher();
    ~MessageCatcher();
    MessageCatcher(const MessageCatcher &) = delete;
    MessageCatcher &operator=(const MessageCatcher &) = delete;

    QList<CaughtMessage> messages() const;
    /// The texts of one category and one level, in order.
    QStringList texts(const char *category, QtMsgType level) const;
    void clear();

private:
    static void handle(QtMsgType level, const QMessageLogContext &context, const QString &text);

    mutable std::mutex m_mutex; // not QMutex, whose waiting ThreadSanitizer cannot see
    QList<CaughtMessage> m_messages; // guarded by m_mutex
    QtMessageHandler m_previous;
};
