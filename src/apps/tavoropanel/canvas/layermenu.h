#pragma once

#include <QMenu>
#include <QPointer>

namespace Tavoro::Panel {

class Actions;
class CanvasScene;
class LayerEditor;
class LayerItem;
class LayerSources;

/// The context menu of a layer: source, opacity and order.
class LayerMenu : public QMenu {
    Q_OBJECT

public:
    LayerMenu(CanvasScene &scene, LayerItem &layer, LayerEditor &editor, const Actions &actions,
              QWidget *parent);

private:
    void addSources(const LayerSources &sources);
    void addOpacities();

    const QPointer<LayerItem> m_layer; ///< May vanish while the menu is open.
    LayerEditor &m_editor;
};

} // namespace Tavoro::Panel
