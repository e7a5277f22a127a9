#include "canvasscene.h"

#include "selectionframe.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/screen.h>
#include <tavorosession/devicesession.h>

#include <algorithm>

namespace Tavoro::Panel {

namespace {

constexpr double titlePixels = 34; ///< Height of titles in the view.
constexpr double gapPixels = 14; ///< Between screens in the view.
constexpr double middlePixels = 28; ///< Between preview and programme in the view.

} // namespace

CanvasScene::CanvasScene(Selection &selection, QObject *parent)
    : QGraphicsScene(parent), m_selection(selection), m_frame(new SelectionFrame)
{
    // The items of a device are few, and all of them move.
    setItemIndexMethod(NoIndex);
    addItem(m_frame);

    connect(&m_screens, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex &, int first, int last) { insertScreens(first, last); });
    connect(&m_screens, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex &, int first, int last) { removeScreens(first, last); });
    connect(&m_screens, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &first, const QModelIndex &last) {
                refreshScreens(first.row(), last.row());
            });
    connect(&m_screens, &QAbstractItemModel::rowsMoved, this,
            [this](const QModelIndex &, int from, int last, const QModelIndex &, int to) {
                for (int row = from; row <= last; ++row)
                    m_pairs.move(to > from ? from : row, to > from ? to - 1 : to + row - from);
                arrange();
            });
    // The rows of the layers do not contain the formats of their sources.
    connect(&m_sources, &LayerSources::changed, this, [this] {
        for (ScreenItem *const screen : screens())
            screen->refreshLayers();
    });

    connect(&selection, &Selection::deviceChanged, this, &CanvasScene::followDevice);
    connect(&selection, &Selection::screensChanged, this, &CanvasScene::updateChosen);
    connect(&selection, &Selection::sceneChanged, this, &CanvasScene::updateChosen);
    connect(&selection, &Selection::layerChanged, this, &CanvasScene::updateFrame);
    connect(&selection, &Selection::canWriteChanged, this,
            [this] { m_frame->setEditable(m_selection.canWrite()); });
    followDevice();
}

CanvasScene::~CanvasScene()
{
    m_frame->setLayer(nullptr);
}

void CanvasScene::followDevice()
{
    for (const auto &connection : qAsConst(m_deviceConnections))
        disconnect(connection);
    m_deviceConnections.clear();
    if (auto *const device = m_selection.device()) {
        m_deviceConnections << connect(device, &DeviceSession::deviceChanged, this,
                                       &CanvasScene::setModelDevice)
                            << connect(device, &DeviceSession::stateChanged, this,
                                       &CanvasScene::deviceStateChanged);
    }
    setModelDevice();
    m_frame->setEditable(m_selection.canWrite());
}

/// The device is in the model only after its first connection.
void CanvasScene::setModelDevice()
{
    auto *const session = m_selection.device();
    const auto device = session ? session->device() : nullptr;
    if (m_screens.device().lock() == device)
        return;
    // Rows of the former device first: two devices may have objects of the same identity.
    m_screens.setDevice({});
    m_sources.setDevice(device);
    m_screens.setDevice(device);
}

ScreenItem *CanvasScene::addScreen(const ProtoModel::s_ScreenId &id, Scene scene)
{
    auto *const item = new ScreenItem(m_screens.device(), id, scene, m_sources);
    item->setTheme(m_theme);
    addItem(item);
    connect(item, &ScreenItem::layersChanged, this, &CanvasScene::updateFrame);
    return item;
}

void CanvasScene::insertScreens(int first, int last)
{
    for (int row = first; row <= last; ++row) {
        const auto screen = m_screens.screen(m_screens.index(row));
        const ProtoModel::s_ScreenId id = screen ? screen->detail() : ProtoModel::s_ScreenId();
        m_pairs.insert(row, {addScreen(id, Scene::Preview), addScreen(id, Scene::Programme)});
    }
    refreshScreens(first, last);
    updateChosen();
    updateFrame();
}

void CanvasScene::removeScreens(int first, int last)
{
    m_frame->setLayer(nullptr);
    for (int row = last; row >= first; --row) {
        const Pair pair = m_pairs.takeAt(row);
        delete pair.preview;
        delete pair.programme;
    }
    arrange();
    updateFrame();
}

void CanvasScene::refreshScreens(int first, int last)
{
    for (int row = first; row <= last; ++row) {
        const QModelIndex index = m_screens.index(row);
        const auto screen = m_screens.screen(index);
        if (!screen)
            continue;
        for (ScreenItem *const item : {m_pairs[row].preview, m_pairs[row].programme})
            item->setDetail(screen->detail(), index.data().toString());
    }
    arrange();
}

