#include "messagecatcher.h"

#include <QStringList>

namespace {

/// Held while a line is caught, so that the catcher is not destroyed meanwhile.
std::mutex currentMutex;
MessageCatcher *current = nullptr; // guarded by currentMutex

} // namespace

MessageCatcher::MessageCatcher()
{
    const std::lock_guard<std::mutex> lock(currentMutex);
    Q_ASSERT_X(!current, "MessageCatcher", "one at a time");
    current = this;
    m_previous = qInstallMessageHandler(&MessageCatcher::handle);
}

MessageCatcher::~MessageCatcher()
{
    const std::lock_guard<std::mutex> lock(currentMutex);
    qInstallMessageHandler(m_previous);
    current = nullptr;
}

QList<CaughtMessage> MessageCatcher::messages() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_messages;
}

QStringList MessageCatcher::texts(const char *category, QtMsgType level) const
{
    QStringList texts;
    const auto all = messages();
    for (const CaughtMessage &message : all) {
        if (message.level == level && message.category == QLatin1String(category))
            texts.append(message.text);
    }
    return texts;
}

void MessageCatcher::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_messages.clear();
}

void MessageCatcher::handle(QtMsgType level, const QMessageLogContext &context, const QString &text)
{
    const std::lock_guard<std::mutex> currentLock(currentMutex);
    if (!current)
        return;
    const bool hasLocation = context.file && context.line > 0 && context.function;
    const std::lock_guard<std::mutex> lock(current->m_mutex);
    current->m_messages.append({level, QString::fromLatin1(context.category), text, hasLocation});
}
