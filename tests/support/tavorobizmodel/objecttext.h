#pragma once

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/proto/codec.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <string>

/// The state of one object as text, including what is not part of its JSON.
/// @{
template <class Record>
QString recordText(const Record &record)
{
    std::string text;
    ajson::encodeRecord(record, text);
    return QString::fromStdString(text);
}

inline QString cropText(const Tavoro::ProtoModel::s_CropBody &crop)
{
    return recordText(crop.rect);
}

inline QString objectText(const Tavoro::BizModel::Interface &interface)
{
    return recordText(interface.detail()) + cropText(interface.detail().crop);
}

inline QString objectText(const Tavoro::BizModel::Screen &screen)
{
    return recordText(screen.detail());
}

inline QString objectText(const Tavoro::BizModel::Layer &layer)
{
    const auto detail = layer.detail();
    QString text = recordText(detail);
    for (const auto &crop : detail.source.crop)
        text += cropText(crop);
    return text;
}

inline QString objectText(const Tavoro::BizModel::File &file)
{
    const auto detail = file.detail();
    return recordText(detail)
        + QString::fromLatin1(QByteArray::fromStdString(detail.binary).toHex());
}
/// @}

/// All objects of a list, in its order.
template <class Objects>
QStringList objectTexts(const Objects &objects)
{
    QStringList texts;
    for (const auto &object : objects)
        texts << objectText(*object.lock());
    return texts;
}

/// A device with its objects and their relations.
inline QStringList deviceTexts(const Tavoro::BizModel::Device &device)
{
    QStringList texts{device.name(),
                      device.MAC(),
                      device.sn(),
                      QString::number(device.modelId()),
                      QString::number(device.isOnline()),
                      QString::number(device.isSyncDataSuccess()),
                      recordText(device.deviceDetail())};
    texts << objectTexts(device.interfaces()) << objectTexts(device.screens(0x7FFFFFFF))
          << objectTexts(device.layers()) << objectTexts(device.files());
    for (const auto &interface : device.interfaces())
        texts << objectTexts(interface.lock()->layers());
    for (const auto &interface : device.interfaces()) {
        if (const auto screen = interface.lock()->screen().lock())
            texts << objectText(*screen);
    }
    for (const auto &screen : device.screens(0x7FFFFFFF))
        texts << objectTexts(screen.lock()->layers()) << objectTexts(screen.lock()->outputs());
    return texts;
}
