#include "objectidentity.h"

#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/output/labels.h>

#include <QStringList>

#include <algorithm>

namespace Tavoro::Ctl {

namespace {

using Operations::ScopeKind;

struct IdentityRow {
    ScopeKind kind;
    const char *holder; ///< The key of a member that holds the identity; empty if none does.
    const char *keys; ///< The keys of the identity.
};

// clang-format off
constexpr IdentityRow identityRows[] = {
    {ScopeKind::Device,     "",            ""},
    {ScopeKind::Interfaces, "interfaceId", "slotId connectorId splitId"},
    {ScopeKind::Files,      "",            "fileType fileId"},
    {ScopeKind::Screens,    "",            "screenType screenId"},
    {ScopeKind::Layers,     "layerIdenti", "screenType screenId sceneType layerType layerId"},
};
// clang-format on

const IdentityRow &rowOf(ScopeKind kind)
{
    return identityRows[static_cast<std::size_t>(kind)];
}

QStringList keysOf(const IdentityRow &row)
{
    return QString::fromLatin1(row.keys).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

QJsonObject identityKeys(ScopeKind kind, const QJsonObject &record)
{
    const IdentityRow &row = rowOf(kind);
    const QString holder = QLatin1String(row.holder);
    if (record.contains(holder))
        return {{holder, record.value(holder)}};
    QJsonObject found;
    for (const QString &key : keysOf(row)) {
        if (record.contains(key))
            found.insert(key, record.value(key));
    }
    return found;
}

QJsonObject identityOf(ScopeKind kind, const QJsonObject &record)
{
    const QJsonObject keys = identityKeys(kind, record);
    const QString holder = QLatin1String(rowOf(kind).holder);
    return keys.contains(holder) ? keys.value(holder).toObject() : keys;
}

bool identifies(ScopeKind kind, const QJsonObject &record)
{
    const QJsonObject identity = identityOf(kind, record);
    const QStringList keys = keysOf(rowOf(kind));
    return std::all_of(keys.begin(), keys.end(),
                       [&](const QString &key) { return identity.contains(key); });
}

QString objectName(ScopeKind kind, const QJsonObject &record)
{
    const QJsonObject identity = identityOf(kind, record);
    const auto value = [&](const char *key) {
        return identity.value(QLatin1String(key)).toInt();
    };
    ProtoModel::s_ScreenId screen;
    screen.screenId = static_cast<quint8>(value("screenId"));
    screen.screenType = value("screenType");
    switch (kind) {
    case ScopeKind::Device:
        return Texts::tr("device");
    case ScopeKind::Interfaces:
        return Texts::tr("interface %1.%2.%3")
            .arg(value("slotId"))
            .arg(value("connectorId"))
            .arg(value("splitId"));
    case ScopeKind::Files:
        return Texts::tr("file %1:%2").arg(value("fileType")).arg(value("fileId"));
    case ScopeKind::Screens:
        return Texts::tr("screen %1").arg(idOf(screen));
    case ScopeKind::Layers:
        return Texts::tr("screen %1, %2, layer %3 (type %4)")
            .arg(idOf(screen), sceneOf(value("sceneType")))
            .arg(value("layerId"))
            .arg(value("layerType"));
    }
    return {};
}

} // namespace Tavoro::Ctl
