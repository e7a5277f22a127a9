#include "layermenu.h"

#include "canvasscene.h"
#include "layereditor.h"

#include <tavoropanel/actions/actions.h>

#include <tavorobizmodel/enums.h>
#include <tavorobizmodel/interface.h>

#include <QAction>
#include <QActionGroup>

namespace Tavoro::Panel {

namespace {

constexpr int opacities[] = {100, 75, 50, 25, 0};

/// The number of an interface in a record of a layer.
quint32 sourceNumber(const ProtoModel::s_InterfaceID &id)
{
    return static_cast<quint32>(id.slotId) << 16 | static_cast<quint32>(id.connectorId) << 8
        | static_cast<quint32>(id.splitId);
}

} // namespace

LayerMenu::LayerMenu(CanvasScene &scene, LayerItem &layer, LayerEditor &editor,
                     const Actions &actions, QWidget *parent)
    : QMenu(layer.face().name, parent), m_layer(&layer), m_editor(editor)
{
    addSection(layer.face().name);
    addSources(scene);
    addOpacities();
    addSeparator();
    for (const ActionId id : {ActionId::RaiseLayer, ActionId::LowerLayer, ActionId::RaiseToTop,
                              ActionId::LowerToBottom})
        addAction(&actions.action(id));
}

void LayerMenu::addSources(const CanvasScene &scene)
{
    QMenu *const menu = addMenu(tr("&Source"));
    const auto &inputs = scene.inputs();
    for (int row = 0; row < inputs.rowCount(); ++row) {
        const QModelIndex index = inputs.index(row);
        const auto input = inputs.interface(index);
        if (!input)
            continue;
        const QString format = formatText(input->detail().actualTiming);
        addSource(*menu,
                  tr("%1  (%2)")
                      .arg(index.data().toString(), format.isEmpty() ? tr("no signal") : format),
                  {BizModel::Enum::Layer::InterfaceSource, sourceNumber(input->interfaceId())});
    }
    menu->addSeparator();
    addSource(*menu, tr("&No source"), {BizModel::Enum::Layer::NoSource, 0});
}

void LayerMenu::addSource(QMenu &menu, const QString &text,
                          const ProtoModel::Layer::s_SourceGeneral &source)
{
    QAction *const action = menu.addAction(text);
    const auto &shown = m_layer->face().sourceId;
    action->setCheckable(true);
    action->setChecked(shown.type == source.type && shown.id == source.id);
    connect(action, &QAction::triggered, this, [this, source] {
        if (m_layer && m_editor.canEdit(*m_layer))
            m_editor.setSource(*m_layer, source);
    });
}

void LayerMenu::addOpacities()
{
    QMenu *const menu = addMenu(tr("&Opacity"));
    for (const int percent : opacities) {
        QAction *const action = menu->addAction(tr("%1 %").arg(percent));
        action->setCheckable(true);
        action->setChecked(m_layer->opacityPercent() == percent);
        connect(action, &QAction::triggered, this, [this, percent] {
            if (!m_layer || !m_editor.canEdit(*m_layer))
                return;
            m_editor.setOpacity(*m_layer, percent);
            m_editor.finishOpacity(*m_layer);
        });
    }
}

} // namespace Tavoro::Panel
