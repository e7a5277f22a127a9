#pragma once

#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/layer.h>
#include <tavoromodels/filesmodel.h>
#include <tavoromodels/interfacesmodel.h>
#include <tavoromodels/screensmodel.h>

#include <QList>
#include <QObject>
#include <QString>

#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
class QMimeData;
QT_END_NAMESPACE

namespace Tavoro::Panel {

using SourceId = ProtoModel::Layer::s_SourceGeneral;

/// Kinds of sources that the device model passes through.
enum OtherSource : qint32 {
    FileSource = 2, ///< The ID is that of a background image.
    ScreenSource = 3, ///< The ID is that of a screen; its programme is shown.
};

/// What a layer can show.
struct LayerSource {
    SourceId id; ///< As the record of a layer names it.
    QString name;
    QString format; ///< The format of its picture in words; empty if it has none.

    /// Name and format in one line.
    QString text() const;
};

/// True if both identify the same source.
bool isSame(const SourceId &one, const SourceId &other);
/// How a layer names an input.
SourceId sourceOf(const ProtoModel::s_InterfaceID &input);

/// The sources that a device has for its layers: inputs, screens, and images.
class LayerSources : public QObject {
    Q_OBJECT

public:
    explicit LayerSources(QObject *parent = nullptr);

    void setDevice(const std::weak_ptr<BizModel::Device> &device);
    const Models::InterfacesModel &inputs() const { return m_inputs; }

    /// All sources, after the entry for a layer without a source.
    QList<LayerSource> all() const;
    /// The source that \a id identifies; nothing if the device does not have it.
    std::optional<LayerSource> find(const SourceId &id) const;

Q_SIGNALS:
    /// A source has appeared or is gone, or has another name or format.
    void changed();

private:
    void follow(const QAbstractItemModel &model);

    Models::InterfacesModel m_inputs;
    Models::ScreensModel m_screens;
    Models::FilesModel m_images;
};

/// \name Dragging a source onto a layer
/// @{

/// The format of the dragged data.
QString sourceMimeType();
void setSource(QMimeData &data, const SourceId &source);
/// The source in dragged data; nothing if there is none.
std::optional<SourceId> sourceIn(const QMimeData &data);
/// @}

} // namespace Tavoro::Panel
