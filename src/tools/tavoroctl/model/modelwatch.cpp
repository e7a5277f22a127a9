#include "modelwatch.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavoroctl/arguments/fileplace.h>
#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/output/labels.h>
#include <tavoroctl/output/recordtext.h>
#include <tavorooperations/jsontext.h>

#include <QJsonArray>
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
    return Texts::tr("device");
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
    return Texts::tr("interface %1").arg(idOf(interface.interfaceId()));
}

QJsonValue stateOf(const BizModel::Interface &interface)
{
    return jsonOf(interface.detail());
}

QString nameOf(const BizModel::Screen &screen)
{
    return Texts::tr("screen %1").arg(idOf(screen.detail()));
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
    return Texts::tr("screen %1, %2, layer %3 (type %4)")
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
    return Texts::tr("file %1").arg(placeName({detail.fileType, detail.fileId}));
}

QJsonValue stateOf(const BizModel::File &file)
{
    return jsonOf(file.detail());
}

ModelChange transferChange(const ProtoModel::File::s_FileTransPercent &transfer)
{
    const QString name = Texts::tr("file %1").arg(placeName({transfer.fileType, transfer.fileId}));
    return {ModelChange::Transfer, name, {}, transfer};
}

QString transferText(const ProtoModel::File::s_FileTransPercent &transfer)
{
    return Texts::tr("transfer of type %1 at %2 %, status %3")
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

QString ModelChange::text() const
{
    const auto words = [this] {
        switch (kind) {
        case Changed:
            return textOf(differences);
        case New:
            return Texts::tr("new");
        case Gone:
            return Texts::tr("gone");
        case Transfer:
            return transferText(transfer);
        }
        return QString();
    };
    return object + QStringLiteral(": ") + words();
}

QJsonObject ModelChange::toJson() const
{
    static constexpr const char *events[] = {"change", "new", "gone", "transfer"};
    QJsonObject json{{QStringLiteral("event"), QLatin1String(events[kind])},
                     {QStringLiteral("object"), object}};
    if (kind == Transfer)
        json.insert(QStringLiteral("transfer"), jsonOf(transfer));
    if (kind != Changed)
        return json;
    QJsonArray list;
    for (const Difference &difference : differences)
        list += difference.toJson();
    json.insert(QStringLiteral("differences"), list);
    return json;
}

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
            m_show({ModelChange::Gone, name, {}, {}});
        }
    }
    for (auto object = now.constBegin(); object != now.constEnd(); ++object) {
        if (m_known.contains(object.key())) {
            compare(object.key(), object.value());
        } else {
            m_known.insert(object.key(), object.value());
            m_show({ModelChange::New, object.key(), {}, {}});
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
                     [this, watched = &device](const auto &weak, const auto &transfers) {
                         if (weak.lock().get() != watched)
                             return;
                         for (const auto &transfer : transfers)
                             m_show(transferChange(transfer));
                     });
}

void ModelWatch::compare(const QString &name, const QJsonValue &now)
{
    const std::vector<Difference> changes = differences(m_known.value(name), now);
    m_known.insert(name, now);
    if (!changes.empty())
        m_show({ModelChange::Changed, name, changes, {}});
}

} // namespace Tavoro::Ctl
