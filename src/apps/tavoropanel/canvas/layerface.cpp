#include "layerface.h"

#include "layergeometry.h"

#include <tavoropanel/sources/layersources.h>

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/enums.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavoromodels/layersmodel.h>

namespace Tavoro::Panel {

namespace {

using ProtoModel::Layer::s_LayerFullDetail;

QColor toColor(const ProtoModel::Layer::s_RGBA &color)
{
    return {color.R, color.G, color.B, color.opacity * 255 / 100};
}

/// The name of a source that the device does not have.
QString missingSource(const SourceId &source)
{
    switch (source.type) {
    case BizModel::Enum::Layer::NoSource:
        return {};
    case FileSource:
        return LayerFace::tr("Image %1").arg(source.id);
    case ScreenSource:
        return LayerFace::tr("Screen %1").arg(source.id);
    default:
        return LayerFace::tr("Source %1/%2").arg(source.type).arg(source.id);
    }
}

/// The source of a layer that does not show an interface.
LayerSource otherSource(const SourceId &source, const LayerSources &sources)
{
    if (source.type != BizModel::Enum::Layer::NoSource) {
        if (const auto known = sources.find(source))
            return *known;
    }
    return {source, missingSource(source), {}};
}

} // namespace

QString sizeText(const QSize &size)
{
    return LayerFace::tr("%1 × %2").arg(size.width()).arg(size.height());
}

QString formatText(const ProtoModel::s_TimingDetailBody &timing)
{
    const QSize size(timing.horizontal.addTime, timing.vertical.addTime);
    if (size.isEmpty())
        return {};
    return (timing.interlaced != 0 ? LayerFace::tr("%1×%2i%3") : LayerFace::tr("%1×%2p%3"))
        .arg(size.width())
        .arg(size.height())
        .arg(timing.refresh);
}

LayerFace LayerFace::of(const Models::LayersModel &layers, const QModelIndex &index,
                        const LayerSources &sources)
{
    LayerFace face;
    const auto layer = layers.layer(index);
    if (!layer)
        return face;
    const s_LayerFullDetail detail = layer->detail();
    face.id = detail.layerIdenti;
    face.name = index.data().toString();
    face.window = toRect(detail.window);
    face.opacity = detail.opacity;
    face.sourceId = detail.source.general;
    face.hasSignal = index.data(layers.role("signal")).toBool();
    if (const auto input = layer->source().lock()) {
        face.source = index.data(layers.role("sourceName")).toString();
        face.format = formatText(input->detail().actualTiming);
    } else {
        const LayerSource source = otherSource(face.sourceId, sources);
        face.source = source.name;
        face.format = source.format;
    }
    face.isBackground = detail.general.isBackground != 0;
    face.isFrozen = detail.general.isFreeze != 0;
    if (detail.border.enable != 0) {
        face.border = toColor(detail.border.color);
        face.borderSize = {detail.border.size.vWidth, detail.border.size.hWidth};
    }
    if (detail.testColor.enable != 0)
        face.testColor = QColor(detail.testColor.R, detail.testColor.G, detail.testColor.B);
    return face;
}

QStringList LayerFace::lines() const
{
    QStringList lines{source.isEmpty() ? tr("No source") : source};
    if (!format.isEmpty())
        lines << format;
    const QString state = conditions().join(QStringLiteral(" · "));
    if (!state.isEmpty())
        lines << state;
    return lines << name;
}

QStringList LayerFace::conditions() const
{
    QStringList conditions;
    if (!source.isEmpty() && !hasSignal)
        conditions << tr("No signal");
    if (isFrozen)
        conditions << tr("Frozen");
    if (testColor.isValid())
        conditions << tr("Test colour");
    if (opacity != 100)
        conditions << tr("Opacity %1 %").arg(opacity);
    return conditions;
}

QString LayerFace::description() const
{
    QStringList parts{source.isEmpty() ? tr("no source") : source};
    if (!format.isEmpty())
        parts << format;
    parts << conditions();
    parts << tr("%1 at %2, %3").arg(sizeText(window.size())).arg(window.x()).arg(window.y());
    return tr("%1: %2").arg(name, parts.join(QStringLiteral(", ")));
}

} // namespace Tavoro::Panel
