#include "sourcesview.h"

#include <tavoropanel/selection/selection.h>
#include <tavoropanel/sources/layersources.h>
#include <tavoropanel/undo/changes.h>

#include <tavorobizmodel/layer.h>
#include <tavorocontrol/layer.h>

#include <QHBoxLayout>
#include <QListView>
#include <QToolButton>
#include <QVBoxLayout>

namespace Tavoro::Panel {

namespace {

constexpr QSize iconSize(32, 32);

} // namespace

SourcesView::SourcesView(Selection &selection, Messages & /*messages*/, Changes &changes,
                         Actions & /*actions*/, QWidget *parent)
    : QWidget(parent),
      m_selection(selection),
      m_changes(changes),
      m_list(new QListView(this)),
      m_show(new QToolButton(this))
{
    m_list->setObjectName(QStringLiteral("sourceList"));
    m_list->setAccessibleName(tr("Inputs"));
    m_list->setAccessibleDescription(tr("The inputs of the device with their signals. An input "
                                        "can be dragged onto a layer of the canvas."));
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setIconSize(iconSize);
    m_list->setSpacing(2);
    m_list->setDragDropMode(QAbstractItemView::DragOnly);
    m_list->setModel(&m_model);
    m_show->setObjectName(QStringLiteral("showInLayer"));
    m_show->setText(tr("Show in the selected layer"));
    m_show->setAccessibleName(m_show->text());
    m_show->setToolTip(tr("Makes this input the source of the selected layer."));
    m_show->setFocusPolicy(Qt::StrongFocus);
    auto *const bar = new QHBoxLayout;
    bar->addWidget(m_show);
    bar->addStretch();
    auto *const layout = new QVBoxLayout(this);
    layout->addLayout(bar);
    layout->addWidget(m_list, 1);

    connect(m_show, &QToolButton::clicked, this, &SourcesView::showInLayer);
    connect(m_list, &QListView::doubleClicked, this, &SourcesView::showInLayer);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &SourcesView::updateEnabled);
    // Not the current input: a list that gets the focus makes its first row the current one.
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection &selected) { select(selected.indexes().value(0)); });
    connect(m_list, &QListView::clicked, this, &SourcesView::select);
    connect(&selection, &Selection::canWriteChanged, this, &SourcesView::updateEnabled);
    connect(&selection, &Selection::layerChanged, this, &SourcesView::updateEnabled);
    connect(&selection, &Selection::deviceChanged, this, &SourcesView::followDevice);
    followDevice();
}

/// The device in the model does not exist before the first connection.
void SourcesView::followDevice()
{
    disconnect(m_deviceConnection);
    DeviceSession *const device = m_selection.device();
    if (device)
        m_deviceConnection = connect(device, &DeviceSession::deviceChanged, this,
                                     [this, device] { m_model.setDevice(device->device()); });
    m_model.setDevice(device ? device->device() : nullptr);
    updateEnabled();
}

void SourcesView::select(const QModelIndex &input)
{
    if (input.isValid())
        m_selection.setInterface(m_model.input(input));
}

void SourcesView::updateEnabled()
{
    m_show->setEnabled(m_list->currentIndex().isValid() && m_selection.canWrite()
                       && m_selection.layer());
}

void SourcesView::showInLayer()
{
    const auto layer = m_selection.layerObject();
    if (!layer || !m_show->isEnabled())
        return;
    ProtoModel::Layer::s_LayerSource record;
    record.layerIdenti = layer->identity();
    record.source = layer->detail().source;
    record.source.general = sourceOf(m_model.input(m_list->currentIndex()));
    m_changes.call(*m_selection.device(), &Control::Layer::writeSource, {record});
}

} // namespace Tavoro::Panel
