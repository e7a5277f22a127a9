#include "recordcompletion.h"

#include <tavorooperations/jsontext.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

#include <vector>

namespace Tavoro::Ctl {

namespace {

/// Reads the beginning of a JSON text as far as it is typed.
class TypedRecord {
public:
    TypedRecord(const QString &text, const QJsonValue &sample) : m_text(text), m_next(sample)
    {
        while (m_offset < m_text.size())
            step();
    }

    /// Whether the end of the text is where a key stands, perhaps one that has begun.
    bool expectsKey() const { return !m_levels.empty() && m_levels.back().expectsKey; }

    /// The keys that may stand there.
    QStringList keys() const
    {
        QStringList keys = m_levels.back().sample.toObject().keys();
        for (const QString &given : m_levels.back().given)
            keys.removeOne(given);
        return keys;
    }

    /// The text before the key that has begun.
    QString before() const { return m_text.left(m_isInText ? m_start : m_text.size()); }

private:
    /// An object or a list that is open.
    struct Level {
        QJsonValue sample;
        QStringList given; ///< Keys.
        bool expectsKey = false;
    };

    void step()
    {
        const QChar each = m_text.at(m_offset);
        if (each == QLatin1Char('"'))
            return takeText();
        ++m_offset;
        if (each == QLatin1Char('{') || each == QLatin1Char('['))
            m_levels.push_back({m_next, {}, each == QLatin1Char('{')});
        else if ((each == QLatin1Char('}') || each == QLatin1Char(']')) && !m_levels.empty())
            m_levels.pop_back();
        else if (each == QLatin1Char(',') && !m_levels.empty())
            m_levels.back().expectsKey = m_levels.back().sample.isObject();
        if (each == QLatin1Char('['))
            m_next = m_next.toArray().at(0);
        else if (each == QLatin1Char(',') && !m_levels.empty() && !m_levels.back().expectsKey)
            m_next = m_levels.back().sample.toArray().at(0);
    }

    void takeText()
    {
        m_start = m_offset;
        ++m_offset;
        while (m_offset < m_text.size() && m_text.at(m_offset) != QLatin1Char('"'))
            m_offset += m_text.at(m_offset) == QLatin1Char('\\') ? 2 : 1;
        m_isInText = m_offset >= m_text.size();
        ++m_offset;
        if (m_isInText || !expectsKey())
            return;
        const QString key = m_text.mid(m_start + 1, m_offset - m_start - 2);
        m_levels.back().expectsKey = false;
        m_levels.back().given += key;
        m_next = m_levels.back().sample.toObject().value(key);
    }

    const QString m_text;
    int m_offset = 0;
    int m_start = 0; ///< Of the last text in quotes.
    bool m_isInText = false; ///< The last text in quotes is not closed.
    QJsonValue m_next; ///< The sample of the value that follows.
    std::vector<Level> m_levels;
};

} // namespace

QList<Help::Candidate> completeRecord(const QString &typed, const std::string &sample)
{
    if (sample.empty())
        return {};
    if (typed.isEmpty())
        return {{QString::fromStdString(sample), {}}};
    const TypedRecord record(typed, Operations::jsonValue(sample));
    if (!record.expectsKey())
        return {};
    QList<Help::Candidate> candidates;
    for (const QString &key : record.keys())
        candidates += {record.before() + QStringLiteral("\"%1\":").arg(key), {}};
    return candidates;
}

} // namespace Tavoro::Ctl
