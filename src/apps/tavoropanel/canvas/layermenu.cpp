#include "layermenu.h"

#include "canvasscene.h"
#include "layereditor.h"

#include <tavoropanel/actions/actions.h>
#include <tavoropanel/sources/layersources.h>

#include <QAction>

#include <utility>

namespace Tavoro::Panel {

namespace {

constexpr int opacities[] = {100, 75, 50, 25, 0};

/// A text of a menu in which no letter is a mnemonic.
QString plain(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

LayerMenu::LayerMenu(CanvasScene &scene, LayerItem &layer, LayerEditor &editor,
                     const Actions &actions, QWidget *parent)
    : QMenu(plain(layer.face().name), parent), m_layer(&layer), m_editor(editor)
{
    addSection(plain(layer.face().name));
    addSources(scene.sources());
    addOpacities();
    addSeparator();
    for (const ActionId id : {ActionId::RaiseLayer, ActionId::LowerLayer, ActionId::RaiseToTop,
                              ActionId::LowerToBottom})
        addAction(&actions.action(id));
}

void LayerMenu::addSources(const LayerSources &sources)
{
    QMenu *const menu = addMenu(tr("&Source"));
    qint32 kind = 0;
    for (const LayerSource &source : sources.all()) {
        if (std::exchange(kind, source.id.type) != source.id.type)
            menu->addSeparator();
        QAction *const action = menu->addAction(plain(source.text()));
        action->setCheckable(true);
        action->setChecked(isSame(source.id, m_layer->face().sourceId));
        connect(action, &QAction::triggered, this, [this, id = source.id] {
            if (m_layer && m_editor.canEdit(*m_layer))
                m_editor.setSource(*m_layer, id);
        });
    }
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
