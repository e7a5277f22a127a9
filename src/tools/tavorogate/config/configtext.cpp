#include "configtext.h"

#include <QFile>
#include <QJsonDocument>

#include <algorithm>

namespace Tavoro::Gate {

bool ConfigText::read(const QString &fileName, QString &error)
{
    m_fileName = fileName;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("%1: %2").arg(fileName, file.errorString());
        return false;
    }
    m_text = file.readAll();
    QJsonParseError fault{};
    const QJsonDocument document = QJsonDocument::fromJson(m_text, &fault);
    if (fault.error != QJsonParseError::NoError) {
        error = placeOf(fault.offset) + fault.errorString();
        return false;
    }
    if (!document.isObject()) {
        error = QStringLiteral("%1: expected a JSON object").arg(fileName);
        return false;
    }
    m_object = document.object();
    return true;
}

QList<ConfigText::Value> ConfigText::values(const QStringList &groups) const
{
    QList<Value> values;
    collect({}, m_object, groups, values);
    return values;
}

void ConfigText::collect(const QString &prefix, const QJsonObject &object,
                         const QStringList &groups, QList<Value> &values)
{
    for (auto each = object.constBegin(); each != object.constEnd(); ++each) {
        const QString key = prefix + each.key();
        if (each->isObject() && groups.contains(key))
            collect(key + QLatin1Char('.'), each->toObject(), groups, values);
        else
            values.append({key, *each});
    }
}

QString ConfigText::place(const QString &key) const
{
    int offset = 0;
    const auto names = key.split(QLatin1Char('.'));
    for (const QString &name : names) {
        const auto found = m_text.indexOf('"' + name.toUtf8() + '"', offset);
        if (found >= 0)
            offset = static_cast<int>(found);
    }
    return placeOf(offset);
}

QString ConfigText::placeOf(int offset) const
{
    const auto line = std::count(m_text.begin(), m_text.begin() + offset, '\n') + 1;
    return QStringLiteral("%1, line %2: ").arg(m_fileName).arg(line);
}

} // namespace Tavoro::Gate
