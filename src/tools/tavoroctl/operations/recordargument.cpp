#include "recordargument.h"

#include "jsontext.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cctype>
#include <cstring>

namespace Tavoro::Ctl {

namespace {

Fault placed(qint64 line, qint64 column, const QString &words)
{
    return QStringLiteral("line %1, column %2: %3").arg(line).arg(column).arg(words);
}

/// The same for the byte at \a offset of \a text.
Fault placedAt(const QByteArray &text, int offset, const QString &words)
{
    const QByteArray before = text.left(offset);
    const QByteArray line = before.mid(before.lastIndexOf('\n') + 1);
    return placed(before.count('\n') + 1, QString::fromUtf8(line).size() + 1, words);
}

bool isSame(const QJsonValue &typed, const QJsonValue &sent)
{
    return typed.isBool() ? sent.toInt(-1) == (typed.toBool() ? 1 : 0) : typed == sent;
}

/// Walks through a valid JSON text beside the value that would be sent.
class MeaningCheck {
public:
    explicit MeaningCheck(QByteArray text) : m_text(std::move(text)) { }

    /// The first difference, empty if there is none. The text stands before a value.
    Fault compare(const QJsonValue &sent)
    {
        const char first = peek();
        if (first == '{' && sent.isObject())
            return compareObject(sent.toObject());
        if (first == '[' && sent.isArray())
            return compareArray(sent.toArray());
        return compareScalar(sent);
    }

private:
    /// The next character that is not a blank.
    char peek()
    {
        while (m_offset < m_text.size() && std::isspace(static_cast<uchar>(m_text[m_offset])))
            ++m_offset;
        return m_offset < m_text.size() ? m_text[m_offset] : '\0';
    }

    /// Steps over the next character and tells whether it was \a expected.
    bool takeIf(char expected)
    {
        const bool isIt = peek() == expected;
        m_offset += isIt ? 1 : 0;
        return isIt;
    }

    QByteArray takeScalar()
    {
        const int start = m_offset;
        if (takeIf('"')) {
            while (m_text[m_offset] != '"')
                m_offset += m_text[m_offset] == '\\' ? 2 : 1;
            ++m_offset;
        } else {
            while (m_offset < m_text.size() && !std::strchr(",]} \t\r\n", m_text[m_offset]))
                ++m_offset;
        }
        return m_text.mid(start, m_offset - start);
    }

    Fault compareObject(const QJsonObject &sent)
    {
        takeIf('{');
        while (!takeIf('}')) {
            peek();
            const int start = m_offset;
            const QString key = jsonValue(takeScalar().toStdString()).toString();
            if (!sent.contains(key)) {
                const QStringList keys = sent.keys();
                return placedAt(m_text, start,
                                QStringLiteral("\"%1\" is none of the keys here: %2")
                                    .arg(key, keys.join(QStringLiteral(", "))));
            }
            takeIf(':');
            Fault fault = compare(sent.value(key));
            if (!fault.isEmpty())
                return fault;
            takeIf(',');
        }
        return {};
    }

    Fault compareArray(const QJsonArray &sent)
    {
        takeIf('[');
        for (int i = 0; !takeIf(']'); ++i) {
            Fault fault = compare(sent.at(i));
            if (!fault.isEmpty())
                return fault;
            takeIf(',');
        }
        return {};
    }

    Fault compareScalar(const QJsonValue &sent)
    {
        const int start = m_offset;
        const QByteArray typed = takeScalar();
        if (isSame(jsonValue(typed.toStdString()), sent))
            return {};
        return placedAt(
            m_text, start,
            QStringLiteral("%1 would be sent as %2").arg(QString::fromUtf8(typed), jsonText(sent)));
    }

    const QByteArray m_text;
    int m_offset = 0;
};

} // namespace

Fault faultOfSyntax(const std::string &text)
{
    const QByteArray bytes = QByteArray::fromStdString(text);
    QJsonParseError error;
    QJsonDocument::fromJson(bytes, &error);
    if (error.error == QJsonParseError::NoError)
        return {};
    return placedAt(bytes, std::clamp(error.offset, 0, static_cast<int>(bytes.size())),
                    error.errorString());
}

Fault faultOfShape(const std::string &text, bool isListDue)
{
    const QByteArray bytes = QByteArray::fromStdString(text);
    const std::size_t start = text.find_first_of("{[");
    if (start == std::string::npos || (text[start] == '[') == isListDue)
        return {};
    return placedAt(bytes, static_cast<int>(start),
                    isListDue ? QStringLiteral("a list is due here, [...], not an object")
                              : QStringLiteral("an object is due here, {...}, not a list"));
}

Fault faultOfCodec(const std::string &error)
{
    QString text = QString::fromStdString(error);
    static const QRegularExpression form(
        QStringLiteral("^error at line :(\\d+) col :(\\d+) msg:(.*)$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return text;
    // The codec counts from 0 and stands just behind what it found.
    const qint64 column = std::max<qint64>(1, match.captured(2).toLongLong());
    return placed(match.captured(1).toLongLong() + 1, column, match.captured(3));
}

Fault faultOfMeaning(const std::string &text, const std::string &sent)
{
    return MeaningCheck(QByteArray::fromStdString(text)).compare(jsonValue(sent));
}

} // namespace Tavoro::Ctl
