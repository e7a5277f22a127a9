#include "effect_p.h"

namespace Tavoro::Operations::Internal {

namespace {

using ProtoModel::s_FileIdentity;
using ProtoModel::s_InterfaceID;
using ProtoModel::s_ScreenId;
using ProtoModel::File::s_ModifyFileInfo;
using ProtoModel::Layer::s_LayerIdentity;

Scope screenOrLayers(ScopeKind kind, const s_ScreenId &id)
{
    Q_ASSERT(kind == ScopeKind::Screens || kind == ScopeKind::Layers);
    return kind == ScopeKind::Layers ? Scope::layersOf(id) : Scope::screen(id);
}

} // namespace

NamedScope scopeOf([[maybe_unused]] ScopeKind kind, const s_InterfaceID &id)
{
    Q_ASSERT(kind == ScopeKind::Interfaces);
    return {Scope::interface(id), "slotId connectorId splitId"};
}

NamedScope scopeOf(ScopeKind kind, const s_ScreenId &id)
{
    return {screenOrLayers(kind, id), "screenType screenId"};
}

NamedScope scopeOf([[maybe_unused]] ScopeKind kind, const s_FileIdentity &id)
{
    Q_ASSERT(kind == ScopeKind::Files);
    return {Scope::file(id), "fileType fileId"};
}

NamedScope scopeOf([[maybe_unused]] ScopeKind kind, const s_LayerIdentity &id)
{
    Q_ASSERT(kind == ScopeKind::Layers);
    return {Scope::layersOf(id, id.sceneType),
            "layerIdenti.screenType layerIdenti.screenId layerIdenti.sceneType"};
}

std::vector<NamedScope> scopesOf(ScopeKind kind, const std::vector<s_ModifyFileInfo> &records)
{
    std::vector<NamedScope> scopes;
    for (const s_ModifyFileInfo &record : records) {
        scopes.push_back(scopeOf(kind, identityOf(record)));
        scopes.push_back(
            {Scope::file({record.desFileId, record.desFileType}), "desFileType desFileId"});
    }
    return scopes;
}

std::vector<NamedScope> scopesOf(ScopeKind kind, quint8 screenId, quint8 screenType)
{
    return {{screenOrLayers(kind, {screenId, screenType}), "screenType screenId"}};
}

Scope allOf(ScopeKind kind)
{
    switch (kind) {
    case ScopeKind::Device:
        return Scope::device();
    case ScopeKind::Interfaces:
        return Scope::interfaces();
    case ScopeKind::Files:
        return Scope::files();
    case ScopeKind::Screens:
        return Scope::screens();
    case ScopeKind::Layers:
        return Scope::layers();
    }
    return {};
}

} // namespace Tavoro::Operations::Internal
