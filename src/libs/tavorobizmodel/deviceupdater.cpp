#include "deviceupdater_p.h"

#include "deviceprivate_p.h"
#include "inputcrop_p.h"
#include "makeobjects_p.h"
#include "objectselection_p.h"
#include "recordequality_p.h"

#include <type_traits>
#include <utility>

namespace Tavoro::BizModel {

using Part = DevicePrivate::Part;
using ProtoModel::Device::s_DeviceDetail;
using ProtoModel::File::s_FileDetail;
using ProtoModel::Interface::s_InterfaceDetail;
using ProtoModel::Layer::s_LayerFullDetail;
using ProtoModel::Screen::s_ScreenFullDetail;

namespace {

constexpr qint32 removedFileType = 15; ///< The device lists such a file, but no longer has it.
constexpr int ordinaryScreens = 6;
constexpr int multiviewerScreens = 8;

} // namespace

DeviceUpdater::DeviceUpdater(Device &device) : m_device(device), m_d(DevicePrivate::get(device)) { }

/// Stores the objects of one kind. Also rebuilds the indexes of their relations, which may have
/// changed although the list did not.
template <class Object>
void DeviceUpdater::take(const std::vector<std::shared_ptr<Object>> &present,
                         ObjectTable<Object> now, Part part)
{
    if (now.values() != present)
        m_signals.add(part);
    if constexpr (std::is_same_v<Object, Screen>) {
        if (m_d.contents.take(std::move(now), DeviceContents::ActiveScreens::AreKept))
            m_signals.add(Part::ActiveScreens);
    } else {
        m_d.contents.take(std::move(now));
    }
}

void DeviceUpdater::update(const s_DeviceReading &reading)
{
    updateState(reading);
    if (reading.detail)
        update(*reading.detail, reading.baseInfo ? reading.baseInfo->name : std::string());
    if (reading.interfaces)
        update(*reading.interfaces, s_InterfaceFilter());
    if (reading.files)
        update(*reading.files, s_FileFilter(), FileContents::WereRead);
    if (reading.screens)
        update(*reading.screens, s_ScreenFilter());
    if (reading.layers)
        update(*reading.layers, s_LayerFilter());
    else if (reading.interfaces)
        fitLayerCrops();
    chooseActiveScreens();
}

void DeviceUpdater::updateState(const s_DeviceReading &reading)
{
    const auto &info = reading.baseInfo;
    const auto setIf = [this](bool isDifferent, Part part) {
        if (isDifferent)
            m_signals.add(part);
    };
    m_d.write([&](DeviceState &state) {
        setIf(replaceIfDifferent(state.online, info.has_value()), Part::OnlineFlag);
        setIf(replaceIfDifferent(state.syncSuccess, reading.isComplete), Part::SyncSuccess);
        if (!info)
            return;
        setIf(replaceIfDifferent(state.modelId, info->modelId), Part::Identity);
        if (DevicePrivate::replaceInfo(state, *info)) {
            m_signals.add(Part::Identity);
            m_d.noteIdentityChange();
        }
        if (!reading.detail)
            setIf(replaceIfDifferent(state.name, QString::fromStdString(info->name)),
                  Part::Identity);
    });
}

void DeviceUpdater::update(s_DeviceDetail detail, const std::string &nameOfChannel)
{
    if (detail.general.name == "N/A" && !nameOfChannel.empty())
        detail.general.name = nameOfChannel;
    const QString name = QString::fromStdString(detail.general.name);
    m_d.write([&](DeviceState &state) {
        if (replaceIfDifferent(state.name, name))
            m_signals.add(Part::Identity);
    });
    for (const Part part : m_d.records.replace(indexed(std::move(detail), m_faults)))
        m_signals.add(part);
}

void DeviceUpdater::update(const std::vector<s_InterfaceDetail> &details,
                           const s_InterfaceFilter &filter)
{
    const auto updated = [&](const s_InterfaceDetail &detail) {
        auto interface = m_d.contents.findInterface(objectId(detail.interfaceId));
        if (!interface) {
            interface = std::make_shared<Interface>(detail, m_device.weak_from_this());
            interface->restoreCrop(*m_d.settings);
            return interface;
        }
        const auto timing = interface->detail().actualTiming;
        if (interface->assign(detail, *m_d.settings)) {
            m_signals.add(interface);
            if (!isEqual(timing, detail.actualTiming))
                m_signals.addOutdatedCrops(interface);
        }
        return interface;
    };
    m_d.keepInterfaceCrops();
    const auto present = m_d.contents.interfaces();
    const auto read = makeObjects<Interface>(details, m_faults, updated);
    take(present, mergeRead(present, read, filter), Part::Interfaces);
}

void DeviceUpdater::fitLayerCrops()
{
    for (const auto &layer : m_d.contents.layers()) {
        if (layer->fitCrops(shownPicture(m_d.contents, layer->detail())))
            m_signals.add(layer);
    }
}

void DeviceUpdater::update(const std::vector<s_FileDetail> &details, const s_FileFilter &filter,
                           FileContents contents)
{
    const auto updated = [&](const s_FileDetail &detail) -> std::shared_ptr<File> {
        if (detail.fileType == removedFileType)
            return nullptr;
        auto file = m_d.contents.findFile(objectId(identityOf(detail)));
        if (!file)
            return std::make_shared<File>(detail, m_device.weak_from_this());
        s_FileDetail read = detail;
        if (contents == FileContents::WereNotRead) {
            const s_FileDetail known = file->detail();
            read.binary = isEqual(known.size, read.size) ? known.binary : std::string();
        }
        if (file->assign(read))
            m_signals.add(file);
        return file;
    };
    const auto present = m_d.contents.files();
    const auto read = makeObjects<File>(details, m_faults, updated);
    take(present, mergeRead(present, read, filter), Part::Files);
}

bool DeviceUpdater::updateContent(const ProtoModel::s_FileIdentity &id, const std::string &content)
{
    const auto file = m_d.contents.findFile(objectId(id));
    if (!file)
        return false;
    s_FileDetail read = file->detail();
    read.binary = content;
    if (file->assign(read))
        m_signals.add(file);
    return true;
}

void DeviceUpdater::update(const std::vector<s_ScreenFullDetail> &details,
                           const s_ScreenFilter &filter)
{
    const auto updated = [&](const s_ScreenFullDetail &detail) {
        for (const auto &output : detail.mosaic.outputs) {
            if (!m_d.contents.findInterface(objectId(output.interfaceId)))
                m_faults.addMissingOutput(detail, output.interfaceId);
        }
        auto screen = m_d.contents.findScreen(objectId(identityOf(detail)));
        if (!screen)
            return makeScreen(detail, m_device.weak_from_this(), m_d.settings);
        if (screen->assign(detail))
            m_signals.add(screen);
        return screen;
    };
    const auto present = m_d.contents.screens();
    const auto read = makeObjects<Screen>(details, m_faults, updated);
    take(present, mergeRead(present, read, filter), Part::Screens);
    removeLayersWithoutScreen();
    chooseActiveScreens();
}

void DeviceUpdater::removeLayersWithoutScreen()
{
    const auto present = m_d.contents.layers();
    Layers now;
    for (const auto &layer : present) {
        if (m_d.contents.findScreen(objectId(screenOf(layer->identity()))))
            now.assign(objectId(*layer), layer);
    }
    if (now.values().size() == present.size())
        return;
    m_d.keepLayerCrops();
    take(present, now, Part::Layers);
}

void DeviceUpdater::chooseActiveScreens()
{
    const auto chooseFirst = [this](int mask) {
        const auto screens = m_device.screens(mask);
        if (!screens.isEmpty() && m_d.contents.setActive(screens.first().lock()))
            m_signals.add(Part::ActiveScreens);
    };
    if (!m_d.contents.activeScreen())
        chooseFirst(ordinaryScreens);
    if (!m_d.contents.activeMultiviewer())
        chooseFirst(multiviewerScreens);
}

void DeviceUpdater::update(const std::vector<s_LayerFullDetail> &details,
                           const s_LayerFilter &filter)
{
    const auto updated = [&](const s_LayerFullDetail &detail) -> std::shared_ptr<Layer> {
        if (!m_d.contents.findScreen(objectId(screenOf(detail.layerIdenti)))) {
            m_faults.addMissingScreen(detail.layerIdenti);
            return nullptr;
        }
        const QSize picture = shownPicture(m_d.contents, detail);
        auto layer = m_d.contents.findLayer(objectId(detail.layerIdenti));
        if (!layer) {
            layer = std::make_shared<Layer>(detail, m_device.weak_from_this());
            layer->restoreCrops(*m_d.settings);
            layer->fitCrops(picture);
        } else if (layer->assign(detail, *m_d.settings, picture)) {
            m_signals.add(layer);
        }
        return layer;
    };
    m_d.keepLayerCrops();
    const auto present = m_d.contents.layers();
    const auto read = makeObjects<Layer>(details, m_faults, updated);
    take(present, mergeRead(present, read, filter), Part::Layers);
}

bool DeviceUpdater::finish(QString &error)
{
    m_signals.emitSignals(m_device);
    return m_faults.report(error);
}

} // namespace Tavoro::BizModel
