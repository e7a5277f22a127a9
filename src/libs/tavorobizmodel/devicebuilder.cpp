#include "devicebuilder_p.h"

#include "deviceprivate_p.h"
#include "inputcrop_p.h"

#include <tavorobizmodel/mvrscreen.h>

#include <memory>
#include <string>
#include <utility>

namespace Tavoro::BizModel {

namespace {

using ProtoModel::Device::s_DeviceDetail;
using ProtoModel::File::s_FileDetail;
using ProtoModel::Interface::s_InterfaceDetail;
using ProtoModel::Layer::s_LayerFullDetail;
using ProtoModel::Screen::s_ScreenFullDetail;

// clang-format off
const ProtoModel::s_InterfaceID          &identityOf(const s_InterfaceDetail &detail)  { return detail.interfaceId; }
const ProtoModel::s_ScreenId             &identityOf(const s_ScreenFullDetail &detail) { return detail; }
const ProtoModel::Layer::s_LayerIdentity &identityOf(const s_LayerFullDetail &detail)  { return detail.layerIdenti; }
const ProtoModel::s_FileIdentity         &identityOf(const s_FileDetail &detail)       { return detail; }
// clang-format on

/// Makes an object for each record. If two records have the same identity, the first one is used.
template <class Object, class Detail, class Make>
ObjectTable<Object> makeObjects(const std::vector<Detail> &details, DataFaults &faults,
                                const Make &make)
{
    ObjectTable<Object> objects;
    for (const Detail &detail : details) {
        const auto &identity = identityOf(detail);
        if (objects.contains(objectId(identity)))
            faults.addTwice(quoted(identity));
        else if (std::shared_ptr<Object> object = make(detail))
            objects.assign(objectId(identity), std::move(object));
    }
    return objects;
}

QString keyText(int key)
{
    return QString::number(key);
}

QString keyText(const std::string &key)
{
    return QString::fromStdString(key);
}

/// Moves \a records into a list that finds them by the member \a key. If two records have the same
/// key, the first one is used. \a what names a record in an error text.
template <class Key, class Record>
KeyedList<Key, Record> takeRecords(std::vector<Record> &records, Key Record::*key,
                                   const QString &what, DataFaults &faults)
{
    KeyedList<Key, Record> list;
    for (Record &record : records) {
        const Key value = record.*key;
        if (list.contains(value))
            faults.addTwice(what.arg(keyText(value)));
        else
            list.assign(value, std::move(record));
    }
    records.clear();
    return list;
}

QSize pictureOf(const DeviceContents &contents, const s_LayerFullDetail &layer)
{
    const auto shown = shownInterface(layer);
    const auto interface = shown ? contents.findInterface(*shown) : nullptr;
    return interface ? pictureSize(interface->detail().actualTiming) : QSize();
}

} // namespace

DeviceBuilder::DeviceBuilder(Device &device) : m_device(device), m_d(DevicePrivate::of(device)) { }

void DeviceBuilder::build(const s_DeviceDetail &detail)
{
    s_DeviceDetail rest = detail;
    auto subcards = takeRecords(rest.subcards, &ProtoModel::Device::s_subcardBody::slotId,
                                Device::tr("Subcard %1"), m_faults);
    auto powers = takeRecords(rest.powers, &ProtoModel::Device::s_PowerBody::powerId,
                              Device::tr("Power supply %1"), m_faults);
    auto groups = takeRecords(rest.groupInfos, &ProtoModel::Device::s_DeviceGroupInfoBody::groupId,
                              Device::tr("Device group %1"), m_faults);
    m_d.write(
        [&](DeviceState &state) { state.name = QString::fromStdString(detail.general.name); });
    m_d.records.replace(std::move(rest), std::move(subcards), std::move(powers), std::move(groups));
    m_d.notify(DevicePrivate::Part::Detail);
}

void DeviceBuilder::build(const std::vector<s_InterfaceDetail> &details)
{
    m_d.keepInterfaceCrops();
    const auto interfaces =
        makeObjects<Interface>(details, m_faults, [this](const s_InterfaceDetail &detail) {
            auto interface = std::make_shared<Interface>(detail, m_device.weak_from_this());
            interface->restoreCrop(*m_d.settings);
            return interface;
        });
    m_d.contents.take(interfaces);
    for (const auto &interface : interfaces.values())
        interface->updateLayerInputCrop(); // for layers that were built before the interfaces
    m_d.notify(DevicePrivate::Part::Interfaces);
}

void DeviceBuilder::build(const std::vector<s_FileDetail> &details)
{
    m_d.contents.take(makeObjects<File>(details, m_faults, [this](const s_FileDetail &detail) {
        return std::make_shared<File>(detail, m_device.weak_from_this());
    }));
    m_d.notify(DevicePrivate::Part::Files);
}

void DeviceBuilder::build(const std::vector<s_ScreenFullDetail> &details)
{
    const auto make = [&](const s_ScreenFullDetail &detail) -> std::shared_ptr<Screen> {
        for (const auto &output : detail.mosaic.outputs) {
            if (!m_d.contents.findInterface(objectId(output.interfaceId)))
                m_faults.add(Device::tr("%1 has the output %2, which the device does not have.")
                                 .arg(quoted(identityOf(detail)), quoted(output.interfaceId)));
        }
        if (detail.screenType == Enum::Screen::MultiviewerScreen)
            return std::make_shared<MVRScreen>(detail, m_device.weak_from_this(), m_d.settings);
        return std::make_shared<Screen>(detail, m_device.weak_from_this());
    };
    const bool wasActive = m_d.contents.take(makeObjects<Screen>(details, m_faults, make));
    m_d.notify(DevicePrivate::Part::Screens);
    if (wasActive)
        m_d.notify(DevicePrivate::Part::ActiveScreens);
}

void DeviceBuilder::build(const std::vector<s_LayerFullDetail> &details)
{
    const auto make = [&](const s_LayerFullDetail &detail) -> std::shared_ptr<Layer> {
        if (!m_d.contents.findScreen(objectId(screenOf(detail.layerIdenti)))) {
            m_faults.add(Device::tr("%1: the device does not have the screen.")
                             .arg(quoted(detail.layerIdenti)));
            return nullptr;
        }
        auto layer = std::make_shared<Layer>(detail, m_device.weak_from_this());
        layer->restoreCrops(*m_d.settings);
        layer->fitCrops(pictureOf(m_d.contents, detail));
        return layer;
    };
    m_d.keepLayerCrops();
    m_d.contents.take(makeObjects<Layer>(details, m_faults, make));
    m_d.notify(DevicePrivate::Part::Layers);
}

} // namespace Tavoro::BizModel
