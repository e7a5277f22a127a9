#include <tavorooperations/scope.h>

#include <algorithm>
#include <iterator>

namespace Tavoro::Operations {

namespace {

constexpr int any = Scope::any;
/// The filter of a type that restricts nothing, in reads of interfaces and screens.
constexpr int anyType = 0;

/// A filter travels in one byte, and 255 restricts nothing. A value beyond that must not select
/// another object, so it restricts nothing either.
int filter(int value)
{
    constexpr int most = 254;
    return value >= 0 && value <= most ? value : any;
}

const char *nameOfRead(ScopeKind kind)
{
    switch (kind) {
    case ScopeKind::Device:
        return "Device.readDetails";
    case ScopeKind::Interfaces:
        return "Interface.readDetails";
    case ScopeKind::Files:
        return "File.readDetails";
    case ScopeKind::Screens:
        return "Screen.readDetails";
    case ScopeKind::Layers:
        return "Layer.readDetails";
    }
    return "";
}

} // namespace

// clang-format off
Scope Scope::device()                                       { return {ScopeKind::Device,     {any, any, any}}; }
Scope Scope::interfaces()                                   { return {ScopeKind::Interfaces, {any, any, any}}; }
Scope Scope::interface(const ProtoModel::s_InterfaceID &id) { return {ScopeKind::Interfaces, {id.slotId, id.connectorId, id.splitId}}; }
Scope Scope::files()                                        { return {ScopeKind::Files,      {any, any, any}}; }
Scope Scope::filesOf(int fileType)                          { return {ScopeKind::Files,      {fileType, any, any}}; }
Scope Scope::file(const ProtoModel::s_FileIdentity &id)     { return {ScopeKind::Files,      {id.fileType, id.fileId, any}}; }
Scope Scope::screens()                                      { return {ScopeKind::Screens,    {any, any, any}}; }
Scope Scope::screen(const ProtoModel::s_ScreenId &id)       { return {ScopeKind::Screens,    {id.screenType, id.screenId, any}}; }
Scope Scope::layers()                                       { return {ScopeKind::Layers,     {any, any, any}}; }
Scope Scope::layersOf(const ProtoModel::s_ScreenId &screen) { return {ScopeKind::Layers,     {screen.screenType, screen.screenId, any}}; }
Scope Scope::layersOf(const ProtoModel::s_ScreenId &screen, int sceneType)
                                                            { return {ScopeKind::Layers,     {screen.screenType, screen.screenId, sceneType}}; }
// clang-format on

bool Scope::contains(const Scope &other) const
{
    return kind == other.kind
        && std::equal(identity.begin(), identity.end(), other.identity.begin(),
                      [](int mine, int its) { return mine == any || mine == its; });
}

Scope Scope::readable() const
{
    return kind == ScopeKind::Interfaces ? interfaces() : *this;
}

QString Scope::readOperation() const
{
    return QLatin1String(nameOfRead(kind));
}

std::vector<int> Scope::filters() const
{
    const auto [first, second, third] = identity;
    switch (kind) {
    case ScopeKind::Device:
        return {};
    case ScopeKind::Interfaces:
        return {anyType, any};
    case ScopeKind::Files:
        return {filter(first), filter(second)};
    case ScopeKind::Screens:
        return {filter(second), first == any ? anyType : filter(first), any};
    case ScopeKind::Layers:
        return {filter(second), filter(first), filter(third), any};
    }
    return {};
}

QStringList Scope::readArguments() const
{
    QStringList arguments;
    for (const int value : filters())
        arguments += QString::number(value);
    return arguments;
}

std::vector<Scope> readsFor(const std::vector<Scope> &scopes)
{
    std::vector<Scope> sorted;
    std::transform(scopes.begin(), scopes.end(), std::back_inserter(sorted),
                   [](const Scope &scope) { return scope.readable(); });
    std::sort(sorted.begin(), sorted.end());
    std::vector<Scope> reads;
    for (const Scope &scope : sorted) {
        const bool isRead = std::any_of(reads.begin(), reads.end(),
                                        [&](const Scope &read) { return read.contains(scope); });
        if (!isRead)
            reads.push_back(scope);
    }
    return reads;
}

} // namespace Tavoro::Operations
