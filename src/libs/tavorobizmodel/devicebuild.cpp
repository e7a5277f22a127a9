// Building a device from the records that were read.

#include "datafaults_p.h"
#include "device_p.h"
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

/// Makes an object of each record. Of two with the same identity the first one is taken.
template <class Object, class Detail, class Make>
ObjectTable<Object> build(const std::vector<Detail> &details, DataFaults &faults, const Make &make)
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

/// Moves \a records into a list that finds them by the member \a key. Of two with the same key the
/// first one is taken. \a what quotes one in a sentence.
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

bool Device::initModelData(const s_DeviceDetail &detail, QString &error)
{
    DataFaults faults;
    s_DeviceDetail rest = detail;
    auto subcards = takeRecords(rest.subcards, &ProtoModel::Device::s_subcardBody::slotId,
                                tr("Subcard %1"), faults);
    auto powers = takeRecords(rest.powers, &ProtoModel::Device::s_PowerBody::powerId,
                              tr("Power supply %1"), faults);
    auto groups = takeRecords(rest.groupInfos, &ProtoModel::Device::s_DeviceGroupInfoBody::groupId,
                              tr("Device group %1"), faults);
    d->change(DevicePrivate::Part::Detail, [&](DeviceState &state) {
        state.name = QString::fromStdString(detail.general.name);
        state.detail = std::move(rest);
        state.subcards = std::move(subcards);
        state.powers = std::move(powers);
        state.groups = std::move(groups);
    });
    return faults.report(error);
}

bool Device::initModelData(const std::vector<s_InterfaceDetail> &details, QString &error)
{
    DataFaults faults;
    const auto interfaces =
        build<Interface>(details, faults, [this](const s_InterfaceDetail &detail) {
            return std::make_shared<Interface>(detail, weak_from_this());
        });
    d->contents.take(interfaces);
    for (const auto &interface : interfaces.values())
        interface->updateLayerInputCrop(); // of layers that were there before
    d->tell(DevicePrivate::Part::Interfaces);
    return faults.report(error);
}

bool Device::initModelData(const std::vector<s_FileDetail> &details, QString &error)
{
    DataFaults faults;
    d->contents.take(build<File>(details, faults, [this](const s_FileDetail &detail) {
        return std::make_shared<File>(detail, weak_from_this());
    }));
    d->tell(DevicePrivate::Part::Files);
    return faults.report(error);
}

bool Device::initModelData(const std::vector<s_ScreenFullDetail> &details, QString &error)
{
    DataFaults faults;
    const auto make = [&](const s_ScreenFullDetail &detail) -> std::shared_ptr<Screen> {
        for (const auto &output : detail.mosaic.outputs) {
            if (!d->contents.findInterface(objectId(output.interfaceId)))
                faults.add(tr("%1 has the output %2, which is not there.")
                               .arg(quoted(identityOf(detail)), quoted(output.interfaceId)));
        }
        if (detail.screenType == Enum::Screen::MultiviewerScreen)
            return std::make_shared<MVRScreen>(detail, weak_from_this(), d->settings);
        return std::make_shared<Screen>(detail, weak_from_this());
    };
    const bool wasActive = d->contents.take(build<Screen>(details, faults, make));
    d->tell(DevicePrivate::Part::Screens);
    if (wasActive)
        d->tell(DevicePrivate::Part::ActiveScreens);
    return faults.report(error);
}

bool Device::initModelData(const std::vector<s_LayerFullDetail> &details, QString &error)
{
    DataFaults faults;
    const auto make = [&](const s_LayerFullDetail &detail) -> std::shared_ptr<Layer> {
        if (!d->contents.findScreen(objectId(screenOf(detail.layerIdenti)))) {
            faults.add(tr("%1: the screen is not there.").arg(quoted(detail.layerIdenti)));
            return nullptr;
        }
        s_LayerFullDetail fitted = detail;
        for (auto &crop : fitted.source.crop)
            fitCrop(crop, pictureOf(d->contents, detail));
        return std::make_shared<Layer>(fitted, weak_from_this());
    };
    d->contents.take(build<Layer>(details, faults, make));
    d->tell(DevicePrivate::Part::Layers);
    return faults.report(error);
}

void Device::clearAll(bool keepUserSettings)
{
    d->contents.take(Interfaces());
    d->contents.take(Layers());
    const bool wasActive = d->contents.take(Screens());
    d->contents.take(Files());
    if (!keepUserSettings)
        d->settings->clear();
    using Part = DevicePrivate::Part;
    for (const Part part : {Part::Interfaces, Part::Screens, Part::Layers, Part::Files})
        d->tell(part);
    if (wasActive)
        d->tell(Part::ActiveScreens);
}

} // namespace Tavoro::BizModel
