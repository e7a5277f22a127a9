#pragma once

#include "simulatedconnection.h"

#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/devicelist.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/proto/codec.h>

#include <QEventLoop>
#include <QString>
#include <QStringList>

#include <memory>
#include <string>

/// A simulated device that is read whole into the model's list, as an application does it.
class SimulatedSync {
public:
    explicit SimulatedSync(const Tavoro::Sim::SimOptions &options = {}) : connection(options) { }

    /// Reads the device. Returns when that has ended, with its outcome.
    bool run()
    {
        Tavoro::Control::DeviceList reader(nullptr);
        QEventLoop untilFinished;
        bool isRead = false;
        QObject::connect(&reader, &Tavoro::Control::DeviceList::signalReadDeviceDetailFinished,
                         &untilFinished, [&](bool success) {
                             isRead = success;
                             untilFinished.quit();
                         });
        const auto &identity = *connection.model;
        QString error;
        if (!reader.readDeviceDetail(identity.IPAddress(), identity.MAC(), identity.sn(), error))
            return false;
        untilFinished.exec();
        return isRead;
    }

    /// The device as the model's list has it.
    std::shared_ptr<Tavoro::BizModel::Device> listed() const
    {
        const auto &identity = *connection.model;
        return Tavoro::BizModel::DeviceList::instance()
            ->findDevice(identity.IPAddress(), identity.MAC(), identity.sn())
            .lock();
    }

    /// Puts a file onto the device.
    bool import(int type, int id, const std::string &content)
    {
        Tavoro::Control::File files(connection.model);
        Tavoro::ProtoModel::File::s_FileInfo info;
        info.fileType = type;
        info.fileId = id;
        info.general.name = "file " + std::to_string(id);
        info.size.length = static_cast<qint32>(content.size());
        QString error;
        return files.importFile({info}, error)
            && files.importFileBinary({id, type}, content, error);
    }

    SimulatedConnection connection;
};

/// Everything that the model holds of a device, a line each, in its order.
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
    QStringList contents; ///< Of the files, in hexadecimal.

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
