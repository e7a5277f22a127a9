#pragma once

#include <support/common/messagecatcher.h>

#include <QLoggingCategory>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

/// What simulated devices of this process log while it exists: the requests that arrived, in their
/// order.
class DeviceLog {
public:
    DeviceLog()
    {
        QLoggingCategory::setFilterRules(
            QStringLiteral("tavoro.sim.info=true\ntavoro.sim.debug=true"));
    }
    ~DeviceLog() { QLoggingCategory::setFilterRules(QString()); }

    /// The bodies of the writes with this code.
    QStringList writes(quint16 code) const
    {
        QStringList bodies;
        const QString word =
            QStringLiteral(" write 0x%1 ").arg(QString::number(code, 16).toUpper());
        bool isWanted = false;
        const auto messages = m_catcher.messages();
        for (const CaughtMessage &message : messages) {
            if (message.category != QLatin1String("tavoro.sim"))
                continue;
            if (message.level == QtInfoMsg)
                isWanted = message.text.contains(word);
            else if (isWanted && message.text.startsWith(QLatin1String("> ")))
                bodies << message.text.mid(2);
        }
        return bodies;
    }
    /// Codes of the commands that arrived, such as "1107", without links and the clock.
    QStringList codes() const
    {
        static const QRegularExpression pattern(QStringLiteral(" 0x([0-9A-F]{4}) \\["));
        QStringList found;
        for (const QString &line : m_catcher.texts("tavoro.sim", QtInfoMsg)) {
            const auto match = pattern.match(line);
            if (match.hasMatch())
                found << match.captured(1);
        }
        return found;
    }
    /// Whether a device has noticed the end of a connection.
    bool hasLostConnection() const
    {
        const QStringList lines = m_catcher.texts("tavoro.sim", QtInfoMsg);
        return std::any_of(lines.begin(), lines.end(), [](const QString &line) {
            return line.endsWith(QLatin1String(" gone"));
        });
    }
    void clear() { m_catcher.clear(); }

private:
    MessageCatcher m_catcher;
};
