#include <tavoromodels/contentsmodel.h>

#include "objectmodel_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/interface.h>

#include <utility>
#include <vector>

namespace Tavoro::Models {

using Part = BizModel::Enum::Device::DataPart;

bool ContentsSource::dependsOn(Part part) const
{
    return part == Part::OnlineFlag;
}

ObjectList ContentsSource::dependents(const BizModel::Interface & /*interface*/) const
{
    return {};
}

/// Follows the device of a ContentsModel, and the interfaces on which values of the rows depend.
class ContentsModelPrivate {
public:
    ContentsModelPrivate(ContentsModel &model, ContentsSource &contents)
        : q(model), rows(*static_cast<ObjectModel &>(model).d), source(contents)
    { }

    void setDevice(const std::weak_ptr<BizModel::Device> &device)
    {
        if (const auto former = source.device.lock())
            QObject::disconnect(former.get(), nullptr, &q, nullptr);
        source.device = device;
        if (const auto now = device.lock()) {
            QObject::connect(now.get(), &BizModel::Device::deviceDataChanged, &q,
                             [this](Part part) { follow(part); });
            QObject::connect(now.get(), &QObject::destroyed, &q, [this] { rows.synchronise(); });
        }
        followInterfaces();
        rows.synchronise();
    }

private:
    void follow(Part part)
    {
        if (part == Part::Interfaces)
            followInterfaces();
        if (part == Part::Interfaces || part == Part::Screens || part == Part::Layers
            || part == Part::Files)
            rows.synchronise();
        if (source.dependsOn(part))
            rows.refreshAll();
    }

    void followInterfaces()
    {
        for (const auto &connection : m_interfaces)
            QObject::disconnect(connection);
        m_interfaces.clear();
        const auto device = source.device.lock();
        if (!device || !source.dependsOn(Part::Interfaces))
            return;
        for (const auto &object : lockAll(device->interfaces())) {
            const auto *const interface = static_cast<BizModel::Interface *>(object.get());
            m_interfaces.push_back(QObject::connect(
                interface, &BizModel::Interface::interfaceChanged, &q,
                [this, weak = std::weak_ptr<QObject>(object)] { refreshDependents(weak); }));
        }
    }

    void refreshDependents(const std::weak_ptr<QObject> &weak)
    {
        const auto interface = std::static_pointer_cast<BizModel::Interface>(weak.lock());
        if (!interface)
            return;
        for (const auto &object : source.dependents(*interface))
            rows.refresh(object);
        rows.synchronise();
    }

    ContentsModel &q;
    ObjectModelPrivate &rows;
    ContentsSource &source;
    std::vector<QMetaObject::Connection> m_interfaces;
};

ContentsModel::ContentsModel(std::unique_ptr<ContentsSource> source, QObject *parent)
    : ObjectModel(std::move(source), parent),
      d(std::make_unique<ContentsModelPrivate>(
          *this, static_cast<ContentsSource &>(ObjectModel::source())))
{ }

ContentsModel::~ContentsModel() = default;

void ContentsModel::setDevice(const std::weak_ptr<BizModel::Device> &device)
{
    d->setDevice(device);
}

std::weak_ptr<BizModel::Device> ContentsModel::device() const
{
    return static_cast<const ContentsSource &>(ObjectModel::source()).device;
}

} // namespace Tavoro::Models
