#pragma once

#include <tavorocontrol/proto/layer.h>

#include <QMenu>
#include <QPointer>

namespace Tavoro::Panel {

class Actions;
class CanvasScene;
class LayerEditor;
class LayerItem;

/// The context menu of a layer: source, opacity and order.
class LayerMenu : public QMenu {
    Q_OBJECT

public:
    LayerMenu(CanvasScene &scene, LayerItem &layer, LayerEditor &editor, const Actions &actions,
              QWidget *parent);

private:
    void addSources(const CanvasScene &scene);
    void addOpacities();
    void addSource(QMenu &menu, const QString &text,
                   const ProtoModel::Layer::s_SourceGeneral &source);

    const QPointer<LayerItem> m_layer; ///< May vanish while the menu is open.
    LayerEditor &m_editor;
};

} // namespace Tavoro::Panel