void CanvasScene::arrangeFor(const QSizeF &view)
{
    m_viewSize = view;
    arrange();
}

std::vector<QRectF> CanvasScene::layout() const
{
    std::vector<QRectF> rects;
    for (const Pair &pair : m_pairs) {
        const auto &place = pair.preview->detail().layout;
        rects.emplace_back(QPointF(place.x, place.y), QSizeF(pair.preview->size()));
    }
    return rects;
}

void CanvasScene::arrange()
{
    const std::vector<QRectF> rects = layout();
    // Titles and gaps have fixed sizes in the view, so they depend on the scale, which depends on
    // them; the second round is exact enough.
    double scale = 1;
    ScreenMargins margins;
    double middle = 0;
    QRectF bounds;
    for (int round = 0; round < 3 && !rects.empty(); ++round) {
        bounds = placedBounds(rects, margins);
        scale = std::min(m_viewSize.width() / (2 * bounds.width() + middle),
                         m_viewSize.height() / bounds.height());
        margins = {titlePixels / scale, gapPixels / scale};
        middle = middlePixels / scale;
    }
    bounds = placedBounds(rects, margins);
    const std::vector<QRectF> placed = placedScreens(rects, margins);
    for (int row = 0; row < m_pairs.size(); ++row) {
        const QPointF place = placed[static_cast<std::size_t>(row)].topLeft();
        m_pairs[row].preview->setHeaderHeight(margins.header);
        m_pairs[row].programme->setHeaderHeight(margins.header);
        m_pairs[row].preview->setPos(place);
        m_pairs[row].programme->setPos(place + QPointF(bounds.width() + middle, 0));
    }
    m_frame->follow();
    const double frame = margins.header / 4; // as wide as the items
    setSceneRect(QRectF(0, 0, 2 * bounds.width() + middle, bounds.height())
                     .adjusted(-frame, -frame, frame, frame));
    Q_EMIT screensArranged();
}

void CanvasScene::setTheme(const CanvasTheme &theme)
{
    m_theme = theme;
    for (ScreenItem *const screen : screens())
        screen->setTheme(theme);
    m_frame->setColor(theme.highlight);
    setBackgroundBrush(theme.canvas);
}

QList<ScreenItem *> CanvasScene::screens() const
{
    QList<ScreenItem *> items;
    for (const Pair &pair : m_pairs)
        items << pair.preview;
    for (const Pair &pair : m_pairs)
        items << pair.programme;
    return items;
}

ScreenItem *CanvasScene::screenAt(const QPointF &position) const
{
    const auto all = screens();
    for (ScreenItem *const screen : all) {
        if (screen->sceneBoundingRect().contains(position))
            return screen;
    }
    return nullptr;
}

LayerItem *CanvasScene::layerAt(const QPointF &position) const
{
    const auto all = items(position);
    for (QGraphicsItem *const item : all) {
        if (auto *const layer = qgraphicsitem_cast<LayerItem *>(item))
            return layer;
    }
    return nullptr;
}

LayerItem *CanvasScene::findLayer(const Selection::LayerId &id) const
{
    const auto all = screens();
    for (const ScreenItem *const screen : all) {
        if (!isSame(screen->id(), id) || static_cast<int>(screen->scene()) != id.sceneType)
            continue;
        return screen->findLayer(id);
    }
    return nullptr;
}

LayerItem *CanvasScene::selectedLayer() const
{
    return m_selection.layer() ? findLayer(*m_selection.layer()) : nullptr;
}

ScreenItem *CanvasScene::screenOf(const LayerItem &layer)
{
    return static_cast<ScreenItem *>(layer.parentItem()->parentItem());
}

void CanvasScene::updateChosen()
{
    for (ScreenItem *const screen : screens()) {
        const auto choice = screen->scene() == m_selection.scene() ? ScreenItem::Chosen
                                                                   : ScreenItem::OtherSceneChosen;
        screen->setChoice(m_selection.contains(screen->id()) ? choice : ScreenItem::NotChosen);
    }
}

void CanvasScene::updateFrame()
{
    LayerItem *const layer = selectedLayer();
    if (layer != m_frame->layer()) {
        m_frame->setLayer(layer);
        if (layer)
            connect(layer, &LayerItem::shownChanged, this, &CanvasScene::selectedLayerChanged,
                    Qt::UniqueConnection);
    }
    Q_EMIT selectedLayerChanged();
}

} // namespace Tavoro::Panel
