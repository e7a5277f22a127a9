#include "modelwatch.h"

#include "jsondiff.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavoroctl/arguments/fileplace.h>
#include <tavoroctl/output/labels.h>
#include <tavoroctl/output/recordtext.h>
#include <tavorooperations/jsontext.h>

#include <QJsonObject>

namespace Tavoro::Ctl {

namespace {

template <class Record>
QJsonObject jsonOf(const Record &record)
{
    return Operations::jsonValue(recordText(record)).toObject();
}

// The name and the state of each kind of object.

QString nameOf(const BizModel::Device & /*device*/)
{
    return QStringLiteral("device");
}

QJsonValue stateOf(const BizModel::Device &device)
{
    QJsonObject state = jsonOf(device.deviceDetail());
    state.insert(QStringLiteral("online"), device.isOnline());
    state.insert(QStringLiteral("loading"), jsonOf(device.deviceProcess()));
    state.insert(QStringLiteral("cutoutRGB"), jsonOf(device.cutoutRGB()));
    return state;
}

QString nameOf(const BizModel::Interface &interface)
{
    return QStringLiteral("interface ") + idOf(interface.interfaceId());
}

QJsonValue stateOf(const BizModel::Interface &interface)
{
    return jsonOf(interface.detail());
}

QString nameOf(const BizModel::Screen &screen)
{
    return QStringLiteral("screen ") + idOf(screen.detail());
}

QJsonValue stateOf(const BizModel::Screen &screen)
{
    QJsonObject state = jsonOf(screen.detail());
    state.insert(QStringLiteral("genlock"), screen.genlockStatus());
    return state;
}

QString nameOf(const BizModel::Layer &layer)
{
    const ProtoModel::Layer::s_LayerIdentity id = layer.identity();
    return QStringLiteral("screen %1, %2, layer %3 (type %4)")
        .arg(idOf(id), sceneOf(id.sceneType))
        .arg(id.layerId)
        .arg(id.layerType);
}

QJsonValue stateOf(const BizModel::Layer &layer)
{
    return jsonOf(layer.detail());
}

QString nameOf(const BizModel::File &file)
{
    const auto detail = file.detail();
    return QStringLiteral("file ") + placeName({detail.fileType, detail.fileId});
}

QJsonValue stateOf(const BizModel::File &file)
{
    return jsonOf(file.detail());
}

QString transferLine(const ProtoModel::File::s_FileTransPercent &transfer)
{
    return QStringLiteral("file %1: transfer of type %2 at %3 %, status %4")
        .arg(placeName({transfer.fileType, transfer.fileId}))
        .arg(transfer.type)
        .arg(transfer.percent)
        .arg(transfer.status);
}

/// Records the present state of each object, and calls \a changed on each \a signal.
template <class Object, class Changed>
void followEach(const QList<std::weak_ptr<Object>> &list, void (Object::*signal)(),
                const QObject *context, const Changed &changed, QMap<QString, QJsonValue> &objects)
{
    for (const auto &weak : list) {
        const auto object = weak.lock();
        if (!object)
            continue;
        objects.insert(nameOf(*object), stateOf(*object));
        QObject::connect(object.get(), signal, context, [weak, changed] {
            if (const auto held = weak.lock())
                changed(*held);
        });
    }
}

} // namespace

void ModelWatch::follow(const std::shared_ptr<BizModel::Device> &device)
{
    Objects now;
    const bool isFirst = !m_connections;
    m_connections = std::make_unique<QObject>();
    followObjects(*device, now);
    if (isFirst)
        m_known = now;
    for (const QString &name : m_known.keys()) {
        if (!now.contains(name)) {
            m_known.remove(name);
            m_show(name + QStringLiteral(": gone"));
        }
    }
    for (auto object = now.constBegin(); object != now.constEnd(); ++object) {
        if (m_known.contains(object.key())) {
            compare(object.key(), object.value());
        } else {
            m_known.insert(object.key(), object.value());
            m_show(object.key() + QStringLiteral(": new"));
        }
    }
}

void ModelWatch::followObjects(BizModel::Device &device, Objects &objects)
{
    constexpr int allScreens = 0x1E; // A bit for each kind.
    const QObject *const context = m_connections.get();
    const auto changed = [this](const auto &object) {
        compare(nameOf(object), stateOf(object));
    };
    followEach(device.interfaces(), &BizModel::Interface::interfaceChanged, context, changed,
               objects);
    followEach(device.screens(allScreens), &BizModel::Screen::screenChanged, context, changed,
               objects);
    followEach(device.layers(), &BizModel::Layer::layerChanged, context, changed, objects);
    followEach(device.files(), &BizModel::File::fileChanged, context, changed, objects);
    objects.insert(nameOf(device), stateOf(device));
    QObject::connect(&device, &BizModel::Device::deviceDataChanged, context,
                     [weak = device.weak_from_this(), changed] {
                         if (const auto held = weak.lock())
                             changed(*held);
                     });
    QObject::connect(BizModel::DeviceList::instance(),
                     &BizModel::DeviceList::signalFilesTransferProgressChanged, context,
                     [this](const auto &, const auto &transfers) {
                         for (const auto &transfer : transfers)
                             m_show(transferLine(transfer));
                     });
}

void ModelWatch::compare(const QString &name, const QJsonValue &now)
{
    const QStringList changes = differences(m_known.value(name), now);
    m_known.insert(name, now);
    if (!changes.isEmpty())
        m_show(name + QStringLiteral(": ") + changes.join(QStringLiteral(", ")));
}

} // namespace Tavoro::Ctl
