#include "restoreddevice_p.h"

#include "deviceprivate_p.h"
#include "rowformat_p.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/proto/hexdigits.h>

#include <QSize>

#include <utility>

namespace Tavoro::BizModel {

namespace {

constexpr unsigned short unnumbered = 65535;

template <class Record>
bool readInto(Record &record, const DeviceRow &row)
{
    Record read;
    if (!RowFormat::decode(row.body, read))
        return false;
    record = std::move(read);
    return true;
}

/// Appends the record of a row.
template <class Record>
bool readInto(std::vector<Record> &records, const DeviceRow &row)
{
    Record read;
    if (!readInto(read, row))
        return false;
    records.push_back(std::move(read));
    return true;
}

} // namespace

RestoredDevice::RestoredDevice(const DeviceIdentity &identity)
{
    ProtoModel::parseHexDigits(identity.sn.toStdString(), m_identity.info.sn);
    ProtoModel::parseHexDigits(identity.mac.toStdString(), m_identity.info.mac);
    m_identity.ip = identity.address.toStdString();
}

bool RestoredDevice::take(const DeviceRow &row)
{
    switch (row.kind) {
    case RowKind::Identity:
        m_hasIdentityRow = readInto(m_identity, row);
        return m_hasIdentityRow;
    case RowKind::Detail:
        return readInto(m_detail, row);
    case RowKind::Interface:
        return readInto(m_interfaces, row);
    case RowKind::Screen:
        return readInto(m_screens, row);
    case RowKind::Layer:
        return readInto(m_layers, row);
    case RowKind::File:
        if (!readInto(m_files, row))
            return false;
        m_files.back().binary = row.content.toStdString();
        return true;
    case RowKind::ScreenGenlock:
        return readInto(m_genlocks, row);
    case RowKind::CutoutRGB:
        return readInto(m_cutout, row);
    case RowKind::Layout:
        return readInto(m_layouts, row);
    }
    return false;
}

std::shared_ptr<Device> RestoredDevice::make() const
{
    auto device = std::make_shared<Device>(unnumbered, nullptr);
    device->setIPAddress(QString::fromStdString(m_identity.ip));
    device->setModelId(m_identity.modelId);
    device->updateDeviceBaseInfo(m_identity.info);
    QString faults; // ignored: they were reported when the device was read
    device->initModelData(m_detail, faults);
    device->initModelData(m_interfaces, faults);
    device->initModelData(m_files, faults);
    device->initModelData(m_screens, faults);
    device->initModelData(m_layers, faults);
    if (m_hasIdentityRow)
        device->setName(QString::fromStdString(m_identity.name));
    device->setScreenGenlocks(m_genlocks);
    device->updateCutoutRGB(m_cutout, faults);
    const auto &d = DevicePrivate::get(*device);
    for (const s_StoredLayout &layout : m_layouts)
        d.settings->setLayout(layout.screenId, QSize(layout.columns, layout.rows));
    return device;
}

} // namespace Tavoro::BizModel
