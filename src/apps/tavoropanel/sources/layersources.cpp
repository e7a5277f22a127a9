#include "layersources.h"

#include "formattexts.h"

#include <tavorobizmodel/enums.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/screen.h>

#include <QCoreApplication>
#include <QMimeData>

#include <algorithm>

namespace Tavoro::Panel {

namespace {

using BizModel::Enum::Layer::InterfaceSource;
using BizModel::Enum::Layer::NoSource;

constexpr int inputInterfaces = 1; // general.type of an interface

/// The screens with a programme.
constexpr int screenTypes =
    1 << BizModel::Enum::Screen::OrdinaryScreen | 1 << BizModel::Enum::Screen::MosaicScreen;

LayerSource layerSource(const QModelIndex &index, const BizModel::Interface &input)
{
    return {sourceOf(input.interfaceId()), index.data().toString(),
            timingText(input.detail().actualTiming)};
}

LayerSource layerSource(const QModelIndex &index, const BizModel::Screen &screen)
{
    const auto &window = screen.detail().mosaic.window;
    return {{ScreenSource, screen.screenId()},
            LayerSources::tr("Screen %1").arg(index.data().toString()),
            sizeText(window.width, window.height)};
}

LayerSource layerSource(const QModelIndex &index, const BizModel::File &image)
{
    const auto size = image.listEntry().size;
    return {{FileSource, static_cast<quint32>(image.identity().fileId)},
            LayerSources::tr("Image %1").arg(index.data().toString()),
            sizeText(size.width, size.height)};
}

/// Adds a source for each row of a model.
template <class Model, class Object>
void add(QList<LayerSource> &sources, const Model &model,
         std::shared_ptr<Object> (Model::*objectOf)(const QModelIndex &) const)
{
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row);
        if (const auto object = (model.*objectOf)(index))
            sources << layerSource(index, *object);
    }
}

} // namespace

QString LayerSource::text() const
{
    //: Name of a source, and the format of its picture
    return format.isEmpty() ? name : LayerSources::tr("%1 – %2").arg(name, format);
}

bool isSame(const SourceId &one, const SourceId &other)
{
    return one.type == other.type && (one.type == NoSource || one.id == other.id);
}

SourceId sourceOf(const ProtoModel::s_InterfaceID &input)
{
    return {InterfaceSource,
            static_cast<quint32>(input.slotId) << 16U
                | static_cast<quint32>(input.connectorId) << 8U
                | static_cast<quint32>(input.splitId)};
}

LayerSources::LayerSources(QObject *parent) : QObject(parent)
{
    m_inputs.setInterfaceType(inputInterfaces);
    m_screens.setScreenTypes(screenTypes);
    m_images.setFileType(BizModel::Enum::File::Background);
    follow(m_inputs);
    follow(m_screens);
    follow(m_images);
}

void LayerSources::follow(const QAbstractItemModel &model)
{
    connect(&model, &QAbstractItemModel::rowsInserted, this, &LayerSources::changed);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, &LayerSources::changed);
    connect(&model, &QAbstractItemModel::rowsMoved, this, &LayerSources::changed);
    connect(&model, &QAbstractItemModel::dataChanged, this, &LayerSources::changed);
}

void LayerSources::setDevice(const std::weak_ptr<BizModel::Device> &device)
{
    m_inputs.setDevice(device);
    m_screens.setDevice(device);
    m_images.setDevice(device);
}

QList<LayerSource> LayerSources::all() const
{
    const QString none = QCoreApplication::translate("Tavoro::Panel::LayerSources", "No source");
    QList<LayerSource> sources{{{NoSource, 0}, none, {}}};
    add(sources, m_inputs, &Models::InterfacesModel::interface);
    add(sources, m_screens, &Models::ScreensModel::screen);
    add(sources, m_images, &Models::FilesModel::file);
    return sources;
}

std::optional<LayerSource> LayerSources::find(const SourceId &id) const
{
    const QList<LayerSource> sources = all();
    const auto found = std::find_if(sources.begin(), sources.end(), [&](const LayerSource &source) {
        return isSame(source.id, id);
    });
    return found == sources.end() ? std::nullopt : std::optional(*found);
}

// Dragging

QString sourceMimeType()
{
    return QStringLiteral("application/x-tavoro-layer-source");
}

void setSource(QMimeData &data, const SourceId &source)
{
    data.setData(sourceMimeType(),
                 QByteArray::number(source.type) + ' ' + QByteArray::number(source.id));
}

std::optional<SourceId> sourceIn(const QMimeData &data)
{
    const QList<QByteArray> parts = data.data(sourceMimeType()).split(' ');
    if (parts.size() != 2)
        return std::nullopt;
    return SourceId{parts[0].toInt(), parts[1].toUInt()};
}

} // namespace Tavoro::Panel
