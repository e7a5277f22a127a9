#include "layerkeys.h"

#include "canvasscene.h"
#include "layereditor.h"

#include <QGraphicsView>
#include <QKeyEvent>

#include <algorithm>
#include <chrono>

namespace Tavoro::Panel {

namespace {

constexpr std::chrono::milliseconds seriesPause(700);
constexpr int smallStep = 1;
constexpr int largeStep = 10;

/// The direction of an arrow key; null for another key.
QPoint directionOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

} // namespace

LayerKeys::LayerKeys(CanvasScene &scene, Selection &selection, LayerEditor &editor, QObject *parent)
    : QObject(parent), m_scene(scene), m_selection(selection), m_editor(editor)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(seriesPause);
    connect(&m_pause, &QTimer::timeout, this, &LayerKeys::endSeries);
    connect(&selection, &Selection::layerChanged, this, &LayerKeys::endSeries);
}

bool LayerKeys::press(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (event.key() == Qt::Key_Escape && m_selection.layer()) {
        m_selection.setLayer(std::nullopt);
        return true;
    }
    const QPoint direction = directionOf(event.key());
    if (direction.isNull() || modifiers.testFlag(Qt::AltModifier))
        return false;
    return m_scene.selectedLayer() ? nudge(direction, modifiers) : selectNeighbour(direction);
}

bool LayerKeys::nudge(const QPoint &way, Qt::KeyboardModifiers modifiers)
{
    LayerItem &layer = *m_scene.selectedLayer();
    if (layer.isLocked() || !m_editor.canEdit(layer))
        return true;
    const QPoint step = way * (modifiers.testFlag(Qt::ShiftModifier) ? largeStep : smallStep);
    const QRect window = layer.window();
    startSeries(layer);
    m_editor.setWindow(layer,
                       withinLimits(modifiers.testFlag(Qt::ControlModifier)
                                        ? resized(window, Qt::RightEdge | Qt::BottomEdge, step)
                                        : window.translated(step)));
    reveal();
    return true;
}

void LayerKeys::changeOpacity(int percent)
{
    LayerItem *const layer = m_scene.selectedLayer();
    if (!layer || !m_editor.canEdit(*layer))
        return;
    startSeries(*layer);
    m_editor.setOpacity(*layer, layer->opacityPercent() + percent);
}

void LayerKeys::startSeries(LayerItem &layer)
{
    if (m_edited != &layer)
        endSeries();
    m_edited = &layer;
    m_pause.start();
}

void LayerKeys::endSeries()
{
    m_pause.stop();
    if (m_edited) {
        m_editor.finishWindow(*m_edited);
        m_editor.finishOpacity(*m_edited);
    }
    m_edited.clear();
}

/// Scrolls a canvas that is larger than its view to the selected layer.
void LayerKeys::reveal() const
{
    const auto views = m_scene.views();
    for (QGraphicsView *const view : views)
        view->ensureVisible(m_scene.selectedLayer());
}

/// Left and right change the scene, up and down the screen.
bool LayerKeys::selectNeighbour(const QPoint &way)
{
    if (way.x() != 0) {
        m_selection.setScene(way.x() < 0 ? Scene::Preview : Scene::Programme);
        return true;
    }
    QList<ProtoModel::s_ScreenId> ids;
    const auto screens = m_scene.screens();
    for (const ScreenItem *const screen : screens) {
        if (screen->scene() == m_selection.scene())
            ids << screen->id();
    }
    if (ids.isEmpty())
        return false;
    const auto current = std::find_if(ids.begin(), ids.end(), [&](const auto &id) {
        return !m_selection.screens().isEmpty() && isSame(id, m_selection.screens().first());
    });
    const int last = static_cast<int>(ids.size()) - 1;
    const int index = current == ids.end() ? 0 : static_cast<int>(current - ids.begin()) + way.y();
    m_selection.setScreens({ids[std::clamp(index, 0, last)]});
    return true;
}

/// The top layer of each screen first.
QList<LayerItem *> LayerKeys::layersOfSelection() const
{
    QList<LayerItem *> found;
    const auto screens = m_scene.screens();
    for (const ScreenItem *const screen : screens) {
        if (screen->scene() != m_selection.scene() || !m_selection.contains(screen->id()))
            continue;
        const auto layers = screen->layers();
        for (auto layer = layers.rbegin(); layer != layers.rend(); ++layer)
            found << *layer;
    }
    return found;
}

bool LayerKeys::selectNext(bool isForward)
{
    QList<LayerItem *> layers = layersOfSelection();
    if (!isForward)
        std::reverse(layers.begin(), layers.end());
    auto next = layers.begin();
    if (LayerItem *const selected = m_scene.selectedLayer()) {
        next = std::find(layers.begin(), layers.end(), selected);
        if (next != layers.end())
            ++next;
    }
    if (next == layers.end())
        return false;
    m_selection.setLayer((*next)->id());
    reveal();
    return true;
}

} // namespace Tavoro::Panel
