#include "devicerows_p.h"

#include "device_p.h"
#include "rowformat_p.h"

#include <tavorobizmodel/device.h>

#include <QStringList>

namespace Tavoro::BizModel {

namespace {

QString keyOf(const ObjectId &id)
{
    QStringList numbers;
    for (const qint32 number : id)
        numbers.append(QString::number(number));
    return numbers.join(QLatin1Char('/'));
}

s_StoredIdentity identityOf(const Device &device)
{
    return {device.deviceBaseInfo(), device.IPAddress().toStdString(), device.name().toStdString(),
            device.modelId()};
}

} // namespace

void visitRows(const Device &device, const std::function<void(const DeviceRow &)> &visit)
{
    const auto &d = DevicePrivate::of(device);
    const QString onlyOne = QStringLiteral(""); // SQL would store a null string as NULL
    const auto visitRow = [&](RowKind kind, const QString &key, const auto &record) {
        visit({kind, key, RowFormat::encode(record), {}});
    };
    visitRow(RowKind::Identity, onlyOne, identityOf(device));
    visitRow(RowKind::Detail, onlyOne, device.deviceDetail());
    visitRow(RowKind::CutoutRGB, onlyOne, device.cutoutRGB());
    for (const auto &genlock : device.screenGenlocks())
        visitRow(RowKind::ScreenGenlock, keyOf(objectId(genlock)), genlock);
    for (const auto &[screenId, span] : d.layouts->all())
        visitRow(RowKind::Layout, QString::number(screenId),
                 s_StoredLayout{screenId, span.width(), span.height()});
    const auto visitAll = [&](RowKind kind, const auto &objects, const auto &identityOf) {
        for (const auto &object : objects) {
            const auto detail = object->detail();
            visitRow(kind, keyOf(objectId(identityOf(detail))), detail);
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
        visit({RowKind::File, keyOf(objectId(detail)), RowFormat::encode(detail),
               QByteArray::fromStdString(detail.binary)});
    }
}

} // namespace Tavoro::BizModel
