#pragma once

#include "canvastheme.h"
#include "screenitem.h"
#include "screenplacement.h"

#include <tavoropanel/selection/selection.h>
#include <tavoropanel/sources/layersources.h>

#include <tavoromodels/screensmodel.h>

#include <QGraphicsScene>
#include <QList>

namespace Tavoro::Panel {

class SelectionFrame;

/// The screens of the selected device: on the left their previews, on the right their programmes,
/// both in the layout of the device. Follows the selection and the device model.
class CanvasScene : public QGraphicsScene {
    Q_OBJECT

public:
    CanvasScene(Selection &selection, QObject *parent);
    ~CanvasScene() override;

    void setTheme(const CanvasTheme &theme);
    /// Arranges the screens so that they fill a view of this size as well as they can, with titles
    /// that are legible there.
    void arrangeFor(const QSizeF &view);

    /// The items, the previews first, both in the order of the device.
    QList<ScreenItem *> screens() const;
    ScreenItem *screenAt(const QPointF &position) const;
    /// The topmost layer at a position; null if there is none.
    LayerItem *layerAt(const QPointF &position) const;
    LayerItem *findLayer(const Selection::LayerId &id) const;
    /// The item of the selected layer; null if there is none.
    LayerItem *selectedLayer() const;
    static ScreenItem *screenOf(const LayerItem &layer);
    SelectionFrame &frame() const { return *m_frame; }
    /// What layers can show.
    const LayerSources &sources() const { return m_sources; }

Q_SIGNALS:
    /// Screens were added or removed, or have another size or place.
    void screensArranged();
    /// The state of the selected device has changed.
    void deviceStateChanged();
    /// The selected layer, or what is shown of it, has changed.
    void selectedLayerChanged();

private:
    /// Both scenes of a screen.
    struct Pair {
        ScreenItem *preview;
        ScreenItem *programme;
    };

    void followDevice();
    void setModelDevice();
    void insertScreens(int first, int last);
    void removeScreens(int first, int last);
    void refreshScreens(int first, int last);
    void arrange();
    ScreenItem *addScreen(const ProtoModel::s_ScreenId &id, Scene scene);
    void updateChosen();
    void updateFrame();
    std::vector<QRectF> layout() const;

    Selection &m_selection;
    QList<QMetaObject::Connection> m_deviceConnections;
    CanvasTheme m_theme;
    Models::ScreensModel m_screens;
    LayerSources m_sources;
    QList<Pair> m_pairs; ///< One for each row of the model.
    SelectionFrame *const m_frame;
    QSizeF m_viewSize{1280, 720};
};

} // namespace Tavoro::Panel
