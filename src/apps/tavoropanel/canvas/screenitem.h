#pragma once

#include "layeritem.h"

#include <tavorocontrol/proto/screen.h>
#include <tavoromodels/layersmodel.h>

#include <QGraphicsObject>
#include <QList>

#include <memory>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Panel {

struct CanvasTheme;
class LayerSources;
class ScreenOverlay;

/// One screen in one scene: its title, its background, its layers and its outputs. The origin is
/// the upper left corner of the screen, and the unit is its pixel; the title is above.
class ScreenItem : public QGraphicsObject {
    Q_OBJECT

public:
    /// For qgraphicsitem_cast().
    enum {
        Type = UserType + 2
    };

    /// \a sources must exist as long as this object.
    ScreenItem(const std::weak_ptr<BizModel::Device> &device, const ProtoModel::s_ScreenId &screen,
               Scene scene, const LayerSources &sources);
    ~ScreenItem() override;

    const ProtoModel::s_ScreenId &id() const { return m_id; }
    Scene scene() const { return m_scene; }
    const ProtoModel::Screen::s_ScreenFullDetail &detail() const { return m_detail; }
    void setDetail(const ProtoModel::Screen::s_ScreenFullDetail &detail, const QString &name);

    /// The size of the screen in pixels.
    QSize size() const;
    /// Height of the title in pixels of the screen.
    void setHeaderHeight(double height);
    void setTheme(const CanvasTheme &theme);
    /// How the screen is selected.
    enum Choice {
        NotChosen, ///< It is not selected.
        OtherSceneChosen, ///< It is selected, and edits go to its other scene.
        Chosen, ///< It is selected, and edits go to this scene.
    };
    void setChoice(Choice choice);

    /// The layers, the bottom layer first.
    QList<LayerItem *> layers() const { return m_layers; }
    LayerItem *findLayer(const ProtoModel::Layer::s_LayerIdentity &id) const;
    /// What is shown of a layer, as a sentence that begins with the scene and the screen.
    QString description(const LayerItem &layer) const;
    /// Reads all layers again, after something changed that their rows do not contain.
    void refreshLayers();

    /// The conditions of the screen that differ from the usual: frozen, faded to black.
    QStringList conditions() const;
    /// "Preview" or "Programme".
    QString sceneName() const;
    /// The same in three letters.
    QString shortSceneName() const;
    /// Name of the screen.
    const QString &name() const { return m_name; }

    int type() const override { return Type; }
    QRectF boundingRect() const override;
    QRectF screenRect() const { return {{0, 0}, QSizeF(size())}; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

Q_SIGNALS:
    /// Layers were added or removed, or have another order.
    void layersChanged();

private:
    class Stage;
    void insertLayers(int first, int last);
    void removeLayers(int first, int last);
    void refreshLayers(int first, int last);
    void updateOrder();
    void paintTitle(QPainter &painter, const QRectF &area) const;

    const ProtoModel::s_ScreenId m_id;
    const Scene m_scene;
    const LayerSources &m_sources;
    ProtoModel::Screen::s_ScreenFullDetail m_detail;
    QString m_name;
    double m_headerHeight = 0;
    Choice m_choice = NotChosen;
    std::unique_ptr<CanvasTheme> m_theme;
    Models::LayersModel m_model;
    Stage *const m_stage; ///< Clips the layers to the screen; their parent.
    ScreenOverlay *const m_overlay;
    QList<LayerItem *> m_layers; ///< One for each row of the model.
};

} // namespace Tavoro::Panel
