#include "messagecatcher.h"

#include <QStringList>

#include <atomic>

namespace {
std::atomic<MessageCatcher *> current{nullptr};
}

MessageCatcher::MessageCatcher()
{
    Q_ASSERT_X(!current, "MessageCatcher", "one at a time");
    current = this;
    m_previous = qInstallMessageHandler(&MessageCatcher::handle);
}

MessageCatcher::~MessageCatcher()
{
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
    MessageCatcher *catcher = current;
    if (!catcher)
        return;
    const bool hasLocation = context.file && context.line > 0 && context.function;
    const std::lock_guard<std::mutex> lock(catcher->m_mutex);
    catcher->m_messages.append({level, QString::fromLatin1(context.category), text, hasLocation});
}
