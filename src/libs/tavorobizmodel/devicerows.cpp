#include "devicerows_p.h"

#include "device_p.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/proto/codec.h>
#include <tavorowire/identity.h>

#include <QList>

#include <string>

namespace Tavoro::BizModel {

namespace {

constexpr unsigned short unnumbered = 65535;

QString keyOf(const ObjectId &id)
{
    QStringList numbers;
    for (const qint32 number : id)
        numbers.append(QString::number(number));
    return numbers.join(QLatin1Char('/'));
}

template <class Record>
QByteArray text(const Record &record)
{
    std::string body;
    ajson::encodeRecord(record, body);
    return QByteArray::fromStdString(body);
}

/// Reads a row behind those that \a records has already.
template <class Record>
bool readInto(std::vector<Record> &records, const DeviceRow &row)
{
    std::string error;
    return ajson::decodeRecord(row.body.toStdString(), records.emplace_back(), error);
}

template <class Record>
bool readInto(Record &record, const DeviceRow &row)
{
    std::string error;
    return ajson::decodeRecord(row.body.toStdString(), record, error);
}

QByteArray identityText(const Device &device)
{
    auto info = device.deviceBaseInfo();
    info.ip = device.IPAddress().toStdString();
    info.name = device.name().toStdString();
    info.modelId = device.modelId();
    return QByteArray::fromStdString(SSProxy::Wire::encodeIdentity(info));
}

/// What the rows of a device hold, until the device is built of it.
struct StoredDevice {
    ProtoModel::DeviceBaseInfo info;
    ProtoModel::Device::s_DeviceDetail detail;
    std::vector<ProtoModel::Interface::s_InterfaceDetail> interfaces;
    std::vector<ProtoModel::Screen::s_ScreenFullDetail> screens;
    std::vector<ProtoModel::Layer::s_LayerFullDetail> layers;
    std::vector<ProtoModel::File::s_FileDetail> files;
    std::vector<ProtoModel::Screen::s_ScreenGenlockBody> genlocks;
    ProtoModel::s_RGB cutout;
    std::map<int, QSize> layouts;

    bool take(const DeviceRow &row)
    {
        switch (row.kind) {
        case RowKind::Identity: {
            std::string error;
            return SSProxy::Wire::decodeIdentity(row.body.toStdString(), info, error);
        }
        case RowKind::Detail:
            return readInto(detail, row);
        case RowKind::Interface:
            return readInto(interfaces, row);
        case RowKind::Screen:
            return readInto(screens, row);
        case RowKind::Layer:
            return readInto(layers, row);
        case RowKind::File:
            if (!readInto(files, row))
                return false;
            files.back().binary = row.content.toStdString();
            return true;
        case RowKind::ScreenGenlock:
            return readInto(genlocks, row);
        case RowKind::CutoutRGB:
            return readInto(cutout, row);
        case RowKind::Layout:
            return takeLayout(row);
        }
        return false;
    }

private:
    bool takeLayout(const DeviceRow &row)
    {
        const QList<QByteArray> numbers = row.body.split(',');
        if (numbers.size() != 2)
            return false;
        layouts[row.key.toInt()] = {numbers[0].toInt(), numbers[1].toInt()};
        return true;
    }
};

} // namespace

void visitRows(const Device &device, const std::function<void(const DeviceRow &)> &visit)
{
    const auto &d = DevicePrivate::of(device);
    const QString onlyOne = QStringLiteral(""); // a null text would be stored as no key
    visit({RowKind::Identity, onlyOne, identityText(device), {}});
    visit({RowKind::Detail, onlyOne, text(device.deviceDetail()), {}});
    visit({RowKind::CutoutRGB, onlyOne, text(device.cutoutRGB()), {}});
    for (const auto &genlock : device.screenGenlocks())
        visit({RowKind::ScreenGenlock, keyOf(objectId(genlock)), text(genlock), {}});
    for (const auto &[screenId, span] : d.layouts->all()) {
        const QByteArray body =
            QByteArray::number(span.width()) + ',' + QByteArray::number(span.height());
        visit({RowKind::Layout, QString::number(screenId), body, {}});
    }
    const auto visitAll = [&](RowKind kind, const auto &objects, const auto &identityOf) {
        for (const auto &object : objects) {
            const auto detail = object->detail();
            visit({kind, keyOf(objectId(identityOf(detail))), text(detail), {}});
        }
    };
    visitAll(RowKind::Interface, d.contents.interfaces(),
             [](const auto &detail) { return detail.interfaceId; });
    visitAll(RowKind::Screen, d.contents.screens(),
             [](const auto &detail) { return ProtoModel::s_ScreenId(detail); });
    visitAll(RowKind::Layer, d.contents.layers(),
             [](const auto &detail) { return detail.layerIdenti; });
    const auto files = d.contents.files();
    for (const auto &file : files) {
        const auto detail = file->detail();
        visit({RowKind::File, keyOf(objectId(detail)), text(detail),
               QByteArray::fromStdString(detail.binary)});
    }
}

std::shared_ptr<Device> deviceOfRows(const std::vector<DeviceRow> &rows)
{
    StoredDevice stored;
    for (const DeviceRow &row : rows) {
        if (!stored.take(row))
            return nullptr;
    }
    auto device = std::make_shared<Device>(unnumbered, nullptr);
    device->setIPAddress(QString::fromStdString(stored.info.ip));
    device->setModelId(stored.info.modelId);
    device->updateDeviceBaseInfo(stored.info);
    QString faults; // told when the device was read
    device->initModelData(stored.detail, faults);
    device->initModelData(stored.interfaces, faults);
    device->initModelData(stored.files, faults);
    device->initModelData(stored.screens, faults);
    device->initModelData(stored.layers, faults);
    device->setName(QString::fromStdString(stored.info.name));
    device->setScreenGenlocks(stored.genlocks);
    device->updateCutoutRGB(stored.cutout, faults);
    auto &d = DevicePrivate::of(*device);
    for (const auto &[screenId, span] : stored.layouts)
        d.layouts->set(screenId, span);
    d.isRestored = true;
    return device;
}

} // namespace Tavoro::BizModel
