#include "devicerows_p.h"

#include "deviceprivate_p.h"
#include "rowformat_p.h"

#include <tavorobizmodel/device.h>

#include <QCryptographicHash>
#include <QStringList>

#include <array>
#include <cstddef>

namespace Tavoro::BizModel {

namespace {

/// Names of the kinds, in the order of RowKind.
constexpr std::array<const char *, 9> kindNames{
    "Identity", "Detail",        "Interface", "Screen", "Layer",
    "File",     "ScreenGenlock", "CutoutRGB", "Layout",
};

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

QByteArray DeviceRow::digest() const
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(QByteArray::number(static_cast<int>(kind)) + ' ' + key.toUtf8() + ' '
                 + QByteArray::number(body.size()) + ' ');
    hash.addData(body);
    hash.addData(content);
    return hash.result();
}

QString DeviceRow::name() const
{
    const auto number = static_cast<std::size_t>(kind);
    const QString kindName = number < kindNames.size()
        ? QLatin1String(kindNames[number])
        : QStringLiteral("Record of kind %1").arg(static_cast<int>(kind));
    return key.isEmpty() ? kindName : kindName + QLatin1Char(' ') + key;
}

void visitRows(const Device &device, const std::function<void(const DeviceRow &)> &visit)
{
    const auto &d = DevicePrivate::get(device);
    const QString onlyOne = QStringLiteral(""); // SQL would store a null string as NULL
    const auto visitRow = [&](RowKind kind, const QString &key, const auto &record) {
        visit({kind, key, RowFormat::encode(record), {}});
    };
    visitRow(RowKind::Identity, onlyOne, identityOf(device));
    visitRow(RowKind::Detail, onlyOne, device.deviceDetail());
    visitRow(RowKind::CutoutRGB, onlyOne, device.cutoutRGB());
    for (const auto &genlock : device.screenGenlocks())
        visitRow(RowKind::ScreenGenlock, keyOf(objectId(genlock)), genlock);
    for (const auto &[screenId, span] : d.settings->layouts())
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
