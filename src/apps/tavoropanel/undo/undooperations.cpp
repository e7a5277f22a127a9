#include "undooperations.h"

#include <QCoreApplication>
#include <QJsonArray>

#include <algorithm>
#include <iterator>

namespace Tavoro::Panel {

namespace {

using Row = UndoOperation;
using Context = UndoContext;
using Reversed = std::optional<Write>;

constexpr QLatin1String layerKey("layerIdenti");
constexpr QLatin1String placeKey("zorder");

/// The keys of the scene of a layer.
QJsonObject sceneOf(const QJsonObject &layer)
{
    QJsonObject scene = layer.value(layerKey).toObject();
    scene.remove(QLatin1String("layerId"));
    scene.remove(QLatin1String("layerType"));
    return scene;
}

/// The keys of \a written with the values that the object has now. Empty if the device does not
/// have the object.
QJsonObject previousRecord(const Row &row, const Context &context, const QJsonObject &written)
{
    const QJsonObject identity = identityIn(row.kind, written);
    const QJsonObject known = context.known.record(context.device, row.kind, identity);
    if (known.isEmpty())
        return {};
    QJsonObject previous = written;
    for (auto field = previous.begin(); field != previous.end(); ++field) {
        if (!identity.contains(field.key()))
            *field = known.value(field.key());
    }
    return previous;
}

/// A list with a record for each of \a written; nothing if \a makeRecord returns an empty one.
template <class MakeRecord>
Reversed forEach(const QString &operation, const QJsonArray &written, MakeRecord makeRecord)
{
    QJsonArray records;
    for (const auto &record : written) {
        const QJsonObject made = makeRecord(record.toObject());
        if (made.isEmpty())
            return std::nullopt;
        records.append(made);
    }
    return Write{operation, records};
}

/// Writes the previous values with the same operation.
Reversed values(const Row &row, const Context &context, const QJsonArray &written)
{
    return forEach(QLatin1String(row.operation), written,
                   [&](const QJsonObject &record) { return previousRecord(row, context, record); });
}

/// The key is "HDCP" in the record that is read, and "hdcp" in the one that is written.
Reversed copyProtection(const Row &row, const Context &context, const QJsonArray &written)
{
    const QString key = QStringLiteral("hdcp");
    return forEach(QLatin1String(row.operation), written, [&](const QJsonObject &record) {
        QJsonObject previous = identityIn(row.kind, record);
        const QJsonObject known = context.known.record(context.device, row.kind, previous);
        previous.insert(key, known.contains(key) ? known.value(key) : known.value(key.toUpper()));
        return known.isEmpty() ? QJsonObject() : previous;
    });
}

/// Writes the places of all layers of the scenes, from the bottom to the top: the device moves
/// layers up when another one takes their place.
Reversed stackingOrder(const Row &row, const Context &context, const QJsonArray &written)
{
    std::vector<QJsonObject> scenes;
    for (const auto &record : written)
        scenes.push_back(sceneOf(record.toObject()));
    std::vector<QJsonObject> places;
    for (const QJsonObject &layer : context.known.layers(context.device)) {
        if (std::find(scenes.begin(), scenes.end(), sceneOf(layer)) != scenes.end())
            places.push_back(
                {{layerKey, layer.value(layerKey)}, {placeKey, layer.value(placeKey)}});
    }
    std::stable_sort(places.begin(), places.end(), [](const auto &one, const auto &other) {
        return one.value(placeKey).toInt() < other.value(placeKey).toInt();
    });
    QJsonArray records;
    for (const QJsonObject &place : places)
        records.append(place);
    return Write{QLatin1String(row.operation), records};
}

/// Restores layers that existed, and removes those that did not.
Reversed createdLayers(const Row &row, const Context &context, const QJsonArray &written)
{
    if (Reversed previous = values(row, context, written))
        return previous;
    const auto identityOfNew = [&](const QJsonObject &record) {
        const QJsonObject identity = identityIn(row.kind, record);
        const bool isNew = context.known.record(context.device, row.kind, identity).isEmpty();
        return isNew ? identity : QJsonObject();
    };
    return forEach(QStringLiteral("Layer.writeRemoved"), written, identityOfNew);
}

/// Creates the layers again, with all their properties.
Reversed removedLayers(const Row &row, const Context &context, const QJsonArray &written)
{
    return forEach(QStringLiteral("Layer.writeEnableAll"), written, [&](const QJsonObject &record) {
        return context.known.record(context.device, row.kind, identityIn(row.kind, record));
    });
}

/// Renames files back, and moves them back to their numbers.
Reversed movedFiles(const Row &row, const Context &context, const QJsonArray &written)
{
    return forEach(QLatin1String(row.operation), written, [&](const QJsonObject &record) {
        const QJsonObject known =
            context.known.record(context.device, row.kind, identityIn(row.kind, record));
        if (known.isEmpty())
            return QJsonObject();
        return QJsonObject{
            {QStringLiteral("fileId"), record.value(QLatin1String("desFileId"))},
            {QStringLiteral("fileType"), record.value(QLatin1String("desFileType"))},
            {QStringLiteral("general"), known.value(QLatin1String("general"))},
            {QStringLiteral("desFileId"), record.value(QLatin1String("fileId"))},
            {QStringLiteral("desFileType"), record.value(QLatin1String("fileType"))},
        };
    });
}

constexpr auto Device = RecordKind::Device;
constexpr auto Interface = RecordKind::Interface;
constexpr auto Screen = RecordKind::Screen;
constexpr auto Layer = RecordKind::Layer;
constexpr auto File = RecordKind::File;

// clang-format off
const UndoOperation table[] = {
//   operation                                text                                                               kind       reverse  key
    {"Device.writeDeviceGeneral",             QT_TRANSLATE_NOOP("UndoSteps", "rename device"),                   Device,    values},
    {"Device.writeGenlockConfig",             QT_TRANSLATE_NOOP("UndoSteps", "change genlock"),                  Device,    values},
    {"Device.writeSwap",                      QT_TRANSLATE_NOOP("UndoSteps", "change swap at a take"),           Device,    values},
    {"Device.writeZelk",                      QT_TRANSLATE_NOOP("UndoSteps", "change ZeLK"),                     Device,    values},
    {"Device.writeDeviceGroupInfo",           QT_TRANSLATE_NOOP("UndoSteps", "change groups"),                   Device,    values},
    {"Device.writeInterfaceRelationInfo",     QT_TRANSLATE_NOOP("UndoSteps", "change backup inputs"),            Device,    values},
    {"Device.writeOutputMapping",             QT_TRANSLATE_NOOP("UndoSteps", "change output mapping"),           Device,    values, "interfaceMapping"},
    {"Device.writeDynamicRangConversion",     QT_TRANSLATE_NOOP("UndoSteps", "change dynamic range"),            Device,    values, "dynamicRangConversion"},
    {"Device.writeLoadToPGM",                 QT_TRANSLATE_NOOP("UndoSteps", "change where presets go"),         Device,    values, "presetApplyType"},
    {"Interface.writeInterfaceGeneral",       QT_TRANSLATE_NOOP("UndoSteps", "rename interface"),                Interface, values},
    {"Interface.writeInterfaceName",          QT_TRANSLATE_NOOP("UndoSteps", "rename interface"),                Interface, values},
    {"Interface.writeTestPattern",            QT_TRANSLATE_NOOP("UndoSteps", "change test pattern"),             Interface, values},
    {"Interface.writePresetTiming",           QT_TRANSLATE_NOOP("UndoSteps", "change format"),                   Interface, values},
    {"Interface.writeImageQuality",           QT_TRANSLATE_NOOP("UndoSteps", "change image quality"),            Interface, values},
    {"Interface.writeCrop",                   QT_TRANSLATE_NOOP("UndoSteps", "crop input"),                      Interface, values},
    {"Interface.writeCutoutGeneral",          QT_TRANSLATE_NOOP("UndoSteps", "change cutout"),                   Interface, values},
    {"Interface.writeHDCP",                   QT_TRANSLATE_NOOP("UndoSteps", "change copy protection"),          Interface, copyProtection},
    {"Interface.writeInterfaceColorDepth",    QT_TRANSLATE_NOOP("UndoSteps", "change colour depth"),             Interface, values},
    {"Interface.writeInterfaceColorSpace",    QT_TRANSLATE_NOOP("UndoSteps", "change colour space"),             Interface, values},
    {"Interface.writeInterfaceColorRange",    QT_TRANSLATE_NOOP("UndoSteps", "change colour range"),             Interface, values},
    {"Interface.writeInterfaceFormatMapping", QT_TRANSLATE_NOOP("UndoSteps", "change format mapping"),           Interface, values},
    {"Interface.writeInterfaceHDR",           QT_TRANSLATE_NOOP("UndoSteps", "change dynamic range"),            Interface, values},
    {"Screen.writeScreenEnable",              QT_TRANSLATE_NOOP("UndoSteps", "change screen"),                   Screen,    values},
    {"Screen.writeScreenGeneral",             QT_TRANSLATE_NOOP("UndoSteps", "rename screen"),                   Screen,    values},
    {"Screen.writeScreenBackgroundColor",     QT_TRANSLATE_NOOP("UndoSteps", "change background"),               Screen,    values},
    {"Screen.writeLayout",                    QT_TRANSLATE_NOOP("UndoSteps", "move screen"),                     Screen,    values},
    {"Screen.writePhysicalSize",              QT_TRANSLATE_NOOP("UndoSteps", "change physical size"),            Screen,    values},
    {"Screen.writePGMEdit",                   QT_TRANSLATE_NOOP("UndoSteps", "change where edits go"),           Screen,    values},
    {"Screen.writeSelected",                  QT_TRANSLATE_NOOP("UndoSteps", "select screen"),                   Screen,    values},
    {"Screen.writeImageQuality",              QT_TRANSLATE_NOOP("UndoSteps", "change image quality"),            Screen,    values},
    {"Screen.writeFreeze",                    QT_TRANSLATE_NOOP("UndoSteps", "freeze"),                          Screen,    values},
    {"Screen.writeFTB",                       QT_TRANSLATE_NOOP("UndoSteps", "fade to black"),                   Screen,    values},
    {"Screen.writeTestPattern",               QT_TRANSLATE_NOOP("UndoSteps", "change test pattern"),             Screen,    values},
    {"Screen.writeSwitchEffect",              QT_TRANSLATE_NOOP("UndoSteps", "change transition"),               Screen,    values},
    {"Screen.writeScreenHDR",                 QT_TRANSLATE_NOOP("UndoSteps", "change dynamic range"),            Screen,    values},
    {"Screen.writeScreenZelk",                QT_TRANSLATE_NOOP("UndoSteps", "change ZeLK"),                     Screen,    values},
    {"Layer.writeEnableAll",                  QT_TRANSLATE_NOOP("UndoSteps", "create layer"),                    Layer,     createdLayers},
    {"Layer.writeEnable",                     QT_TRANSLATE_NOOP("UndoSteps", "create layer"),                    Layer,     createdLayers},
    {"Layer.writeZOrder",                     QT_TRANSLATE_NOOP("UndoSteps", "change stacking order"),           Layer,     stackingOrder},
    {"Layer.writeGeneral",                    QT_TRANSLATE_NOOP("UndoSteps", "change layer"),                    Layer,     values},
    {"Layer.writeSource",                     QT_TRANSLATE_NOOP("UndoSteps", "change source"),                   Layer,     values},
    {"Layer.writeWindow",                     QT_TRANSLATE_NOOP("UndoSteps", "move layer"),                      Layer,     values},
    {"Layer.writeMask",                       QT_TRANSLATE_NOOP("UndoSteps", "change mask"),                     Layer,     values},
    {"Layer.writeColor",                      QT_TRANSLATE_NOOP("UndoSteps", "change test colour"),              Layer,     values},
    {"Layer.writeOpacity",                    QT_TRANSLATE_NOOP("UndoSteps", "change opacity"),                  Layer,     values},
    {"Layer.writeImageQuality",               QT_TRANSLATE_NOOP("UndoSteps", "change image quality"),            Layer,     values},
    {"Layer.writeShadow",                     QT_TRANSLATE_NOOP("UndoSteps", "change shadow"),                   Layer,     values},
    {"Layer.writeBorder",                     QT_TRANSLATE_NOOP("UndoSteps", "change border"),                   Layer,     values},
    {"Layer.writeSelected",                   QT_TRANSLATE_NOOP("UndoSteps", "select layer"),                    Layer,     values},
    {"Layer.writeUMD",                        QT_TRANSLATE_NOOP("UndoSteps", "change under-monitor display"),    Layer,     values},
    {"Layer.writeCutAndFill",                 QT_TRANSLATE_NOOP("UndoSteps", "change cut and fill"),             Layer,     values},
    {"Layer.writeRemoved",                    QT_TRANSLATE_NOOP("UndoSteps", "remove layer"),                    Layer,     removedLayers},
    {"File.writeFilesInfo",                   QT_TRANSLATE_NOOP("UndoSteps", "rename file"),                     File,      movedFiles},
};
// clang-format on

} // namespace

QString UndoOperation::stepText() const
{
    return QCoreApplication::translate("UndoSteps", text);
}

QJsonArray UndoOperation::recordsIn(const QJsonValue &argument) const
{
    if (argument.isArray())
        return argument.toArray();
    return {*key ? QJsonValue(QJsonObject{{QLatin1String(key), argument}}) : argument};
}

std::optional<Write> UndoOperation::reversed(const UndoContext &context, const Write &write) const
{
    std::optional<Write> back = reverse(*this, context, recordsIn(write.argument));
    if (!back || write.argument.isArray())
        return back;
    const QJsonValue record = back->argument.toArray().first();
    back->argument = *key ? record.toObject().value(QLatin1String(key)) : record;
    return back;
}

const UndoOperation *findUndoOperation(const QString &operation)
{
    const auto row = std::find_if(std::begin(table), std::end(table), [&](const Row &candidate) {
        return operation == QLatin1String(candidate.operation);
    });
    return row == std::end(table) ? nullptr : row;
}

} // namespace Tavoro::Panel
