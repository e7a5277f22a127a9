#include "recordargument_p.h"

#include "numberrange_p.h"
#include "texts_p.h"

#include <tavorooperations/jsontext.h>
#include <tavorooperations/nearest.h>

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
#include <optional>

namespace Tavoro::Operations::Internal {

namespace {

Fault placed(qint64 line, qint64 column, const QString &words)
{
    return Texts::tr("line %1, column %2: %3").arg(line).arg(column).arg(words);
}

/// A fault at the byte \a offset of \a text.
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

/// Compares a valid JSON text with the record that it would be sent as, value by value.
class RecordComparison {
public:
    RecordComparison(QByteArray text, QString type)
        : m_text(std::move(text)), m_type(std::move(type))
    { }

    /// The first difference, empty if there is none. Collects the keys that the text lacks.
    Fault compare(const QJsonValue &sent) { return compareValue(sent, {}); }

    /// The keys of \c sent that the text lacks, by their paths: "[0].window.y".
    const QStringList &missingKeys() const { return m_missing; }

private:
    /// Compares the value at the current position. Its place in the record is \a path.
    Fault compareValue(const QJsonValue &sent, const QString &path)
    {
        const char first = peek();
        if (first == '{' && sent.isObject())
            return compareObject(sent.toObject(), path);
        if (first == '[' && sent.isArray())
            return compareArray(sent.toArray(), path);
        return compareScalar(sent, path);
    }

    /// The next character that is not a blank.
    char peek()
    {
        while (m_offset < m_text.size() && std::isspace(static_cast<uchar>(m_text[m_offset])))
            ++m_offset;
        return m_offset < m_text.size() ? m_text[m_offset] : '\0';
    }

    /// Steps over the next character if it is \a expected.
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

    Fault compareObject(const QJsonObject &sent, const QString &path)
    {
        const QString prefix = path.isEmpty() ? path : path + QLatin1Char('.');
        QStringList missing = sent.keys();
        takeIf('{');
        while (!takeIf('}')) {
            peek();
            const int start = m_offset;
            const QString key = jsonValue(takeScalar().toStdString()).toString();
            if (!sent.contains(key)) {
                return placedAt(m_text, start,
                                Texts::tr("unknown key \"%1\"%2; the keys here are: %3")
                                    .arg(key, suggestion(key, sent.keys()),
                                         sent.keys().join(QStringLiteral(", "))));
            }
            missing.removeOne(key);
            takeIf(':');
            Fault fault = compareValue(sent.value(key), prefix + key);
            if (!fault.isEmpty())
                return fault;
            takeIf(',');
        }
        for (const QString &key : qAsConst(missing))
            m_missing += prefix + key;
        return {};
    }

    Fault compareArray(const QJsonArray &sent, const QString &path)
    {
        takeIf('[');
        for (int i = 0; !takeIf(']'); ++i) {
            Fault fault = compareValue(sent.at(i), QStringLiteral("%1[%2]").arg(path).arg(i));
            if (!fault.isEmpty())
                return fault;
            takeIf(',');
        }
        return {};
    }

    Fault compareScalar(const QJsonValue &sent, const QString &path)
    {
        const int start = m_offset;
        const QByteArray typed = takeScalar();
        if (isSame(jsonValue(typed.toStdString()), sent))
            return {};
        const QString written = QString::fromUtf8(typed);
        const bool lostSign = typed.startsWith('-') && sent.toDouble() > 0;
        const QString fault = lostSign
            ? Texts::tr("%1 is out of range").arg(written)
            : Texts::tr("%1 would be sent as %2").arg(written, jsonText(sent));
        return placedAt(m_text, start, fault + rangeNote(typed, path));
    }

    /// The range of a number that does not fit; empty for other values.
    QString rangeNote(const QByteArray &typed, const QString &path) const
    {
        bool isNumber = false;
        typed.toDouble(&isNumber);
        const std::optional<NumberLimits> limits = limitsAt(m_type, path);
        return isNumber && limits
            ? Texts::tr("; the range is %1 to %2").arg(limits->least).arg(limits->most)
            : QString();
    }

    const QByteArray m_text;
    const QString m_type;
    int m_offset = 0;
    QStringList m_missing;
};

const QString negativeNumber =
    QStringLiteral("assign a negative signed integral to unsigned integral number.");

/// The parts of the codec's error texts.
struct CodecError {
    qint64 line = 1;
    qint64 column = 1;
    QString message;

    static std::optional<CodecError> parse(const std::string &error)
    {
        static const QRegularExpression form(
            QStringLiteral("^error at line :(\\d+) col :(\\d+) msg:(.*)$"));
        const QRegularExpressionMatch match = form.match(QString::fromStdString(error));
        if (!match.hasMatch())
            return std::nullopt;
        // The codec counts from 0, and its column is the one after the fault.
        return CodecError{match.captured(1).toLongLong() + 1,
                          std::max<qint64>(1, match.captured(2).toLongLong()), match.captured(3)};
    }
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

Fault faultOfShape(const std::string &text, bool expectsList)
{
    const QByteArray bytes = QByteArray::fromStdString(text);
    const std::size_t start = text.find_first_of("{[");
    if (start == std::string::npos || (text[start] == '[') == expectsList)
        return {};
    return placedAt(bytes, static_cast<int>(start),
                    expectsList ? Texts::tr("expected a list [...], found an object")
                                : Texts::tr("expected an object {...}, found a list"));
}

Fault faultOfCodec(const std::string &error)
{
    const std::optional<CodecError> parts = CodecError::parse(error);
    return parts ? placed(parts->line, parts->column, parts->message)
                 : QString::fromStdString(error);
}

bool removeNegativeSign(std::string &text, const std::string &error)
{
    const std::optional<CodecError> parts = CodecError::parse(error);
    if (!parts || parts->message != negativeNumber)
        return false;
    std::size_t lineStart = 0;
    for (qint64 line = 1; line < parts->line; ++line)
        lineStart = text.find('\n', lineStart) + 1;
    const std::size_t sign =
        text.rfind('-', lineStart + static_cast<std::size_t>(parts->column) - 1);
    if (sign == std::string::npos || sign < lineStart)
        return false;
    text[sign] = ' ';
    return true;
}

Fault faultOfSign(const std::string &text, const std::string &decoded, const QString &type)
{
    return RecordComparison(QByteArray::fromStdString(text), type).compare(jsonValue(decoded));
}

Fault faultOfMeaning(const std::string &text, const std::string &sent, const QString &type,
                     MissingKeys missing, bool &lacksKeys)
{
    RecordComparison comparison(QByteArray::fromStdString(text), type);
    Fault fault = comparison.compare(jsonValue(sent));
    const QStringList &keys = comparison.missingKeys();
    if (!fault.isEmpty() || keys.isEmpty() || missing == MissingKeys::SentAsDefaults)
        return fault;
    lacksKeys = true;
    return Texts::tr("missing keys: %1").arg(keys.join(QStringLiteral(", ")));
}

} // namespace Tavoro::Operations::Internal
