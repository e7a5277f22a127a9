#include <tavorooperations/keywrite.h>

#include <tavorooperations/jsontext.h>
#include <tavorooperations/schema.h>

#include <QJsonArray>
#include <QLatin1Char>
#include <QLatin1String>

#include <algorithm>
#include <map>
#include <utility>

namespace Tavoro::Operations {

namespace {

using KeyWrites = std::map<std::pair<ScopeKind, QString>, KeyWrite>;

/// The record of the only argument of \a operation, with its keys at their defaults.
QJsonObject sampleOf(const Operation &operation)
{
    const QJsonValue sample = jsonValue(operation.arguments().front().sample);
    return (sample.isArray() ? sample.toArray().first() : sample).toObject();
}

/// The keys of the argument that do not identify the objects of \a kind.
QStringList valueKeys(const Operation &operation, ScopeKind kind)
{
    QJsonObject sample = sampleOf(operation);
    for (const Change &change : operation.changes()) {
        if (change.kind != kind)
            continue;
        for (const QString &path : change.keys)
            sample.remove(path.section(QLatin1Char('.'), 0, 0));
    }
    return sample.keys();
}

bool changesKind(const Operation &operation, ScopeKind kind)
{
    const std::vector<Change> changes = operation.changes();
    return std::any_of(changes.begin(), changes.end(),
                       [kind](const Change &change) { return change.kind == kind; });
}

/// The schemas of the keys of the record that the read of \a kind returns.
QJsonObject keysOf(ScopeKind kind)
{
    Scope scope;
    scope.kind = kind;
    const QJsonObject read = describe(*find(scope.readOperation()));
    const QJsonObject answer = read.value(QLatin1String("answer")).toObject();
    const QJsonObject record = answer.contains(QLatin1String("items"))
        ? answer.value(QLatin1String("items")).toObject()
        : answer;
    const QString name =
        record.value(QLatin1String("$ref")).toString().section(QLatin1Char('/'), -1);
    return read.value(QLatin1String("$defs"))
        .toObject()
        .value(name)
        .toObject()
        .value(QLatin1String("properties"))
        .toObject();
}

/// Adds \a operation for the key of \a kind that it writes, if there is one.
void addWrite(KeyWrites &writes, const Operation &operation, ScopeKind kind,
              const QJsonObject &keys)
{
    const QStringList values = valueKeys(operation, kind);
    const QString type = operation.arguments().front().type;
    for (auto key = keys.begin(); key != keys.end(); ++key) {
        // The key "HDCP" of an interface is written as "hdcp".
        if (values.size() == 1 && values.first().compare(key.key(), Qt::CaseInsensitive) == 0)
            writes.insert({{kind, key.key()}, KeyWrite(operation, key.key(), values.first())});
        else if (key->toObject()
                     .value(QLatin1String("$ref"))
                     .toString()
                     .section(QLatin1Char('/'), -1)
                 == type)
            writes.insert({{kind, key.key()}, KeyWrite(operation, key.key(), {})});
    }
}

KeyWrites allWrites()
{
    KeyWrites writes;
    for (const ScopeKind kind : {ScopeKind::Device, ScopeKind::Interfaces, ScopeKind::Files,
                                 ScopeKind::Screens, ScopeKind::Layers}) {
        const QJsonObject keys = keysOf(kind);
        for (const Operation &operation : all()) {
            if (operation.direction() == Direction::Write && operation.arguments().size() == 1
                && changesKind(operation, kind))
                addWrite(writes, operation, kind, keys);
        }
    }
    return writes;
}

} // namespace

KeyWrite::KeyWrite(const Operation &operation, const QString &key, const QString &writtenKey)
    : m_operation(operation), m_key(key), m_writtenKey(writtenKey)
{ }

QString KeyWrite::argument(const QJsonObject &record) const
{
    if (m_writtenKey.isEmpty())
        return jsonText(record.value(m_key));
    QJsonObject argument = record;
    argument.remove(m_key);
    argument.insert(m_writtenKey, record.value(m_key));
    const bool isList = m_operation.arguments().front().type.startsWith(QLatin1Char('['));
    return isList ? jsonText(QJsonArray{argument}) : jsonText(argument);
}

std::optional<KeyWrite> findWrite(ScopeKind kind, const QString &key)
{
    static const KeyWrites writes = allWrites();
    const auto found = writes.find({kind, key});
    if (found == writes.end())
        return std::nullopt;
    return found->second;
}

} // namespace Tavoro::Operations
