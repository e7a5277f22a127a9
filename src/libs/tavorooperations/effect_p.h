#pragma once

#include <tavorooperations/scope.h>

#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/layer.h>

#include <cstddef>
#include <vector>

/// What a write changes: the kinds of objects, and which objects its arguments name.
namespace Tavoro::Operations::Internal {

/// Which objects of a kind a write changes.
enum class Extent : quint8 {
    Named, ///< Those that its arguments name.
    All,
};

struct ChangedKind {
    ScopeKind kind;
    Extent extent;
};

/// The effect of a write on what the reads of a device return: some kinds of objects, or none and
/// the reason why.
class Effect {
public:
    template <std::size_t count>
    constexpr explicit Effect(const ChangedKind (&kinds)[count]) : m_kinds(kinds), m_count(count)
    { }
    constexpr explicit Effect(const char *whyNothingChanges)
        : m_whyNothingChanges(whyNothingChanges)
    { }

    constexpr const ChangedKind *begin() const { return m_kinds; }
    constexpr const ChangedKind *end() const { return m_kinds + m_count; }
    constexpr const char *whyNothingChanges() const { return m_whyNothingChanges; }

    /// Whether the arguments of the write name objects.
    constexpr bool isNamed() const
    {
        for (std::size_t i = 0; i < m_count; ++i) {
            if (m_kinds[i].extent == Extent::Named)
                return true;
        }
        return false;
    }

private:
    const ChangedKind *m_kinds = nullptr;
    std::size_t m_count = 0;
    const char *m_whyNothingChanges = "";
};

/// A scope, and the keys in the arguments from which it was made, separated by blanks. No keys: all
/// objects.
struct NamedScope {
    Scope scope;
    const char *keys;
};

/// The identity of a record: its base class, or a member in records of layers.
/// @{
inline const ProtoModel::s_InterfaceID &identityOf(const ProtoModel::s_InterfaceID &record)
{
    return record;
}
inline const ProtoModel::s_ScreenId &identityOf(const ProtoModel::s_ScreenId &record)
{
    return record;
}
inline const ProtoModel::s_FileIdentity &identityOf(const ProtoModel::s_FileIdentity &record)
{
    return record;
}
template <class Record>
auto identityOf(const Record &record) -> decltype((record.layerIdenti))
{
    return record.layerIdenti;
}
/// @}

/// The scope of a kind that an identity names. A screen names itself, or its layers.
/// @{
NamedScope scopeOf(ScopeKind kind, const ProtoModel::s_InterfaceID &id);
NamedScope scopeOf(ScopeKind kind, const ProtoModel::s_ScreenId &id);
NamedScope scopeOf(ScopeKind kind, const ProtoModel::s_FileIdentity &id);
NamedScope scopeOf(ScopeKind kind, const ProtoModel::Layer::s_LayerIdentity &id);
/// @}

/// The scopes of a kind that the arguments of a write name.
/// @{
template <class Record>
std::vector<NamedScope> scopesOf(ScopeKind kind, const std::vector<Record> &records)
{
    std::vector<NamedScope> scopes;
    scopes.reserve(records.size());
    for (const Record &record : records)
        scopes.push_back(scopeOf(kind, identityOf(record)));
    return scopes;
}
/// Renames or moves files: each has two identities.
std::vector<NamedScope> scopesOf(ScopeKind kind,
                                 const std::vector<ProtoModel::File::s_ModifyFileInfo> &records);
/// Removes all layers of a screen.
std::vector<NamedScope> scopesOf(ScopeKind kind, quint8 screenId, quint8 screenType);
/// @}

/// All objects of a kind.
Scope allOf(ScopeKind kind);

} // namespace Tavoro::Operations::Internal
