#include "statetopics.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/proto/codec.h>
#include <tavorooperations/jsontext.h>

#include <QJsonObject>

#include <string>

namespace Tavoro::Gate {

namespace {

using StateTopics = std::vector<StateTopic>;

constexpr int allScreens = 0x1E; // A bit for each kind.

template <class Record>
QByteArray jsonOf(const Record &record)
{
    std::string text;
    ajson::encodeRecord(record, text);
    return QByteArray::fromStdString(text);
}

/// "screen/1/0"
template <class... Numbers>
QString nameOf(const char *kind, Numbers... numbers)
{
    QString name = QLatin1String(kind);
    for (const int number : {int(numbers)...})
        name += QLatin1Char('/') + QString::number(number);
    return name;
}

// Name and record of each kind of object.

QString topicOf(const BizModel::Interface &interface)
{
    const ProtoModel::s_InterfaceID id = interface.interfaceId();
    return nameOf("interface", id.slotId, id.connectorId, id.splitId);
}

QString topicOf(const BizModel::Screen &screen)
{
    return nameOf("screen", screen.screenType(), screen.screenId());
}

QString topicOf(const BizModel::Layer &layer)
{
    const ProtoModel::Layer::s_LayerIdentity id = layer.identity();
    return nameOf("layer", id.screenType, id.screenId, id.sceneType, id.layerType, id.layerId);
}

QString topicOf(const BizModel::File &file)
{
    const ProtoModel::s_FileIdentity id = file.identity();
    return nameOf("file", id.fileType, id.fileId);
}

template <class Object>
QByteArray recordOf(const Object &object)
{
    return jsonOf(object.detail());
}

QByteArray recordOf(const BizModel::File &file)
{
    return jsonOf(file.listEntry());
}

/// The topics of a list of objects, each of which emits \a signal when it changes.
template <class Object>
StateTopics topicsOfEach(const QList<std::weak_ptr<Object>> &list, void (Object::*signal)(),
                         QObject *context, const StateChanged &changed)
{
    StateTopics topics;
    for (const std::weak_ptr<Object> &weak : list) {
        const auto object = weak.lock();
        if (!object)
            continue;
        const QString name = topicOf(*object);
        topics.push_back({name, [weak] {
                              const auto held = weak.lock();
                              return held ? recordOf(*held) : QByteArray();
                          }});
        QObject::connect(object.get(), signal, context, [name, changed] { changed(name); });
    }
    return topics;
}

// The device and its parts. They change together, so that each record is made at once.

StateTopic ready(const QString &name, const QByteArray &record)
{
    return {name, [record] {
                return record;
            }};
}

/// The record of the device without the lists that have topics of their own.
QByteArray deviceRecord(const ProtoModel::Device::s_DeviceDetail &detail)
{
    std::string text;
    ajson::encodeRecord(detail, text);
    QJsonObject object = Operations::jsonValue(text).toObject();
    object.remove(QStringLiteral("powers"));
    object.remove(QStringLiteral("subcards"));
    return Operations::jsonText(object).toUtf8();
}

StateTopics deviceTopics(const BizModel::Device &device)
{
    const ProtoModel::Device::s_DeviceDetail detail = device.deviceDetail();
    StateTopics topics{ready(QStringLiteral("device"), deviceRecord(detail)),
                       ready(QStringLiteral("loading"), jsonOf(device.deviceProcess())),
                       ready(QStringLiteral("cutout"), jsonOf(device.cutoutRGB()))};
    for (const ProtoModel::Device::s_PowerBody &power : detail.powers)
        topics.push_back(ready(nameOf("power", power.powerId), jsonOf(power)));
    for (const ProtoModel::Device::s_subcardBody &card : detail.subcards)
        topics.push_back(ready(nameOf("card", card.slotId), jsonOf(card)));
    for (const ProtoModel::Screen::s_ScreenGenlockBody &lock : device.screenGenlocks())
        topics.push_back(ready(nameOf("genlock", lock.screenType, lock.screenId), jsonOf(lock)));
    return topics;
}

} // namespace

std::vector<StateTopic> topicsOf(const std::shared_ptr<BizModel::Device> &device, StateKind kind,
                                 QObject *context, const StateChanged &changed)
{
    switch (kind) {
    case StateKind::Device:
        return deviceTopics(*device);
    case StateKind::Interfaces:
        return topicsOfEach(device->interfaces(), &BizModel::Interface::interfaceChanged, context,
                            changed);
    case StateKind::Screens:
        return topicsOfEach(device->screens(allScreens), &BizModel::Screen::screenChanged, context,
                            changed);
    case StateKind::Layers:
        return topicsOfEach(device->layers(), &BizModel::Layer::layerChanged, context, changed);
    case StateKind::Files:
        return topicsOfEach(device->files(), &BizModel::File::fileChanged, context, changed);
    case StateKind::Control:
        break;
    }
    return {};
}

} // namespace Tavoro::Gate
