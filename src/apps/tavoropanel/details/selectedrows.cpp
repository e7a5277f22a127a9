#include "selectedrows.h"

#include <tavoropanel/selection/selection.h>

#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorosession/devicesession.h>

#include <array>

namespace Tavoro::Panel {

namespace {

using Kind = Models::ObjectKind;

/// The first row whose object fulfils a condition.
template <class Condition>
QModelIndex findRow(const QAbstractItemModel &model, Condition isWanted)
{
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row, 0);
        if (isWanted(index))
            return index;
    }
    return {};
}

bool isSameInterface(const ProtoModel::s_InterfaceID &one, const ProtoModel::s_InterfaceID &other)
{
    return one.slotId == other.slotId && one.connectorId == other.connectorId
        && one.splitId == other.splitId;
}

} // namespace

SelectedRows::SelectedRows(const Selection &selection, Changes &changes, QObject *parent)
    : QObject(parent), m_selection(selection), m_edits(changes)
{
    for (const Kind kind : {Kind::Device, Kind::Interface, Kind::Screen, Kind::Layer, Kind::File})
        follow(kind);
    connect(&selection, &Selection::deviceChanged, this, &SelectedRows::followDevice);
    connect(&selection, &Selection::screensChanged, this, [this] {
        Q_EMIT changed(Kind::Screen);
        if (!m_selection.screens().isEmpty())
            Q_EMIT selected(Kind::Screen);
    });
    connect(&selection, &Selection::layerChanged, this, [this] {
        showScene();
        if (m_selection.layer())
            Q_EMIT selected(Kind::Layer);
    });
    connect(&selection, &Selection::interfaceChanged, this, [this] {
        Q_EMIT changed(Kind::Interface);
        if (m_selection.interface())
            Q_EMIT selected(Kind::Interface);
    });
    connect(&selection, &Selection::fileChanged, this, [this] {
        Q_EMIT changed(Kind::File);
        if (m_selection.file())
            Q_EMIT selected(Kind::File);
    });
    followDevice();
}

/// Reports the rows that appear in a model and disappear from it.
void SelectedRows::follow(Kind kind)
{
    Models::ObjectModel &rows = model(kind);
    rows.setEditHandler(&m_edits);
    const auto report = [this, kind] {
        Q_EMIT changed(kind);
    };
    connect(&rows, &QAbstractItemModel::rowsInserted, this, report);
    connect(&rows, &QAbstractItemModel::rowsRemoved, this, report);
}

Models::ObjectModel &SelectedRows::model(Kind kind)
{
    const std::array<Models::ObjectModel *, 5> models{&m_devices, &m_interfaces, &m_screens,
                                                      &m_layers, &m_files};
    return *models[static_cast<std::size_t>(kind)];
}

/// The device in the model does not exist before the first connection.
void SelectedRows::followDevice()
{
    disconnect(m_deviceConnection);
    m_edits.setDevice(m_selection.device());
    if (const DeviceSession *const device = m_selection.device())
        m_deviceConnection =
            connect(device, &DeviceSession::deviceChanged, this, &SelectedRows::showDevice);
    showDevice();
}

void SelectedRows::showDevice()
{
    const DeviceSession *const session = m_selection.device();
    const auto device = session ? session->device() : nullptr;
    m_interfaces.setDevice(device);
    m_sources.setDevice(device);
    m_screens.setDevice(device);
    m_files.setDevice(device);
    Q_EMIT changed(Kind::Device);
    showScene();
}

void SelectedRows::showScene()
{
    if (const auto &layer = m_selection.layer()) {
        m_layers.setScene(*layer, layer->sceneType);
        m_layers.setDevice(m_screens.device());
    } else {
        m_layers.setDevice({});
    }
    Q_EMIT changed(Kind::Layer);
}

QModelIndex SelectedRows::row(Kind kind) const
{
    const DeviceSession *const session = m_selection.device();
    switch (kind) {
    case Kind::Device:
        return findRow(m_devices, [&](const QModelIndex &index) {
            return session && m_devices.device(index) == session->device();
        });
    case Kind::Interface:
        return findRow(m_interfaces, [&](const QModelIndex &index) {
            return m_selection.interface()
                && isSameInterface(m_interfaces.interface(index)->interfaceId(),
                                   *m_selection.interface());
        });
    case Kind::Screen:
        return findRow(m_screens, [&](const QModelIndex &index) {
            const auto screen = m_screens.screen(index);
            return !m_selection.screens().isEmpty()
                && isSame({screen->screenId(), screen->screenType()}, m_selection.screens().last());
        });
    case Kind::Layer:
        return findRow(m_layers, [&](const QModelIndex &index) {
            return m_selection.layer()
                && isSame(m_layers.layer(index)->identity(), *m_selection.layer());
        });
    case Kind::File:
        return findRow(m_files, [&](const QModelIndex &index) {
            const auto &file = m_selection.file();
            const auto id = m_files.file(index)->identity();
            return file && id.fileId == file->fileId && id.fileType == file->fileType;
        });
    }
    return {};
}

} // namespace Tavoro::Panel
