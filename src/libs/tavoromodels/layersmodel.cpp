#include <tavoromodels/layersmodel.h>

#include "readymade_p.h"
#include "rowsource_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>

#include <algorithm>
#include <tuple>
#include <utility>

namespace Tavoro::Models {

namespace {

using Part = BizModel::Enum::Device::DataPart;

struct LayerTraits {
    using Object = BizModel::Layer;
    using Record = ProtoModel::Layer::s_LayerFullDetail;

    static constexpr auto kind = ObjectKind::Layer;
    static constexpr auto changed = &Object::layerChanged;

    static Record record(const Object &layer) { return layer.detail(); }
    static std::shared_ptr<BizModel::Device> device(const Object &layer)
    {
        return layer.device().lock();
    }
    static QVariantMap identity(const Object &layer, const QString & /*key*/)
    {
        return {{QStringLiteral("layerIdenti"), toVariant(layer.identity())}};
    }

    static QVariant decoration(const Object & /*layer*/, const Record &record)
    {
        return record.general.isBackground != 0 ? QStringLiteral("background")
                                                : QStringLiteral("layer");
    }

    static QVariant signal(const Object &layer, const Record &record)
    {
        const auto type = record.source.general.type;
        if (type != BizModel::Enum::Layer::InterfaceSource)
            return type != BizModel::Enum::Layer::NoSource;
        const auto input = layer.source().lock();
        return input && hasSignal(input->detail());
    }

    static QVariant sourceName(const Object &layer, const Record & /*record*/)
    {
        const auto input = layer.source().lock();
        return input ? displayOf(input->detail()) : QString();
    }

    static constexpr ReadyMadeRole<Object, Record> roles[] = {
        // clang-format off
        {"display",    [](const Object &, const Record &r)  { return QVariant(nameOr(r.general.name, QString::number(r.layerIdenti.layerId))); }},
        {"decoration", decoration},
        {"online",     [](const Object &l, const Record &)  { return QVariant(isOnline(l.device())); }},
        {"signal",     signal},
        {"sourceName", sourceName},
        // clang-format on
    };
};

class LayersSource : public RecordSource<ContentsSource, LayerTraits> {
public:
    ObjectList objects() const override
    {
        const auto known = device.lock();
        const auto shown =
            known ? known->findScreen(screen.screenType, screen.screenId).lock() : nullptr;
        if (!shown)
            return {};
        // Layers with the same position are ordered by kind and number, so that the order is
        // always defined.
        using Place = std::tuple<qint32, qint32, quint8>;
        std::vector<std::pair<Place, std::shared_ptr<QObject>>> layers;
        for (const auto &object : lockAll(shown->layers())) {
            const auto &layer = static_cast<const BizModel::Layer &>(*object);
            const auto id = layer.identity();
            if (id.sceneType == sceneType)
                layers.emplace_back(Place{layer.detail().zorder, id.layerType, id.layerId}, object);
        }
        std::sort(layers.begin(), layers.end());
        ObjectList objects;
        for (auto &layer : layers)
            objects.push_back(std::move(layer.second));
        return objects;
    }

    bool dependsOn(Part part) const override
    {
        return ContentsSource::dependsOn(part) || part == Part::Interfaces;
    }

    ObjectList dependents(const BizModel::Interface &interface) const override
    {
        return lockAll(interface.layers());
    }

    ProtoModel::s_ScreenId screen;
    int sceneType = 0;
};

} // namespace

LayersModel::LayersModel(QObject *parent) : ContentsModel(std::make_unique<LayersSource>(), parent)
{ }

LayersModel::~LayersModel() = default;

void LayersModel::setScene(const ProtoModel::s_ScreenId &screen, int sceneType)
{
    auto &layers = static_cast<LayersSource &>(source());
    layers.screen = screen;
    layers.sceneType = sceneType;
    refreshRows();
}

std::shared_ptr<BizModel::Layer> LayersModel::layer(const QModelIndex &index) const
{
    return std::static_pointer_cast<BizModel::Layer>(objectAt(index));
}

} // namespace Tavoro::Models
