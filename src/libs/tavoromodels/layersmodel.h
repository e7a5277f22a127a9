#pragma once

#include <tavorocontrol/proto/identities.h>
#include <tavoromodels/contentsmodel.h>
#include <tavoromodels/export.h>

#include <memory>

namespace Tavoro::BizModel {
class Layer;
}

namespace Tavoro::Models {

/// The layers of a screen and scene, in stacking order: the bottom layer is the first row.
///
/// The keys are those of ProtoModel::Layer::s_LayerFullDetail. Further roles: \c signal, which is
/// true if the layer shows a source that has a picture; \c sourceName, the name of the interface
/// that the layer shows.
class TAVOROMODELS_EXPORT LayersModel : public ContentsModel {
    Q_OBJECT

public:
    /// Creates a model that shows nothing until setDevice() and setScene() are called.
    explicit LayersModel(QObject *parent = nullptr);
    ~LayersModel() override;

    /// Shows the layers of this screen and scene (2 preview, 4 programme). The screen may be
    /// created later.
    void setScene(const ProtoModel::s_ScreenId &screen, int sceneType);

    /// The layer of a row; empty if \a index is not valid.
    std::shared_ptr<BizModel::Layer> layer(const QModelIndex &index) const;
};

} // namespace Tavoro::Models
