#include "layerdragger.h"

#include "canvasscene.h"
#include "layereditor.h"
#include "layergeometry.h"
#include "selectionframe.h"

#include <cmath>

namespace Tavoro::Panel {

namespace {

constexpr double startDistance =
    4; ///< The pointer must move so far to drag, in pixels of the view.
constexpr double snapDistance = 8; ///< In pixels of the view.

} // namespace

LayerDragger::LayerDragger(CanvasScene &scene, Selection &selection, LayerEditor &editor,
                           QObject *parent)
    : QObject(parent), m_scene(scene), m_selection(selection), m_editor(editor)
{
    // A device that refuses one position refuses the next ones as well.
    connect(&editor, &LayerEditor::windowFailed, this, [this](const LayerItem *layer) {
        if (layer == m_layer)
            end();
    });
}

bool LayerDragger::press(const Pointer &pointer)
{
    if (m_drag)
        return true;
    if (const Qt::Edges handle = m_scene.frame().handleAt(pointer.position, pointer.scale)) {
        start(*m_scene.frame().layer(), handle, pointer);
        return true;
    }
    if (LayerItem *const layer = m_scene.layerAt(pointer.position)) {
        m_selection.setLayer(layer->id());
        if (!layer->isLocked())
            start(*layer, {}, pointer);
        return true;
    }
    if (!m_scene.screenAt(pointer.position))
        return false;
    selectScreen(pointer.position, pointer.modifiers);
    return true;
}

void LayerDragger::selectScreen(const QPointF &position, Qt::KeyboardModifiers modifiers)
{
    const ScreenItem *const screen = m_scene.screenAt(position);
    m_selection.setLayer(std::nullopt);
    m_selection.setScene(screen->scene());
    if (modifiers.testFlag(Qt::ControlModifier))
        m_selection.setScreenSelected(screen->id(), !m_selection.contains(screen->id()));
    else
        m_selection.setScreens({screen->id()});
}

void LayerDragger::start(LayerItem &layer, Qt::Edges handle, const Pointer &pointer)
{
    m_layer = &layer;
    m_pressed = pointer.position;
    m_hasMoved = false;
    m_drag.emplace(layer.window(), handle, pointer.position, linesFor(layer));
}

/// The layer snaps to its screen, to the outputs and to the other layers of the scene.
SnapLines LayerDragger::linesFor(const LayerItem &layer) const
{
    SnapLines lines;
    const ScreenItem *const screen = CanvasScene::screenOf(layer);
    const QRect whole({0, 0}, screen->size());
    lines.addEdges(whole);
    lines.addCentre(whole);
    for (const auto &output : screen->detail().mosaic.outputs)
        lines.addEdges({output.pos.x, output.pos.y, output.crop.width, output.crop.height});
    const auto layers = screen->layers();
    for (const LayerItem *const other : layers) {
        if (other != &layer)
            lines.addEdges(other->window());
    }
    return lines;
}

void LayerDragger::move(const Pointer &pointer)
{
    if (!m_drag)
        return;
    if (!m_layer) {
        end(); // the layer was removed
        return;
    }
    if (!m_hasMoved) {
        const QPointF way = (pointer.position - m_pressed) * pointer.scale;
        if (std::hypot(way.x(), way.y()) < startDistance)
            return;
        if (!m_editor.canEdit(*m_layer)) {
            end();
            return;
        }
        m_hasMoved = true;
    }
    apply(pointer);
}

void LayerDragger::apply(const Pointer &pointer)
{
    const bool snaps = !pointer.modifiers.testFlag(Qt::ControlModifier);
    const int distance = snaps ? static_cast<int>(std::lround(snapDistance / pointer.scale)) : 0;
    const SnappedRect snapped =
        m_drag->at(pointer.position, {distance, pointer.modifiers.testFlag(Qt::ShiftModifier)});
    m_editor.setWindow(*m_layer, snapped.rect);
    m_scene.frame().showDrag(snapped);
}

void LayerDragger::release(const Pointer &pointer)
{
    move(pointer);
    end();
}

void LayerDragger::cancel()
{
    if (m_drag && m_layer && m_hasMoved)
        m_editor.setWindow(*m_layer, m_drag->start());
    end();
}

void LayerDragger::end()
{
    if (m_layer && m_hasMoved)
        m_editor.finishWindow(*m_layer);
    m_scene.frame().hideDrag();
    m_drag.reset();
    m_layer.clear();
    m_hasMoved = false;
}

Qt::CursorShape LayerDragger::cursorAt(const Pointer &pointer) const
{
    if (const Qt::Edges handle = m_scene.frame().handleAt(pointer.position, pointer.scale))
        return cursorOf(handle);
    const LayerItem *const layer = m_scene.layerAt(pointer.position);
    return layer && !layer->isLocked() && m_selection.canWrite() ? Qt::SizeAllCursor
                                                                 : Qt::ArrowCursor;
}

} // namespace Tavoro::Panel
