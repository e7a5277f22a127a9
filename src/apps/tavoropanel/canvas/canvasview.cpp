#include "canvasview.h"

#include "canvasaccessible.h"
#include "canvashint.h"
#include "canvasscene.h"
#include "canvastext.h"
#include "layermenu.h"
#include "selectionframe.h"
#include "sourcedrop.h"

#include <tavoropanel/actions/actions.h>

#include <QAction>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace Tavoro::Panel {

namespace {

constexpr double zoomStep = 1.25;
constexpr double largestScale = 4; ///< Pixels of the view for each pixel of a screen.
constexpr double wheelNotch = 120; ///< The angle of one notch, as Qt counts it.
constexpr int opacityStep = 5; ///< In percent.

} // namespace

CanvasView::CanvasView(Selection &selection, Messages &messages, Changes &changes, Actions &actions,
                       QWidget *parent)
    : QGraphicsView(parent),
      m_selection(selection),
      m_actions(actions),
      m_scene(new CanvasScene(selection, this)),
      m_editor(selection, messages, changes, this),
      m_dragger(*m_scene, selection, m_editor, this),
      m_keys(*m_scene, selection, m_editor, this)
{
    installCanvasAccessibility();
    setScene(m_scene);
    setAccessibleName(tr("Canvas"));
    setFrameShape(NoFrame);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(320, 180);
    new SourceDrop(*this, *m_scene, selection, m_editor);
    // Texts, frames and handles have fixed sizes in the view, beyond the bounds of their items.
    setViewportUpdateMode(FullViewportUpdate);
    updateTheme();
    connectActions(actions);
    connect(m_scene, &CanvasScene::screensArranged, this, [this] {
        if (m_isFitted)
            showAll();
        describeSelection();
    });
    connect(m_scene, &CanvasScene::selectedLayerChanged, this, &CanvasView::describeSelection);
    connect(&selection, &Selection::layerChanged, this, [this] {
        if (LayerItem *const layer = hasFocus() ? m_scene->selectedLayer() : nullptr)
            announceLayer(*layer);
    });
    connect(m_scene, &CanvasScene::deviceStateChanged, this, [this] {
        if (m_isFitted)
            fit();
        describeSelection();
        viewport()->update();
    });
    connect(&selection, &Selection::deviceChanged, this, &CanvasView::fit);
    describeSelection();
}

CanvasView::~CanvasView() = default;

void CanvasView::connectActions(const Actions &actions)
{
    const auto on = [&](ActionId id, auto function) {
        connect(&actions.action(id), &QAction::triggered, this, function);
    };
    on(ActionId::ZoomIn, [this] { zoomIn(); });
    on(ActionId::ZoomOut, [this] { zoomOut(); });
    on(ActionId::ZoomFit, [this] { fit(); });
    on(ActionId::RaiseLayer, [this] { restackSelected(StackingMove::Raise); });
    on(ActionId::LowerLayer, [this] { restackSelected(StackingMove::Lower); });
    on(ActionId::RaiseToTop, [this] { restackSelected(StackingMove::ToTop); });
    on(ActionId::LowerToBottom, [this] { restackSelected(StackingMove::ToBottom); });
    on(ActionId::MoreOpaque, [this] { m_keys.changeOpacity(opacityStep); });
    on(ActionId::LessOpaque, [this] { m_keys.changeOpacity(-opacityStep); });
}

void CanvasView::restackSelected(StackingMove move)
{
    const LayerItem *const layer = m_scene->selectedLayer();
    if (layer && m_editor.canEdit(*layer))
        m_editor.restack(*CanvasScene::screenOf(*layer), *layer, move);
}

// Zoom

void CanvasView::zoomIn()
{
    zoom(zoomStep);
}

void CanvasView::zoomOut()
{
    zoom(1 / zoomStep);
}

void CanvasView::zoom(double factor)
{
    const QRectF all = m_scene->sceneRect();
    if (all.isEmpty())
        return;
    const double smallest =
        std::min(viewport()->width() / all.width(), viewport()->height() / all.height()) / 2;
    const double wanted =
        std::clamp(scale() * factor, std::min(smallest, largestScale), largestScale);
    m_isFitted = false;
    QGraphicsView::scale(wanted / scale(), wanted / scale());
}

void CanvasView::fit()
{
    m_isFitted = true;
    m_scene->arrangeFor(freeSize());
}

/// The size of the view without the hint below the screens.
QSizeF CanvasView::freeSize() const
{
    const bool hasHint = !m_scene->screens().isEmpty() && !hint().isEmpty();
    return QSizeF(viewport()->width(), viewport()->height() - (hasHint ? hintBarHeight : 0));
}

