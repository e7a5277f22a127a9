#pragma once

#include "layerdragger.h"
#include "layereditor.h"
#include "layerkeys.h"

#include <QGraphicsView>

namespace Tavoro::Panel {

class Actions;
class CanvasScene;
class Changes;
class Messages;
class Selection;

/// The screens of the selected device in their layout, preview beside programme. Layers are
/// selected, moved, resized and changed here; the device follows.
///
/// The wheel scrolls, Ctrl and the wheel zoom, the middle mouse button and drags outside the
/// screens pan.
class CanvasView : public QGraphicsView {
    Q_OBJECT

public:
    CanvasView(Selection &selection, Messages &messages, Changes &changes, Actions &actions,
               QWidget *parent = nullptr);
    ~CanvasView() override;

    CanvasScene &canvas() const { return *m_scene; }
    /// Pixels of the view for each pixel of a screen.
    double scale() const { return transform().m11(); }
    /// True if the canvas fills the view at every size of the window.
    bool isFitted() const { return m_isFitted; }

public Q_SLOTS:
    void zoomIn();
    void zoomOut();
    /// Shows all screens, and keeps doing so when the window changes its size.
    void fit();

protected:
    bool event(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void connectActions(const Actions &actions);
    void restackSelected(StackingMove move);
    void zoom(double factor);
    void showAll();
    QSizeF freeSize() const;
    void updateTheme();
    void describeSelection();
    LayerDragger::Pointer pointerOf(const QMouseEvent &event) const;
    /// What to read instead of the screens, or below them; empty if they are up to date.
    QString hint() const;

    Selection &m_selection;
    const Actions &m_actions;
    CanvasScene *const m_scene;
    LayerEditor m_editor;
    LayerDragger m_dragger;
    LayerKeys m_keys;
    bool m_isFitted = true;
    bool m_isPanning = false;
    QPoint m_panned; ///< Last position of the pointer while panning.
};

} // namespace Tavoro::Panel
