#include "selection.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorosession/session.h>

#include <algorithm>

namespace Tavoro::Panel {

using BizModel::Enum::Device::DataPart;

namespace {

/// Ordinary screens and mosaics, as in BizModel::Device::screens().
constexpr int ordinaryScreens =
    1 << BizModel::Enum::Screen::OrdinaryScreen | 1 << BizModel::Enum::Screen::MosaicScreen;

bool isSameList(const QList<ProtoModel::s_ScreenId> &one,
                const QList<ProtoModel::s_ScreenId> &other)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](const auto &left, const auto &right) { return isSame(left, right); });
}

bool isSameLayer(const std::optional<Selection::LayerId> &one,
                 const std::optional<Selection::LayerId> &other)
{
    return one && other ? isSame(*one, *other) : one.has_value() == other.has_value();
}

std::shared_ptr<BizModel::Device> modelOf(const DeviceSession *device)
{
    return device ? device->device() : nullptr;
}

} // namespace

Selection::Selection(Session &session, QObject *parent) : QObject(parent)
{
    connect(&session, &Session::deviceRemoved, this, &Selection::forget);
}

void Selection::setDevice(DeviceSession *device)
{
    if (device == m_device)
        return;
    if (m_device)
        m_device->disconnect(this);
    m_device = device;
    if (device) {
        for (const auto changed : {&DeviceSession::stateChanged, &DeviceSession::controlChanged,
                                   &DeviceSession::controlHolderChanged}) {
            connect(device, changed, this, &Selection::updateCanWrite);
            connect(device, changed, this, &Selection::stateChanged);
        }
        connect(device, &DeviceSession::stateDetailsChanged, this, &Selection::stateChanged);
        connect(device, &DeviceSession::deviceChanged, this, &Selection::watchDevice);
    }
    setLayer(std::nullopt);
    setScreens({});
    setInterface(std::nullopt);
    setFile(std::nullopt);
    Q_EMIT deviceChanged();
    watchDevice();
    updateCanWrite();
}

/// Follows the device in the model, which does not exist before the first connection.
void Selection::watchDevice()
{
    const auto model = modelOf(m_device);
    if (model == m_model.lock())
        return;
    disconnect(m_modelConnection);
    m_model = model;
    if (model) {
        m_modelConnection =
            connect(model.get(), &BizModel::Device::deviceDataChanged, this, [this](DataPart part) {
                if (part == DataPart::Screens || part == DataPart::Layers)
                    checkObjects();
            });
    }
    Q_EMIT modelChanged();
    checkObjects();
}

void Selection::forget(const DeviceSession *device)
{
    if (device == m_device)
        setDevice(nullptr);
}

/// Deselects what the device no longer has.
void Selection::checkObjects()
{
    QList<ScreenId> remaining;
    for (const ScreenId &screen : qAsConst(m_screens)) {
        if (exists(screen))
            remaining << screen;
    }
    setScreens(remaining);
    if (m_layer && !layerObject())
        setLayer(std::nullopt);
    if (m_screens.isEmpty())
        selectFirstScreen();
}

void Selection::selectFirstScreen()
{
    const auto model = modelOf(m_device);
    if (!model)
        return;
    const auto screens = model->screens(ordinaryScreens);
    for (const auto &candidate : screens) {
        if (const auto screen = candidate.lock()) {
            setScreens({{screen->screenId(), screen->screenType()}});
            return;
        }
    }
}

bool Selection::exists(const ScreenId &screen) const
{
    const auto model = modelOf(m_device);
    return model && !model->findScreen(screen.screenType, screen.screenId).expired();
}

bool Selection::isConnected() const
{
    if (!m_device)
        return false;
    const DeviceState::Kind kind = m_device->state().kind;
    return kind == DeviceState::Ready || kind == DeviceState::Reading;
}

void Selection::updateCanWrite()
{
    const bool canWrite = isConnected() && !m_device->isControlledByOthers();
    if (canWrite == m_canWrite)
        return;
    m_canWrite = canWrite;
    Q_EMIT canWriteChanged();
}

bool Selection::contains(const ScreenId &screen) const
{
    return std::any_of(m_screens.begin(), m_screens.end(),
                       [&](const ScreenId &selected) { return isSame(selected, screen); });
}

void Selection::setScreens(const QList<ScreenId> &screens)
{
    if (isSameList(screens, m_screens))
        return;
    m_screens = screens;
    Q_EMIT screensChanged();
    if (m_layer && !contains(*m_layer))
        setLayer(std::nullopt);
}

void Selection::setScreenSelected(const ScreenId &screen, bool isSelected)
{
    QList<ScreenId> screens;
    for (const ScreenId &selected : qAsConst(m_screens)) {
        if (!isSame(selected, screen))
            screens << selected;
    }
    if (isSelected)
        screens << screen;
    if (isSelected != contains(screen))
        setScreens(screens);
}

QList<std::shared_ptr<BizModel::Screen>> Selection::screenObjects() const
{
    QList<std::shared_ptr<BizModel::Screen>> objects;
    if (const auto model = modelOf(m_device)) {
        for (const ScreenId &id : m_screens) {
            if (const auto screen = model->findScreen(id.screenType, id.screenId).lock())
                objects << screen;
        }
    }
    return objects;
}

void Selection::setScene(Scene scene)
{
    if (scene == m_scene)
        return;
    m_scene = scene;
    Q_EMIT sceneChanged();
    if (m_layer && m_layer->sceneType != static_cast<int>(scene))
        setLayer(std::nullopt);
}

void Selection::setLayer(const std::optional<LayerId> &layer)
{
    if (isSameLayer(layer, m_layer))
        return;
    m_layer = layer;
    if (layer && !contains(*layer))
        setScreens({{layer->screenId, layer->screenType}});
    if (layer)
        setScene(static_cast<Scene>(layer->sceneType));
    Q_EMIT layerChanged();
}

std::shared_ptr<BizModel::Layer> Selection::layerObject() const
{
    const auto model = modelOf(m_device);
    return model && m_layer ? model->findLayer(*m_layer).lock() : nullptr;
}

void Selection::setInterface(const std::optional<InterfaceId> &interface)
{
    m_interface = interface;
    Q_EMIT interfaceChanged();
}

void Selection::setFile(const std::optional<FileId> &file)
{
    m_file = file;
    Q_EMIT fileChanged();
}

} // namespace Tavoro::Panel