void CanvasView::showAll()
{
    const QRectF all = m_scene->sceneRect();
    if (all.isEmpty())
        return;
    const QSizeF free = freeSize();
    const double fitted = std::min(free.width() / all.width(), free.height() / all.height());
    setAlignment(free.height() < viewport()->height() ? Qt::AlignHCenter | Qt::AlignTop
                                                      : Qt::AlignCenter);
    setTransform(QTransform::fromScale(fitted, fitted));
}

void CanvasView::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    if (m_isFitted)
        fit();
}

void CanvasView::wheelEvent(QWheelEvent *event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QGraphicsView::wheelEvent(event);
        return;
    }
    setTransformationAnchor(AnchorUnderMouse);
    zoom(std::pow(zoomStep, event->angleDelta().y() / wheelNotch));
    setTransformationAnchor(AnchorViewCenter);
    event->accept();
}

// Mouse

LayerDragger::Pointer CanvasView::pointerOf(const QMouseEvent &event) const
{
    return {mapToScene(event.pos()), scale(), event.modifiers()};
}

void CanvasView::mousePressEvent(QMouseEvent *event)
{
    const bool isOnScreen = event->button() == Qt::LeftButton && m_dragger.press(pointerOf(*event));
    m_isPanning = !isOnScreen && (event->buttons() & (Qt::LeftButton | Qt::MiddleButton));
    m_panned = event->pos();
    event->accept();
}

void CanvasView::mouseMoveEvent(QMouseEvent *event)
{
    if (m_isPanning) {
        const QPoint way = event->pos() - m_panned;
        m_panned = event->pos();
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - way.x());
        verticalScrollBar()->setValue(verticalScrollBar()->value() - way.y());
    } else if (m_dragger.isActive()) {
        m_dragger.move(pointerOf(*event));
    } else {
        viewport()->setCursor(m_dragger.cursorAt(pointerOf(*event)));
    }
    event->accept();
}

void CanvasView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && m_dragger.isActive())
        m_dragger.release(pointerOf(*event));
    m_isPanning = false;
    event->accept();
}

void CanvasView::contextMenuEvent(QContextMenuEvent *event)
{
    LayerItem *layer = m_scene->selectedLayer();
    QPoint position = event->globalPos();
    if (event->reason() == QContextMenuEvent::Mouse) {
        layer = m_scene->layerAt(mapToScene(event->pos()));
        if (layer)
            m_selection.setLayer(layer->id());
    } else if (layer) {
        position = viewport()->mapToGlobal(mapFromScene(layer->sceneBoundingRect().center()));
    }
    if (!layer)
        return;
    auto *const menu = new LayerMenu(*m_scene, *layer, m_editor, m_actions, this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(position);
}

// Keyboard

bool CanvasView::event(QEvent *event)
{
    // Escape is a shortcut of the window, but ends a drag or deselects a layer first.
    if (event->type() == QEvent::ShortcutOverride
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape
        && (m_dragger.isActive() || m_selection.layer()))
        event->accept();
    return QGraphicsView::event(event);
}

bool CanvasView::focusNextPrevChild(bool next)
{
    return m_keys.selectNext(next) || QGraphicsView::focusNextPrevChild(next);
}

void CanvasView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && m_dragger.isActive())
        m_dragger.cancel();
    else if (event->key() == Qt::Key_Plus)
        zoomIn();
    else if (event->key() == Qt::Key_Minus)
        zoomOut();
    else if (!m_keys.press(*event))
        QGraphicsView::keyPressEvent(event);
}

// Appearance

void CanvasView::changeEvent(QEvent *event)
{
    QGraphicsView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        updateTheme();
}

void CanvasView::updateTheme()
{
    m_scene->setTheme(CanvasTheme::of(palette()));
}

void CanvasView::describeSelection()
{
    QStringList sentences;
    if (!hint().isEmpty())
        sentences << hint();
    const LayerItem *const layer = m_scene->selectedLayer();
    if (layer)
        sentences << CanvasScene::screenOf(*layer)->description(*layer);
    else if (!m_scene->screens().isEmpty())
        sentences << tr("No layer is selected.");
    setAccessibleDescription(sentences.join(QLatin1Char(' ')));
}

QString CanvasView::hint() const
{
    return canvasHint(m_selection.device(), !m_scene->screens().isEmpty());
}

void CanvasView::drawForeground(QPainter *painter, const QRectF & /*rect*/)
{
    const QString text = hint();
    const ViewPixels pixels(*painter);
    if (m_scene->screens().isEmpty())
        paintHint(*painter, viewport()->rect(), text, palette().color(QPalette::WindowText));
    else if (!text.isEmpty())
        paintHintBar(*painter, viewport()->rect(), text);
    if (hasFocus() && !m_scene->selectedLayer())
        paintFocus(*painter, viewport()->rect(), palette().color(QPalette::Highlight));
}

} // namespace Tavoro::Panel
