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

#include <string>

/// Everything that the model holds of a device, one line per object, in the order of the model.
class ModelText {
public:
    explicit ModelText(const Tavoro::BizModel::Device &device)
        : detail(json(device.deviceDetail())),
          interfaces(recordsOf(device.interfaces())),
          screens(recordsOf(device.screens(everyType))),
          layers(recordsOf(device.layers())),
          files(recordsOf(device.files()))
    {
        for (const auto &file : device.files())
            contents << QString::fromLatin1(
                QByteArray::fromStdString(file.lock()->detail().binary).toHex());
    }

    QStringList all() const
    {
        return QStringList(detail) + interfaces + screens + layers + files + contents;
    }

    QString detail;
    QStringList interfaces;
    QStringList screens;
    QStringList layers;
    QStringList files;
    QStringList contents; ///< Contents of the files, in hexadecimal.

private:
    static constexpr int everyType = 0x7FFFFFFF;

    template <class Record>
    static QString json(const Record &record)
    {
        std::string text;
        ajson::encodeRecord(record, text);
        return QString::fromStdString(text);
    }

    template <class Objects>
    static QStringList recordsOf(const Objects &objects)
    {
        QStringList records;
        for (const auto &object : objects)
            records << json(object.lock()->detail());
        return records;
    }
};
