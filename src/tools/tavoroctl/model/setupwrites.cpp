#include "setupwrites.h"

#include "objectidentity.h"

#include <tavorooperations/jsontext.h>
#include <tavorooperations/keywrite.h>

#include <QJsonArray>

#include <algorithm>
#include <set>

namespace Tavoro::Ctl {

namespace {

using Operations::ScopeKind;

const QString networksKey = QStringLiteral("networks");

/// \a present with the members of \a wanted instead of its own, as far as it has objects.
QJsonValue overlaid(const QJsonValue &present, const QJsonValue &wanted)
{
    if (!present.isObject() || !wanted.isObject())
        return wanted.isUndefined() ? present : wanted;
    QJsonObject result = present.toObject();
    const QJsonObject over = wanted.toObject();
    for (auto each = over.begin(); each != over.end(); ++each)
        result.insert(each.key(), overlaid(result.value(each.key()), each.value()));
    return result;
}

QJsonObject record(const SetupChange &change)
{
    return overlaid(change.present, change.wanted).toObject();
}

QJsonValue member(const QJsonObject &object, const char *key)
{
    return object.value(QLatin1String(key));
}

QString keyOf(const Difference &difference)
{
    return difference.path.section(QLatin1Char('.'), 0, 0).section(QLatin1Char('['), 0, 0);
}

/// Collects writes, and the first fault of their arguments.
class Writes {
public:
    void add(const QString &operation, const QString &argument)
    {
        const Operations::PreparedCall call = Operations::find(operation)->prepare({argument});
        if (m_fault.isEmpty())
            m_fault = call.fault;
        m_writes.push_back({operation, argument, call});
    }
    void add(const char *operation, const QJsonObject &element)
    {
        add(QLatin1String(operation), Operations::jsonText(QJsonArray{element}));
    }
    void addKey(ScopeKind kind, const QString &key, const QJsonObject &object);

