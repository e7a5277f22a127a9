#include "canvasaccessible.h"

#include "canvasscene.h"

#include <QAccessibleObject>
#include <QAccessibleWidget>
#include <QGraphicsView>

namespace Tavoro::Panel {

namespace {

QGraphicsView *viewOf(const LayerItem &layer)
{
    return layer.scene() ? layer.scene()->views().value(0) : nullptr;
}

CanvasScene *canvasOf(const QGraphicsView &view)
{
    return qobject_cast<CanvasScene *>(view.scene());
}

/// One layer, as an item of the list that the canvas is.
class AccessibleLayer : public QAccessibleObject {
public:
    explicit AccessibleLayer(LayerItem *layer) : QAccessibleObject(layer) { }

    LayerItem &layer() const { return *static_cast<LayerItem *>(object()); }

    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(viewOf(layer()));
    }
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text text) const override
    {
        return text == QAccessible::Name ? CanvasScene::screenOf(layer())->description(layer())
                                         : QString();
    }
    QRect rect() const override
    {
        const QGraphicsView *const view = viewOf(layer());
        if (!view)
            return {};
        const QRect area = view->mapFromScene(layer().sceneBoundingRect()).boundingRect();
        return {view->viewport()->mapToGlobal(area.topLeft()), area.size()};
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        const QGraphicsView *const view = viewOf(layer());
        const bool isSelected = view && canvasOf(*view)->selectedLayer() == &layer();
        state.selectable = true;
        state.focusable = true;
        state.selected = isSelected;
        state.focused = isSelected && view->hasFocus();
        return state;
    }
};

/// The canvas, as a list of the layers of all screens.
class AccessibleCanvas : public QAccessibleWidget {
public:
    explicit AccessibleCanvas(QGraphicsView *view) : QAccessibleWidget(view, QAccessible::List) { }

    QAccessibleInterface *child(int index) const override
    {
        return QAccessible::queryAccessibleInterface(layers().value(index));
    }
    int childCount() const override { return static_cast<int>(layers().size()); }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return static_cast<int>(layers().indexOf(static_cast<LayerItem *>(child->object())));
    }
    QAccessibleInterface *focusChild() const override
    {
        return QAccessible::queryAccessibleInterface(canvas().selectedLayer());
    }

private:
    CanvasScene &canvas() const { return *canvasOf(*static_cast<QGraphicsView *>(widget())); }
    QList<LayerItem *> layers() const
    {
        QList<LayerItem *> all;
        const auto screens = canvas().screens();
        for (const ScreenItem *const screen : screens)
            all << screen->layers();
        return all;
    }
};

QAccessibleInterface *makeInterface(const QString & /*className*/, QObject *object)
{
    auto *const view = qobject_cast<QGraphicsView *>(object);
    if (view && canvasOf(*view))
        return new AccessibleCanvas(view);
    if (auto *const layer = qobject_cast<LayerItem *>(object))
        return new AccessibleLayer(layer);
    return nullptr;
}

} // namespace

void installCanvasAccessibility()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(isInstalled);
}

void announceLayer(LayerItem &layer)
{
    QAccessibleEvent event(&layer, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

} // namespace Tavoro::Panel
