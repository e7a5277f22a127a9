#pragma once

#include "layergeometry.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

QT_BEGIN_NAMESPACE
class QKeyEvent;
QT_END_NAMESPACE

namespace Tavoro::Panel {

class CanvasScene;
class LayerEditor;
class LayerItem;
class Selection;

/// The keyboard on the canvas. Tab selects the next layer of the selected screens. The canvas
/// scrolls to the layer that keys select or move.
///
/// | key | with a selected layer | without |
/// |---|---|---|
/// | arrows | move it by 1 pixel, with Shift by 10 | select the other scene or another screen |
/// | Ctrl + arrows | move its right and lower edges by 1 pixel, with Shift by 10 | |
/// | Escape | deselects it | |
class LayerKeys : public QObject {
    Q_OBJECT

public:
    LayerKeys(CanvasScene &scene, Selection &selection, LayerEditor &editor, QObject *parent);

    /// Carries a key out. Returns false if it has no meaning here.
    bool press(const QKeyEvent &event);
    /// Selects the next layer, or the previous one. Returns false after the last one.
    bool selectNext(bool isForward);

    /// Changes the opacity of the selected layer by this percentage.
    void changeOpacity(int percent);

private:
    bool nudge(const QPoint &way, Qt::KeyboardModifiers modifiers);
    bool selectNeighbour(const QPoint &way);
    QList<LayerItem *> layersOfSelection() const;
    void reveal() const;
    void startSeries(LayerItem &layer);
    void endSeries();

    CanvasScene &m_scene;
    Selection &m_selection;
    LayerEditor &m_editor;
    /// Ends a series of keys, which is one step of undo.
    QTimer m_pause;
    QPointer<LayerItem> m_edited; ///< The layer of the series.
};

} // namespace Tavoro::Panel
