#include "presetcommands.h"

#include "createhandlers_p.h"
#include "layercommands.h"
#include "screencommands.h"

#include <tavorocontrol/proto/preset.h>
#include <tavorocontrol/proto/recordcodec.h>

#include <algorithm>

namespace Tavoro::Sim {

using namespace ProtoModel;
using namespace ProtoModel::File;
using Preset::s_PresetPlay;
using ProjectFile::s_ProjectFileApply;

/// The content of a preset, as JSON.
struct StoredScreens {
    std::vector<Screen::s_ScreenFullDetail> screens;
    std::vector<Layer::s_LayerFullDetail> layers;
    TAVORO_FIELDS(screens, layers)
};

/// The content of a project: this as one line of JSON, then the contents of its files, one after
/// the other.
struct StoredProject : StoredScreens {
    std::vector<s_FileDetail> files;
    TAVORO_FIELDS(screens, layers, files)
};

} // namespace Tavoro::Sim

TAVORO_CODEC(Tavoro::Sim::StoredScreens)
TAVORO_CODEC(Tavoro::Sim::StoredProject)

namespace Tavoro::Sim {

namespace {

/// How a preset is applied: \c s_PresetPlay::applyType.
enum ApplyType : qint32 {
    AsStored = 0,
    IntoPreview = 1,
};

void addScreen(StoredScreens &stored, const Setup &setup, const s_ScreenId &id)
{
    stored.screens.push_back(setup.screens.at(keyOf(id)));
    for (const auto &[key, layer] : setup.layers) {
        if (keyOf(static_cast<const s_ScreenId &>(layer.layerIdenti)) == keyOf(id))
            stored.layers.push_back(layer);
    }
}

DeviceStatus makePreset(const SimState &state, const s_CreatePresetFile &record,
                        s_FileDetail & /*detail*/, std::string &content)
{
    if (record.fileType != screenPreset && record.fileType != devicePreset)
        return DeviceStatus::ValueOutOfRange;
    StoredScreens stored;
    for (const s_ScreenId &screen : record.screens) {
        if (!find(state, screen))
            return DeviceStatus::NoSuchObject;
        addScreen(stored, state, screen);
    }
    content = encoded(stored);
    return DeviceStatus::Success;
}

/// Restores the stored screens with their layers. Removes all screens of the same numbers first,
/// since one of them may use an output that another one had when it was stored.
DeviceStatus restore(Setup &setup, const StoredScreens &stored)
{
    for (const Screen::s_ScreenFullDetail &screen : stored.screens) {
        setup.screens.erase(keyOf(screen));
        removeLayers(setup, screen);
    }
    for (const Screen::s_ScreenFullDetail &screen : stored.screens) {
        const DeviceStatus status = checkOutputs(setup, screen, screen.mosaic);
        if (status != DeviceStatus::Success)
            return status;
        setup.screens[keyOf(screen)] = screen;
    }
    for (const Layer::s_LayerFullDetail &layer : stored.layers)
        setup.layers[keyOf(layer.layerIdenti)] = layer;
    return DeviceStatus::Success;
}

/// Puts the stored programmes into the previews; the screens themselves stay.
DeviceStatus restoreIntoPreview(Setup &setup, const StoredScreens &stored)
{
    for (const Screen::s_ScreenFullDetail &screen : stored.screens) {
        if (!find(setup, screen))
            return DeviceStatus::NoSuchObject;
        for (auto layer = setup.layers.begin(); layer != setup.layers.end();) {
            const Layer::s_LayerIdentity &id = layer->second.layerIdenti;
            const bool isOld = keyOf(static_cast<const s_ScreenId &>(id)) == keyOf(screen)
                && id.sceneType == PreviewScene;
            layer = isOld ? setup.layers.erase(layer) : std::next(layer);
        }
    }
    for (Layer::s_LayerFullDetail layer : stored.layers) {
        if (std::exchange(layer.layerIdenti.sceneType, PreviewScene) == ProgrammeScene)
            setup.layers[keyOf(layer.layerIdenti)] = layer;
    }
    return DeviceStatus::Success;
}

DeviceStatus applyPreset(const SimState &state, Setup &setup, const s_PresetPlay &play)
{
    if (play.applyType != AsStored && play.applyType != IntoPreview)
        return DeviceStatus::ValueOutOfRange;
    const StoredFile *const file = findValue(state.files.index(), keyOf(play));
    const auto content = file ? state.files.content(*file) : nullptr;
    if (!content)
        return DeviceStatus::NoSuchObject;
    StoredScreens stored;
    if (!decoded(content->readAll().toStdString(), stored))
        return DeviceStatus::WrongContent;
    return play.applyType == AsStored ? restore(setup, stored) : restoreIntoPreview(setup, stored);
}

bool isContained(const s_FileContain &contain, qint32 fileType)
{
    switch (fileType) {
    case 0:
        return contain.BKG != 0;
    case 2:
        return contain.logo != 0;
    case screenPreset:
    case devicePreset:
        return contain.preset != 0;
    default:
        return contain.other != 0;
    }
}

bool copy(QIODevice &from, qint64 length, IncomingContent &to)
{
    constexpr qint64 most = 1 << 20;
    while (length > 0) {
        const QByteArray piece = from.read(std::min(length, most));
        if (piece.isEmpty()
            || !to.append({piece.constData(), static_cast<std::size_t>(piece.size())}))
            return false;
        length -= piece.size();
    }
    return true;
}

bool makeProject(SimState &state, const s_CreateProjFile &record, FileChanges &changes)
{
    StoredProject stored;
    for (const auto &[key, screen] : state.screens)
        addScreen(stored, state, screen);
    const auto isIncluded = [&](const StoredFile &file) {
        return keyOf(file) != keyOf(record) && isContained(record.contain, file.fileType);
    };
    const FileIndex index = changes.applied();
    for (const auto &[key, file] : index) {
        if (isIncluded(file))
            stored.files.push_back(file);
    }
    IncomingContent project = state.files.beginContent();
    bool ok = project.append(encoded(stored) + '\n');
    for (const auto &[key, file] : index) {
        const auto content = isIncluded(file) ? state.files.content(file) : nullptr;
        if (isIncluded(file))
            ok = ok && content && copy(*content, file.size.length, project);
    }
    s_FileDetail detail;
    static_cast<s_FileIdentity &>(detail) = record;
    detail.general = record.general;
    return ok && state.files.put(changes, detail, std::move(project));
}

DeviceStatus applyProject(SimState &state, Setup &setup, FileChanges &changes,
                          const s_ProjectFileApply &apply)
{
    const StoredFile *const file = findValue(state.files.index(), keyOf(apply));
    const auto content = file ? state.files.content(*file) : nullptr;
    if (!content)
        return DeviceStatus::NoSuchObject;
    StoredProject stored;
    if (!decoded(content->readLine().toStdString(), stored))
        return DeviceStatus::WrongContent;
    for (const s_FileDetail &included : stored.files) {
        IncomingContent part = state.files.beginContent();
        if (!copy(*content, included.size.length, part))
            return DeviceStatus::WrongContent;
        if (!state.files.put(changes, included, std::move(part)))
            return DeviceStatus::StorageFailed;
    }
    setup.screens.clear();
    setup.layers.clear();
    return restore(setup, stored);
}

} // namespace

DeviceStatus writeCreatePreset(SimState &state, const Request &request, Reports & /*reports*/)
{
    return createEach<s_CreatePresetFile>(state, request, makePreset);
}

DeviceStatus writePresetApply(SimState &state, const Request &request, Reports & /*reports*/)
{
    std::vector<s_PresetPlay> list;
    if (!decoded(request.body, list))
        return DeviceStatus::MalformedBody;
    Setup setup = state;
    for (const s_PresetPlay &play : list) {
        const DeviceStatus status = applyPreset(state, setup, play);
        if (status != DeviceStatus::Success)
            return status;
    }
    static_cast<Setup &>(state) = std::move(setup);
    return DeviceStatus::Success;
}

DeviceStatus writeCreateProject(SimState &state, const Request &request, Reports & /*reports*/)
{
    std::vector<s_CreateProjFile> list;
    if (!decoded(request.body, list))
        return DeviceStatus::MalformedBody;
    FileChanges changes = state.files.change();
    for (const s_CreateProjFile &record : list) {
        if (!isFileIdentity(record) || !isFileName(record.general))
            return DeviceStatus::ValueOutOfRange;
        if (!makeProject(state, record, changes))
            return DeviceStatus::StorageFailed;
    }
    return commit(state, changes);
}

DeviceStatus writeProjectApply(SimState &state, const Request &request, Reports & /*reports*/)
{
    std::vector<s_ProjectFileApply> list;
    if (!decoded(request.body, list))
        return DeviceStatus::MalformedBody;
    Setup setup = state;
    FileChanges changes = state.files.change();
    for (const s_ProjectFileApply &apply : list) {
        const DeviceStatus status = applyProject(state, setup, changes, apply);
        if (status != DeviceStatus::Success)
            return status;
    }
    const DeviceStatus status = commit(state, changes);
    if (status == DeviceStatus::Success)
        static_cast<Setup &>(state) = std::move(setup);
    return status;
}

} // namespace Tavoro::Sim
