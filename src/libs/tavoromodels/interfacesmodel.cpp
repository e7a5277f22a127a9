#include <tavoromodels/interfacesmodel.h>

#include "readymade_p.h"
#include "rowsource_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/interface.h>

#include <algorithm>

namespace Tavoro::Models {

namespace {

constexpr int anyInterfaceType = 0;
constexpr int inputType = 1;

struct InterfaceTraits {
    using Object = BizModel::Interface;
    using Record = ProtoModel::Interface::s_InterfaceDetail;

    static constexpr auto kind = ObjectKind::Interface;
    static constexpr auto changed = &Object::interfaceChanged;

    static Record record(const Object &interface) { return interface.detail(); }
    static std::shared_ptr<BizModel::Device> device(const Object &interface)
    {
        return interface.device().lock();
    }
    static QVariantMap identity(const Object &interface, const QString & /*key*/)
    {
        return identityMap(interface.interfaceId());
    }

    static QVariant decoration(const Object & /*interface*/, const Record &record)
    {
        return record.general.type == inputType ? QStringLiteral("input")
                                                : QStringLiteral("output");
    }

    static QVariant online(const Object &interface, const Record &record)
    {
        const auto device = interface.device().lock();
        if (!device || !device->isOnline())
            return false;
        const auto card = device->findSubcard(record.interfaceId.slotId);
        return !card || card->online != 0;
    }

    static constexpr ReadyMadeRole<Object, Record> roles[] = {
        // clang-format off
        {"display",    [](const Object &, const Record &record) { return QVariant(displayOf(record)); }},
        {"decoration", decoration},
        {"online",     online},
        {"signal",     [](const Object &, const Record &record) { return QVariant(hasSignal(record)); }},
        // clang-format on
    };
};

class InterfacesSource : public RecordSource<ContentsSource, InterfaceTraits> {
public:
    ObjectList objects() const override
    {
        const auto known = device.lock();
        if (!known)
            return {};
        ObjectList objects = lockAll(known->interfaces());
        objects.erase(std::remove_if(objects.begin(), objects.end(),
                                     [this](const auto &object) { return !isShown(*object); }),
                      objects.end());
        return objects;
    }

    bool dependsOn(BizModel::Enum::Device::DataPart part) const override
    {
        return ContentsSource::dependsOn(part) || part == BizModel::Enum::Device::Subcards
            || part == BizModel::Enum::Device::Interfaces;
    }

    int type = anyInterfaceType;

private:
    bool isShown(const QObject &object) const
    {
        return type == anyInterfaceType
            || static_cast<const BizModel::Interface &>(object).detail().general.type == type;
    }
};

} // namespace

InterfacesModel::InterfacesModel(QObject *parent)
    : ContentsModel(std::make_unique<InterfacesSource>(), parent)
{ }

InterfacesModel::~InterfacesModel() = default;

void InterfacesModel::setInterfaceType(int type)
{
    static_cast<InterfacesSource &>(source()).type = type;
    refreshRows();
}

std::shared_ptr<BizModel::Interface> InterfacesModel::interface(const QModelIndex &index) const
{
    return std::static_pointer_cast<BizModel::Interface>(objectAt(index));
}

} // namespace Tavoro::Models