    const std::vector<SetupWrite> &writes() const { return m_writes; }
    const QString &fault() const { return m_fault; }

private:
    std::vector<SetupWrite> m_writes;
    QString m_fault;
};

/// The identity as writes of one key take it: a layer keeps it in a member, other objects do not.
QJsonObject writtenIdentity(ScopeKind kind, const QJsonObject &object)
{
    return kind == ScopeKind::Layers ? identityKeys(kind, object) : identityOf(kind, object);
}

void Writes::addKey(ScopeKind kind, const QString &key, const QJsonObject &object)
{
    if (kind == ScopeKind::Device && key == QLatin1String("presetApplyType"))
        return add(QStringLiteral("Device.writeLoadToPGM"),
                   Operations::jsonText(object.value(key)));
    const auto write = Operations::findWrite(kind, key);
    Q_ASSERT_X(write, "SetupWrites", "a key that no write sets is not compared");
    QJsonObject argument = writtenIdentity(kind, object);
    if (kind == ScopeKind::Files) { // The file keeps its place.
        argument.insert(QStringLiteral("desFileType"), member(object, "fileType"));
        argument.insert(QStringLiteral("desFileId"), member(object, "fileId"));
    }
    argument.insert(key, object.value(key));
    add(write->operation().name(), write->argument(argument));
}

/// The argument of the write that sets the outputs of a screen.
QJsonObject enabled(const QJsonObject &screen)
{
    QJsonObject argument = identityOf(ScopeKind::Screens, screen);
    for (const char *key : {"mosaic", "general", "physicalSize", "layout"})
        argument.insert(QLatin1String(key), member(screen, key));
    return argument;
}

/// The screen with the outputs only that it has and keeps. Another screen may want the others.
QJsonObject withKeptOutputs(const SetupChange &change)
{
    const auto outputsOf = [](const QJsonObject &screen) {
        return member(member(screen, "mosaic").toObject(), "outputs").toArray();
    };
    QJsonArray identities;
    for (const QJsonValue output : outputsOf(record(change)))
        identities += member(output.toObject(), "interfaceId");
    QJsonArray kept;
    for (const QJsonValue output : outputsOf(change.present)) {
        if (identities.contains(member(output.toObject(), "interfaceId")))
            kept += output;
    }
    QJsonObject mosaic = member(change.present, "mosaic").toObject();
    mosaic.insert(QStringLiteral("outputs"), kept);
    QJsonObject screen = change.present;
    screen.insert(QStringLiteral("mosaic"), mosaic);
    return screen;
}

bool changesKey(const SetupChange &change, const char *key)
{
    return std::any_of(
        change.differences.begin(), change.differences.end(),
        [&](const Difference &difference) { return keyOf(difference) == QLatin1String(key); });
}

bool changesOutputs(const SetupChange &change)
{
    return change.scope == ScopeKind::Screens && changesKey(change, "mosaic");
}

void addRemovals(const std::vector<SetupChange> &changes, Writes &writes)
{
    for (const SetupChange &change : changes) {
        if (change.kind != SetupChange::Gone)
            continue;
        if (change.scope == ScopeKind::Layers)
            writes.add("Layer.writeRemoved", identityKeys(change.scope, change.present));
        else
            writes.add("Screen.writeScreenDeleted", identityOf(change.scope, change.present));
    }
}

/// Screens give up outputs before others take them.
void addOutputs(const std::vector<SetupChange> &changes, Writes &writes)
{
    for (const SetupChange &change : changes) {
        if (change.kind == SetupChange::Changed && changesOutputs(change)
            && withKeptOutputs(change) != change.present)
            writes.add("Screen.writeScreenEnable", enabled(withKeptOutputs(change)));
    }
    for (const SetupChange &change : changes) {
        const bool isNew = change.kind == SetupChange::New && change.scope == ScopeKind::Screens;
        if (isNew || (change.kind == SetupChange::Changed && changesOutputs(change)))
            writes.add("Screen.writeScreenEnable", enabled(record(change)));
    }
}

/// The keys that differ, except those that other writes set.
void addKeys(const SetupChange &change, Writes &writes)
{
    std::set<QString> keys;
    for (const Difference &difference : change.differences)
        keys.insert(keyOf(difference));
    if (change.scope == ScopeKind::Screens)
        keys.erase(QStringLiteral("mosaic"));
    if (change.scope == ScopeKind::Layers)
        keys.erase(QStringLiteral("zorder"));
    if (change.scope == ScopeKind::Device)
        keys.erase(networksKey);
    for (const QString &key : keys)
        writes.addKey(change.scope, key, record(change));
}

/// A new address may end the connection, so the networks are last.
void addNetworks(const std::vector<SetupChange> &changes, Writes &writes)
{
    for (const SetupChange &change : changes) {
        if (change.scope == ScopeKind::Device && changesKey(change, "networks"))
            writes.addKey(ScopeKind::Device, networksKey, record(change));
    }
}

/// A layer that moves to a position moves those above it up, so the lowest moves first.
void addOrder(const std::vector<SetupChange> &changes, Writes &writes)
{
    std::vector<QJsonObject> layers;
    for (const SetupChange &change : changes) {
        if (change.scope == ScopeKind::Layers && changesKey(change, "zorder"))
            layers.push_back(record(change));
    }
    std::stable_sort(layers.begin(), layers.end(), [](const auto &one, const auto &other) {
        return member(one, "zorder").toInt() < member(other, "zorder").toInt();
    });
    for (const QJsonObject &layer : layers)
        writes.addKey(ScopeKind::Layers, QStringLiteral("zorder"), layer);
}

void addChanges(ScopeKind kind, const std::vector<SetupChange> &changes, Writes &writes)
{
    for (const SetupChange &change : changes) {
        if (change.scope != kind)
            continue;
        if (change.kind == SetupChange::Changed)
            addKeys(change, writes);
        else if (change.kind == SetupChange::New && kind == ScopeKind::Layers)
            writes.add("Layer.writeEnableAll", change.wanted);
    }
}

} // namespace

std::vector<SetupWrite> writesFor(const std::vector<SetupChange> &changes, QString &fault)
{
    Writes writes;
    addRemovals(changes, writes);
    addChanges(ScopeKind::Device, changes, writes);
    addChanges(ScopeKind::Interfaces, changes, writes);
    addOutputs(changes, writes);
    addChanges(ScopeKind::Screens, changes, writes);
    addChanges(ScopeKind::Layers, changes, writes);
    addOrder(changes, writes);
    addChanges(ScopeKind::Files, changes, writes);
    addNetworks(changes, writes);
    fault = writes.fault();
    return writes.writes();
}

} // namespace Tavoro::Ctl
