#include "knownrecords.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/proto/codec.h>
#include <tavorooperations/jsontext.h>

#include <algorithm>

namespace Tavoro::Panel {

namespace {

template <class Record>
QJsonObject jsonOf(const Record &record)
{
    std::string text;
    ajson::encodeRecord(record, text);
    return Operations::jsonValue(text).toObject();
}

template <class Object>
QJsonObject detailOf(const std::weak_ptr<Object> &object)
{
    const auto known = object.lock();
    return known ? jsonOf(known->detail()) : QJsonObject();
}

/// Reads a record of an identity from its JSON.
template <class Record>
Record recordOf(const QJsonObject &json)
{
    Record record;
    std::string error;
    ajson::decodeRecord(Operations::jsonText(json).toStdString(), record, error);
    return record;
}

QJsonObject modelRecord(const BizModel::Device &device, RecordKind kind, const QJsonObject &id)
{
    using namespace ProtoModel;
    switch (kind) {
    case RecordKind::Device:
        return jsonOf(device.deviceDetail());
    case RecordKind::Interface:
        return detailOf(device.findInterface(recordOf<s_InterfaceID>(id)));
    case RecordKind::Screen: {
        const auto screen = recordOf<s_ScreenId>(id);
        return detailOf(device.findScreen(screen.screenType, screen.screenId));
    }
    case RecordKind::Layer:
        return detailOf(device.findLayer(recordOf<ProtoModel::Layer::s_LayerIdentity>(
            id.value(QLatin1String("layerIdenti")).toObject())));
    case RecordKind::File: {
        const auto file = recordOf<s_FileIdentity>(id);
        const auto type = static_cast<BizModel::Enum::File::FileType>(file.fileType);
        const auto known = device.findFile(type, file.fileId).lock();
        return known ? jsonOf(known->listEntry()) : QJsonObject();
    }
    }
    return {};
}

struct IdentityKeys {
    RecordKind kind;
    std::vector<const char *> keys;
};

void insertAll(QJsonObject &into, const QJsonObject &values)
{
    for (auto value = values.begin(); value != values.end(); ++value)
        into.insert(value.key(), value.value());
}

} // namespace

QJsonObject identityIn(RecordKind kind, const QJsonObject &record)
{
    // clang-format off
    static const IdentityKeys table[] = {
        {RecordKind::Device,    {}},
        {RecordKind::Interface, {"slotId", "connectorId", "splitId"}},
        {RecordKind::Screen,    {"screenId", "screenType"}},
        {RecordKind::Layer,     {"layerIdenti"}},
        {RecordKind::File,      {"fileId", "fileType"}},
    };
    // clang-format on
    QJsonObject identity;
    for (const char *const key : table[static_cast<std::size_t>(kind)].keys)
        identity.insert(QLatin1String(key), record.value(QLatin1String(key)));
    return identity;
}

QJsonObject KnownRecords::record(const BizModel::Device &device, RecordKind kind,
                                 const QJsonObject &identity) const
{
    QJsonObject known = modelRecord(device, kind, identity);
    const RecordId id{&device, kind, Operations::jsonText(identity)};
    for (const Noted &noted : m_noted) {
        if (noted.id == id && !known.isEmpty())
            insertAll(known, noted.values);
    }
    return known;
}

std::vector<QJsonObject> KnownRecords::layers(const BizModel::Device &device) const
{
    std::vector<QJsonObject> records;
    const auto layers = device.layers();
    for (const auto &weak : layers) {
        if (const auto layer = weak.lock())
            records.push_back(record(device, RecordKind::Layer,
                                     identityIn(RecordKind::Layer, jsonOf(layer->detail()))));
    }
    return records;
}

void KnownRecords::note(const BizModel::Device &device, RecordKind kind, const QJsonObject &written,
                        quint64 write)
{
    const QString identity = Operations::jsonText(identityIn(kind, written));
    m_noted.push_back({write, {&device, kind, identity}, written});
}

void KnownRecords::forget(quint64 write)
{
    m_noted.erase(std::remove_if(m_noted.begin(), m_noted.end(),
                                 [=](const Noted &noted) { return noted.write == write; }),
                  m_noted.end());
}

} // namespace Tavoro::Panel
