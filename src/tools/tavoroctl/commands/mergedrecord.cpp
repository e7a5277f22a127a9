#include "mergedrecord.h"

#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/model/objectidentity.h>
#include <tavorooperations/jsontext.h>
#include <tavorooperations/keywrite.h>

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace Tavoro::Ctl {

namespace {

using Operations::Operation;
using Operations::ScopeKind;

/// The member of \a record with this key, in any case: "HDCP" of an interface is written as "hdcp".
QJsonValue member(const QJsonObject &record, const QString &key)
{
    for (auto each = record.begin(); each != record.end(); ++each) {
        if (each.key().compare(key, Qt::CaseInsensitive) == 0)
            return each.value();
    }
    return QJsonValue(QJsonValue::Undefined);
}

/// \a typed, with the members that it lacks from \a present, as far as \a sample has them. Lists
/// are not merged: a typed list is the whole list.
QJsonValue merged(const QJsonValue &sample, const QJsonValue &present, const QJsonValue &typed)
{
    if (!sample.isObject() || (!typed.isUndefined() && !typed.isObject()))
        return typed.isUndefined() ? present : typed;
    QJsonObject result = typed.toObject();
    const QJsonObject samples = sample.toObject();
    for (auto each = samples.begin(); each != samples.end(); ++each) {
        const QJsonValue value =
            merged(each.value(), member(present.toObject(), each.key()), result.value(each.key()));
        if (!value.isUndefined())
            result.insert(each.key(), value);
    }
    return result;
}

/// The part of \a record that \a operation writes: the record itself, or the value of a key that is
/// the whole argument.
QJsonObject writtenPart(const Operation &operation, ScopeKind kind, const QJsonObject &sample,
                        const QJsonObject &record)
{
    for (auto each = record.begin(); each != record.end(); ++each) {
        const auto write = Operations::findWrite(kind, each.key());
        const bool isWritten = write && write->operation() == operation;
        if (isWritten && member(sample, each.key()).isUndefined())
            return each.value().toObject();
    }
    return record;
}

/// Whether the read returns a key of the write that does not identify the object.
bool isReadable(ScopeKind kind, const QJsonObject &sample, const QJsonObject &present)
{
    const QJsonObject identity = identityKeys(kind, sample);
    const QStringList keys = sample.keys();
    return std::any_of(keys.begin(), keys.end(), [&](const QString &key) {
        return !identity.contains(key) && !member(present, key).isUndefined();
    });
}

QJsonArray listOf(const QJsonValue &value)
{
    return value.isArray() ? value.toArray() : QJsonArray{value};
}

/// Makes the reads for \a scopes. False with the reason in \a error if one fails.
bool read(const std::shared_ptr<BizModel::Device> &device,
          const std::vector<Operations::Scope> &scopes, QJsonArray &records, QString &error)
{
    for (const Operations::Scope &scope : Operations::readsFor(scopes)) {
        const Operations::CallResult result =
            Operations::call(device, scope.readOperation(), scope.readArguments());
        error = result.error;
        if (!result.ok)
            return false;
        for (const QJsonValue record : listOf(Operations::jsonValue(result.answer)))
            records += record;
    }
    return true;
}

QJsonObject findObject(ScopeKind kind, const QJsonArray &records, const QJsonObject &identity)
{
    for (const QJsonValue record : records) {
        if (identityOf(kind, record.toObject()) == identity)
            return record.toObject();
    }
    return {};
}

} // namespace

MergedRecord mergeRecord(const std::shared_ptr<BizModel::Device> &device,
                         const Operation &operation, const QString &typed)
{
    const QString impossible =
        Texts::tr("%1 cannot be merged: no read returns what it writes").arg(operation.name());
    const std::vector<Operations::Change> changes = operation.changes();
    const std::vector<Operations::Argument> arguments = operation.arguments();
    if (changes.size() != 1 || arguments.size() != 1 || arguments.front().sample.empty())
        return {{}, impossible, {}};
    const ScopeKind kind = changes.front().kind;
    const QJsonObject sample =
        listOf(Operations::jsonValue(arguments.front().sample)).at(0).toObject();
    if (!identifies(kind, sample))
        return {{}, impossible, {}};
    const auto prepared = operation.prepare({typed}, Operations::MissingKeys::SentAsDefaults);
    if (!prepared.fault.isEmpty())
        return {{}, prepared.fault, {}};
    QJsonArray records;
    QString error;
    if (!read(device, prepared.changes, records, error))
        return {{}, {}, error};

    const QJsonValue given = Operations::jsonValue(typed.toStdString());
    QJsonArray results;
    for (const QJsonValue element : listOf(given)) {
        const QJsonObject object = findObject(kind, records, identityOf(kind, element.toObject()));
        if (object.isEmpty())
            return {
                {},
                Texts::tr("%1: the device has no object with this identity").arg(operation.name()),
                {}};
        const QJsonObject present = writtenPart(operation, kind, sample, object);
        if (!isReadable(kind, sample, present))
            return {{}, impossible, {}};
        results += merged(sample, present, element);
    }
    return {given.isArray() ? Operations::jsonText(results) : Operations::jsonText(results.at(0)),
            {},
            {}};
}

} // namespace Tavoro::Ctl
