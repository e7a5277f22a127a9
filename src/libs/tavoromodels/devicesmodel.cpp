#include <tavoromodels/devicesmodel.h>

#include "readymade_p.h"
#include "rowsource_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>

namespace Tavoro::Models {

namespace {

using BizModel::DeviceList;

struct DeviceTraits {
    using Object = BizModel::Device;
    using Record = ProtoModel::Device::s_DeviceDetail;

    static constexpr auto kind = ObjectKind::Device;
    static constexpr auto changed = &Object::deviceDataChanged;

    static Record record(const Object &device) { return device.deviceDetail(); }
    static std::shared_ptr<BizModel::Device> device(const Object &device)
    {
        return std::const_pointer_cast<BizModel::Device>(device.shared_from_this());
    }
    static QVariantMap identity(const Object & /*device*/, const QString & /*key*/) { return {}; }

    static constexpr ReadyMadeRole<Object, Record> roles[] = {
        // clang-format off
        {"display",     [](const Object &d, const Record &) { return QVariant(nameOr(d.name(), d.IPAddress())); }},
        {"decoration",  [](const Object &, const Record &)  { return QVariant(QStringLiteral("device")); }},
        {"online",      [](const Object &d, const Record &) { return QVariant(d.isOnline()); }},
        {"name",        [](const Object &d, const Record &) { return QVariant(d.name()); }},
        {"ip",          [](const Object &d, const Record &) { return QVariant(d.IPAddress()); }},
        {"mac",         [](const Object &d, const Record &) { return QVariant(d.MAC()); }},
        {"sn",          [](const Object &d, const Record &) { return QVariant(d.sn()); }},
        {"modelId",     [](const Object &d, const Record &) { return QVariant(int(d.modelId())); }},
        {"syncSuccess", [](const Object &d, const Record &) { return QVariant(d.isSyncDataSuccess()); }},
        // clang-format on
    };
};

class DevicesSource : public RecordSource<RowSource, DeviceTraits> {
public:
    ObjectList objects() const override { return lockAll(DeviceList::instance()->devices()); }
};

} // namespace

DevicesModel::DevicesModel(QObject *parent) : ObjectModel(std::make_unique<DevicesSource>(), parent)
{
    connect(DeviceList::instance(), &DeviceList::signalDeviceAppended, this,
            &DevicesModel::refreshRows);
    connect(DeviceList::instance(), &DeviceList::signalDeviceRemoved, this,
            &DevicesModel::refreshRows);
    refreshRows();
}

DevicesModel::~DevicesModel() = default;

std::shared_ptr<BizModel::Device> DevicesModel::device(const QModelIndex &index) const
{
    return std::static_pointer_cast<BizModel::Device>(objectAt(index));
}

} // namespace Tavoro::Models
