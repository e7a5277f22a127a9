#include "screenitem.h"

#include "canvastext.h"
#include "canvastheme.h"
#include "screenoverlay.h"

#include <tavorobizmodel/layer.h>

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace Tavoro::Panel {

namespace {

constexpr double frameWidth = 3; ///< In pixels of the view.
constexpr qreal overlayHeight = 1000; ///< Above all layers.

} // namespace

/// The area in which layers are visible.
class ScreenItem::Stage : public QGraphicsItem {
public:
    explicit Stage(QGraphicsItem *parent) : QGraphicsItem(parent)
    {
        setFlags(ItemClipsChildrenToShape | ItemHasNoContents);
    }
    void setSize(const QSizeF &size)
    {
        prepareGeometryChange();
        m_size = size;
    }
    QRectF boundingRect() const override { return {{0, 0}, m_size}; }
    void paint(QPainter * /*painter*/, const QStyleOptionGraphicsItem * /*option*/,
               QWidget * /*widget*/) override
    { }

private:
    QSizeF m_size;
};

ScreenItem::ScreenItem(const std::weak_ptr<BizModel::Device> &device,
                       const ProtoModel::s_ScreenId &screen, Scene scene,
                       const LayerSources &sources)
    : m_id(screen),
      m_scene(scene),
      m_sources(sources),
      m_theme(std::make_unique<CanvasTheme>()),
      m_stage(new Stage(this)),
      m_overlay(new ScreenOverlay(this, m_layers))
{
    m_overlay->setZValue(overlayHeight);
    connect(&m_model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex &, int first, int last) { insertLayers(first, last); });
    connect(&m_model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex &, int first, int last) { removeLayers(first, last); });
    connect(&m_model, &QAbstractItemModel::rowsMoved, this, [this] { updateOrder(); });
    connect(&m_model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &first, const QModelIndex &last) {
                refreshLayers(first.row(), last.row());
            });
    m_model.setDevice(device);
    m_model.setScene(screen, static_cast<int>(scene));
}

ScreenItem::~ScreenItem() = default;

void ScreenItem::setDetail(const ProtoModel::Screen::s_ScreenFullDetail &detail,
                           const QString &name)
{
    prepareGeometryChange();
    m_detail = detail;
    m_name = name;
    m_stage->setSize(size());
    m_overlay->setScreen(detail, m_scene);
    setToolTip(tr("%1, %2").arg(name, sceneName()));
    update();
}

QSize ScreenItem::size() const
{
    const auto &window = m_detail.mosaic.window;
    return {std::max(1, window.width), std::max(1, window.height)};
}

void ScreenItem::setHeaderHeight(double height)
{
    prepareGeometryChange();
    m_headerHeight = height;
}

void ScreenItem::setTheme(const CanvasTheme &theme)
{
    *m_theme = theme;
    update();
}

void ScreenItem::setChoice(Choice choice)
{
    m_choice = choice;
    update();
}

LayerItem *ScreenItem::findLayer(const ProtoModel::Layer::s_LayerIdentity &id) const
{
    const auto found = std::find_if(m_layers.begin(), m_layers.end(), [&](const LayerItem *layer) {
        return isSame(layer->id(), id);
    });
    return found == m_layers.end() ? nullptr : *found;
}

QString ScreenItem::description(const LayerItem &layer) const
{
    return tr("%1, %2, %3").arg(sceneName(), m_name, layer.shownFace().description());
}

void ScreenItem::insertLayers(int first, int last)
{
    for (int row = first; row <= last; ++row) {
        auto *const layer = new LayerItem(m_stage);
        m_layers.insert(row, layer);
        layer->setFace(LayerFace::of(m_model, m_model.index(row), m_sources));
    }
    updateOrder();
}

void ScreenItem::removeLayers(int first, int last)
{
    for (int row = last; row >= first; --row)
        delete m_layers.takeAt(row);
    updateOrder();
}

void ScreenItem::refreshLayers(int first, int last)
{
    for (int row = first; row <= last; ++row)
        m_layers[row]->setFace(LayerFace::of(m_model, m_model.index(row), m_sources));
}

