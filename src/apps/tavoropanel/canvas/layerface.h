#pragma once

#include <tavoropanel/selection/identity.h>

#include <QColor>
#include <QCoreApplication>
#include <QModelIndex>
#include <QRect>
#include <QString>
#include <QStringList>

namespace Tavoro::Models {
class LayersModel;
}

namespace Tavoro::Panel {

class LayerSources;

/// What the canvas shows of a layer. A value.
struct LayerFace {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::Panel::LayerFace)

public:
    ProtoModel::Layer::s_LayerIdentity id;
    QString name; ///< Name of the layer, or its number.
    QRect window; ///< In pixels of the screen.
    int opacity = 100; ///< Percent.
    QString source; ///< Name of the source; empty if there is none.
    QString format; ///< Picture format of the source; empty if it is not known.
    ProtoModel::Layer::s_SourceGeneral sourceId;
    bool hasSignal = false; ///< The source has a picture.
    bool isBackground = false;
    bool isFrozen = false;
    QColor border; ///< Not valid if the layer has no border.
    QSize borderSize; ///< In pixels of the screen.
    QColor testColor; ///< Shown instead of the source; not valid if it is off.

    /// Reads the face of a row.
    static LayerFace of(const Models::LayersModel &layers, const QModelIndex &index,
                        const LayerSources &sources);

    /// The lines on the layer: what it shows first.
    QStringList lines() const;
    /// The conditions that differ from the usual: frozen, no signal, opacity.
    QStringList conditions() const;
    /// All of it as a sentence, for screen readers and tool tips.
    QString description() const;
};

/// A picture format such as "1920×1080p60"; empty without a picture.
QString formatText(const ProtoModel::s_TimingDetailBody &timing);
/// A size such as "1920 × 1080".
QString sizeText(const QSize &size);

} // namespace Tavoro::Panel
