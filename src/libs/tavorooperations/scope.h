#pragma once

#include <tavorooperations/export.h>

#include <tavorocontrol/proto/identities.h>

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

namespace Tavoro::Operations {

/// What a scope consists of, in the order in which a device is read. Each kind has one read.
enum class ScopeKind : quint8 {
    Device, ///< The record of the device as a whole: Control::Device::readDetails().
    Interfaces, ///< Inputs and outputs: Control::Interface::readDetails().
    Files, ///< Entries of the list of files: Control::File::readDetails().
    Screens, ///< Screens without their layers: Control::Screen::readDetails().
    Layers, ///< Layers of screens: Control::Layer::readDetails().
};

/// A part of a device: what a write changes, or what a read returns.
///
/// After a write, a client reads the scopes that changedBy() names: readsFor() combines those of
/// several writes. The answer replaces what the scope contains: an object of the scope that is
/// missing in the answer no longer exists on the device. The answer may have further objects, since
/// not every read can be restricted to its scope; contains() finds them.
///
/// A value. All members may be called on any thread; none blocks.
struct TAVOROOPERATIONS_EXPORT Scope {
    /// Every value of a key.
    static constexpr int any = -1;

    /// What the scope consists of.
    ScopeKind kind = ScopeKind::Device;
    /// The objects of this kind, by the keys that identify them; \c any from the first key that
    /// does not matter.
    ///
    /// - Device: no key.
    /// - Interfaces: \c slotId, \c connectorId, \c splitId.
    /// - Files: \c fileType, \c fileId.
    /// - Screens: \c screenType, \c screenId.
    /// - Layers: \c screenType, \c screenId, \c sceneType.
    std::array<int, 3> identity{any, any, any};

    /// The record of the device as a whole.
    static Scope device();
    /// All interfaces.
    static Scope interfaces();
    /// One interface.
    static Scope interface(const ProtoModel::s_InterfaceID &id);
    /// All files.
    static Scope files();
    /// The files of one type.
    static Scope filesOf(int fileType);
    /// One file.
    static Scope file(const ProtoModel::s_FileIdentity &id);
    /// All screens.
    static Scope screens();
    /// One screen.
    static Scope screen(const ProtoModel::s_ScreenId &id);
    /// All layers.
    static Scope layers();
    /// The layers of one screen, in all its scenes.
    static Scope layersOf(const ProtoModel::s_ScreenId &screen);
    /// The layers of one scene of a screen; \a sceneType is 2 for the preview and 4 for the
    /// programme.
    static Scope layersOf(const ProtoModel::s_ScreenId &screen, int sceneType);

    /// Whether each object of \a other belongs to this scope.
    bool contains(const Scope &other) const;

    /// The smallest scope that one read returns and that contains this one. Only interfaces differ:
    /// a device lists either all of them or none.
    Scope readable() const;
    /// The operation that reads this scope, by its name: "Screen.readDetails".
    QString readOperation() const;
    /// The filters of that operation, in the order of its parameters: three for a screen. Empty for
    /// the device.
    std::vector<int> filters() const;
    /// The same as arguments of a call by name, see Operation::prepare().
    QStringList readArguments() const;
};

/// Whether the two contain the same objects.
inline bool operator==(const Scope &one, const Scope &other)
{
    return one.kind == other.kind && one.identity == other.identity;
}
/// Whether the two differ.
inline bool operator!=(const Scope &one, const Scope &other)
{
    return !(one == other);
}
/// Orders scopes by kind, in the order of reading, then by identity: a scope precedes those that it
/// contains.
inline bool operator<(const Scope &one, const Scope &other)
{
    return one.kind != other.kind ? one.kind < other.kind : one.identity < other.identity;
}

/// The fewest reads that together show all of \a scopes: each readable, none within another, in the
/// order in which a device is read.
TAVOROOPERATIONS_EXPORT std::vector<Scope> readsFor(const std::vector<Scope> &scopes);

} // namespace Tavoro::Operations