void ScreenItem::refreshLayers()
{
    refreshLayers(0, static_cast<int>(m_layers.size()) - 1);
}

/// Sorts the items as the rows of the model, which are in stacking order.
void ScreenItem::updateOrder()
{
    const auto rowOf = [this](const LayerItem *item) {
        for (int row = 0; row < m_model.rowCount(); ++row) {
            const auto layer = m_model.layer(m_model.index(row));
            if (layer && isSame(layer->identity(), item->id()))
                return row;
        }
        return -1;
    };
    std::stable_sort(m_layers.begin(), m_layers.end(),
                     [&](const auto *one, const auto *other) { return rowOf(one) < rowOf(other); });
    for (int row = 0; row < m_layers.size(); ++row)
        m_layers[row]->setZValue(row);
    Q_EMIT layersChanged();
}

QStringList ScreenItem::conditions() const
{
    QStringList conditions;
    if (m_scene != Scene::Programme)
        return conditions;
    if (m_detail.freeze != 0)
        conditions << tr("Frozen");
    if (m_detail.FTB.enable != 0)
        conditions << tr("Faded to black");
    if (m_detail.testPattern.enable != 0)
        conditions << tr("Test pattern");
    return conditions;
}

QString ScreenItem::sceneName() const
{
    return m_scene == Scene::Programme ? tr("Programme") : tr("Preview");
}

QString ScreenItem::shortSceneName() const
{
    return m_scene == Scene::Programme ? tr("PGM") : tr("PVW");
}

QRectF ScreenItem::boundingRect() const
{
    // The frame is at most as wide as the title is high.
    const double frame = m_headerHeight / 4;
    return screenRect().adjusted(-frame, -m_headerHeight, frame, frame);
}

void ScreenItem::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/,
                       QWidget * /*widget*/)
{
    const auto &background = m_detail.backgroundColor;
    painter->fillRect(screenRect(), QColor(background.R, background.G, background.B));

    const ViewPixels pixels(*painter);
    const QColor frame = m_scene == Scene::Programme ? m_theme->programme : m_theme->preview;
    const double outside = frameWidth / 2;
    painter->setPen(QPen(frame, frameWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(pixels.mapped(screenRect()).adjusted(-outside, -outside, outside, outside));
    const QRectF screen = screenRect();
    QRectF title =
        pixels.mapped(QRectF(screen.left(), -m_headerHeight, screen.width(), m_headerHeight));
    paintTitle(*painter, title.adjusted(-frameWidth, 2, frameWidth, -frameWidth - 2));
}

void ScreenItem::paintTitle(QPainter &painter, const QRectF &area) const
{
    constexpr double highest = 34;
    QRectF line = area;
    line.setTop(std::max(area.top(), area.bottom() - highest));
    if (line.height() < 8)
        return;
    constexpr double narrow = 320; // no space for a name after the long form
    const bool isProgramme = m_scene == Scene::Programme;
    line = paintLabel(painter, line, line.width() < narrow ? shortSceneName() : sceneName(),
                      isProgramme ? m_theme->programme : m_theme->preview, m_theme->label);
    const QStringList states = conditions();
    for (const QString &condition : states)
        line = paintLabel(painter, line, condition, m_theme->title, m_theme->canvas);
    const int pixels = static_cast<int>(line.height() * 0.62);
    const QString name = m_choice == NotChosen ? m_name : tr("✓ %1").arg(m_name);
    if (m_choice == Chosen)
        line = paintLabel(painter, line, name, m_theme->highlight, m_theme->highlightText);
    else
        line = paintLine(painter, line, name, canvasFont(pixels, m_choice != NotChosen),
                         m_theme->title);
    const QFont small = canvasFont(pixels * 4 / 5);
    const QString resolution = sizeText(size());
    if (QFontMetricsF(small).horizontalAdvance(resolution) <= line.width())
        paintLine(painter, line, resolution, small, m_theme->detail);
}

} // namespace Tavoro::Panel
