#include "setup.h"

#include "objectidentity.h"
#include "readonlykeys.h"

#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/output/jsonline.h>
#include <tavorooperations/jsontext.h>
#include <tavorooperations/nearest.h>
#include <tavorooperations/operation.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>

#include <algorithm>

namespace Tavoro::Ctl {

namespace {

using Operations::Scope;
using Operations::ScopeKind;

const QString versionKey = QStringLiteral("formatVersion");

struct ListRow {
    const char *key; ///< In the document.
    ScopeKind kind;
    bool isCreatable; ///< Whether writes create and delete such objects.
};

// clang-format off
constexpr ListRow lists[] = {
    {"device",     ScopeKind::Device,     false},
    {"interfaces", ScopeKind::Interfaces, false},
    {"screens",    ScopeKind::Screens,    true},
    {"layers",     ScopeKind::Layers,     true},
    {"files",      ScopeKind::Files,      false},
};
// clang-format on

/// The records of a kind, also the one of the device, as a list.
QJsonArray recordsOf(const QJsonObject &setup, const ListRow &list)
{
    const QJsonValue value = setup.value(QLatin1String(list.key));
    return value.isObject() ? QJsonArray{value} : value.toArray();
}

QJsonObject findRecord(ScopeKind kind, const QJsonArray &records, const QJsonObject &identity)
{
    for (const QJsonValue record : records) {
        if (identityOf(kind, record.toObject()) == identity)
            return record.toObject();
    }
    return {};
}

/// Whether the document lacks the key: then its value stays.
bool isLeftOut(const Difference &difference)
{
    return difference.after.isUndefined() && !difference.path.endsWith(QLatin1Char(']'));
}

bool isUnknown(const Difference &difference)
{
    return difference.before.isUndefined() && !difference.path.endsWith(QLatin1Char(']'));
}

QString faultOfKey(const QString &object, const QString &path, const QStringList &keys)
{
    return Texts::tr("%1: unknown key \"%2\"%3")
        .arg(object, path, Operations::suggestion(path, keys));
}

SetupChange compareRecords(ScopeKind kind, const QJsonObject &present, const QJsonObject &wanted,
                           QString &fault)
{
    SetupChange change{kind, SetupChange::Changed, present, wanted, {}};
    for (const Difference &difference : differences(present, wanted)) {
        if (isLeftOut(difference) || isReadOnly(kind, difference.path))
            continue;
        if (isUnknown(difference))
            fault = faultOfKey(objectName(kind, present), difference.path, present.keys());
        change.differences.push_back(difference);
    }
    return change;
}

/// Adds the changes of all objects of a kind.
void compareLists(const ListRow &list, const QJsonArray &present, const QJsonArray &wanted,
                  std::vector<SetupChange> &changes, QString &fault)
{
    for (const QJsonValue each : present) {
        const QJsonObject record = each.toObject();
        const bool isKept = !findRecord(list.kind, wanted, identityOf(list.kind, record)).isEmpty();
        if (!isKept && list.isCreatable)
            changes.push_back({list.kind, SetupChange::Gone, record, {}, {}});
    }
    for (const QJsonValue each : wanted) {
        const QJsonObject record = each.toObject();
        const QJsonObject known = findRecord(list.kind, present, identityOf(list.kind, record));
        if (known.isEmpty() && list.isCreatable)
            changes.push_back({list.kind, SetupChange::New, {}, record, {}});
        if (known.isEmpty())
            continue;
        const SetupChange change = compareRecords(list.kind, known, record, fault);
        if (!change.differences.empty())
            changes.push_back(change);
    }
}

/// Why the records of a list of the document cannot be compared; empty if they can.
QString faultOfRecords(const QJsonObject &setup, const ListRow &list)
{
    const QString key = QLatin1String(list.key);
    const QJsonValue value = setup.value(key);
    const bool isList = list.kind != ScopeKind::Device;
    if (!value.isUndefined() && (isList ? !value.isArray() : !value.isObject()))
        return (isList ? Texts::tr("\"%1\" is not a list") : Texts::tr("\"%1\" is not an object"))
            .arg(key);
    QJsonArray seen;
    for (const QJsonValue record : recordsOf(setup, list)) {
        if (!identifies(list.kind, record.toObject()))
            return Texts::tr("element %1 of \"%2\" does not identify an object")
                .arg(seen.size())
                .arg(key);
        const QJsonObject identity = identityOf(list.kind, record.toObject());
        if (seen.contains(identity))
            return Texts::tr("%1 is in the document twice")
                .arg(objectName(list.kind, record.toObject()));
        seen += identity;
    }
    return {};
}

} // namespace

QString SetupChange::text() const
{
    const QString name = objectName(scope, kind == New ? wanted : present) + QStringLiteral(": ");
    switch (kind) {
    case Changed:
        return name + textOf(differences);
    case New:
        return name + Texts::tr("new");
    case Gone:
        return name + Texts::tr("gone");
    }
    return {};
}

QJsonObject SetupChange::toJson() const
{
    static constexpr const char *events[] = {"change", "new", "gone"};
    QJsonObject json{{QStringLiteral("event"), QLatin1String(events[kind])},
                     {QStringLiteral("object"), objectName(scope, kind == New ? wanted : present)}};
    QJsonArray list;
    for (const Difference &difference : differences)
        list += difference.toJson();
    if (kind == Changed)
        json.insert(QStringLiteral("differences"), list);
    return json;
}

bool readSetup(const std::shared_ptr<BizModel::Device> &device, QJsonObject &setup, QString &error)
{
    const Scope scopes[] = {Scope::device(), Scope::interfaces(), Scope::screens(), Scope::layers(),
                            Scope::files()};
    for (std::size_t i = 0; i < std::size(lists); ++i) {
        const Operations::CallResult result =
            Operations::call(device, scopes[i].readOperation(), scopes[i].readArguments());
        error = result.error;
        if (!result.ok)
            return false;
        setup.insert(QLatin1String(lists[i].key), Operations::jsonValue(result.answer));
    }
    return true;
}

bool parseSetup(const QByteArray &text, QJsonObject &setup, QString &fault)
{
    QJsonParseError error;
    setup = QJsonDocument::fromJson(text, &error).object();
    QStringList keys{versionKey};
    for (const ListRow &list : lists)
        keys += QLatin1String(list.key);
    if (error.error != QJsonParseError::NoError)
        fault = Texts::tr("line %1: %2")
                    .arg(text.left(error.offset).count('\n') + 1)
                    .arg(error.errorString());
    else if (setup.value(versionKey).toInt() != formatVersion)
        fault = Texts::tr("\"formatVersion\" is not %1").arg(formatVersion);
    for (const QString &key : setup.keys()) {
        if (fault.isEmpty() && !keys.contains(key))
            fault = faultOfKey(Texts::tr("the document"), key, keys);
    }
    for (const ListRow &list : lists) {
        if (fault.isEmpty())
            fault = faultOfRecords(setup, list);
    }
    return fault.isEmpty();
}

std::vector<SetupChange> compareSetups(const QJsonObject &present, const QJsonObject &wanted,
                                       QString &fault)
{
    std::vector<SetupChange> changes;
    for (const ListRow &list : lists) {
        if (wanted.contains(QLatin1String(list.key)))
            compareLists(list, recordsOf(present, list), recordsOf(wanted, list), changes, fault);
    }
    return changes;
}

} // namespace Tavoro::Ctl
