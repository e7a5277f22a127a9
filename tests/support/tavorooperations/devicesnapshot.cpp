#include "devicesnapshot.h"

#include <tavorooperations/jsontext.h>

#include <QJsonArray>

using namespace Tavoro;
using namespace Tavoro::Operations;

namespace {

int number(const QJsonObject &object, const char *key)
{
    return object.value(QLatin1String(key)).toInt();
}

ProtoModel::s_ScreenId screenOf(const QJsonObject &object)
{
    return {static_cast<quint8>(number(object, "screenId")), number(object, "screenType")};
}

/// The smallest scope that has \a object, which a read of \a kind has returned.
Scope scopeOf(ScopeKind kind, const QJsonObject &object)
{
    const QJsonObject interface = object.value(QLatin1String("interfaceId")).toObject();
    const QJsonObject layer = object.value(QLatin1String("layerIdenti")).toObject();
    switch (kind) {
    case ScopeKind::Device:
        return Scope::device();
    case ScopeKind::Interfaces:
        return Scope::interface({number(interface, "slotId"), number(interface, "connectorId"),
                                 number(interface, "splitId")});
    case ScopeKind::Files:
        return Scope::file({number(object, "fileId"), number(object, "fileType")});
    case ScopeKind::Screens:
        return Scope::screen(screenOf(object));
    case ScopeKind::Layers:
        return Scope::layersOf(screenOf(layer), number(layer, "sceneType"));
    }
    return {};
}

} // namespace

bool DeviceSnapshot::read(const std::shared_ptr<BizModel::Device> &device, QString &error)
{
    m_objects.clear();
    for (const Scope &read : {Scope::device(), Scope::interfaces(), Scope::files(),
                              Scope::screens(), Scope::layers()}) {
        const CallResult result = call(device, read.readOperation(), read.readArguments());
        error = result.error;
        if (!result.ok)
            return false;
        const QJsonValue answer = jsonValue(result.answer);
        const QJsonArray objects = answer.isArray() ? answer.toArray() : QJsonArray{answer};
        for (const QJsonValue object : objects)
            add(read, object.toObject());
    }
    return true;
}

void DeviceSnapshot::add(const Scope &read, const QJsonObject &object)
{
    const QString identity = jsonText(object.value(QLatin1String("layerIdenti")));
    m_objects.insert({{scopeOf(read.kind, object), identity}, object});
}

std::set<Scope> DeviceSnapshot::changesSince(const DeviceSnapshot &before) const
{
    std::set<Scope> changes;
    for (const auto &[key, object] : m_objects) {
        const auto found = before.m_objects.find(key);
        if (found == before.m_objects.end() || found->second != object)
            changes.insert(key.first);
    }
    for (const auto &[key, object] : before.m_objects) {
        if (m_objects.count(key) == 0)
            changes.insert(key.first);
    }
    return changes;
}
