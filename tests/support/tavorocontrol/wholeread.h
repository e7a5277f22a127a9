#pragma once

#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/devicelist.h>

#include <QEventLoop>
#include <QString>

#include <memory>

/// Reads the device of this identity into the model's list, like an application. Returns the
/// outcome when the synchronisation has ended.
inline bool readWhole(const Tavoro::BizModel::Device &identity)
{
    Tavoro::Control::DeviceList reader(nullptr);
    QEventLoop untilFinished;
    bool isRead = false;
    QObject::connect(&reader, &Tavoro::Control::DeviceList::signalReadDeviceDetailFinished,
                     &untilFinished, [&](bool success) {
                         isRead = success;
                         untilFinished.quit();
                     });
    QString error;
    if (!reader.readDeviceDetail(identity.IPAddress(), identity.MAC(), identity.sn(), error))
        return false;
    untilFinished.exec();
    return isRead;
}

/// The device of this identity in the model's list.
inline std::shared_ptr<Tavoro::BizModel::Device> listed(const Tavoro::BizModel::Device &identity)
{
    return Tavoro::BizModel::DeviceList::instance()
        ->findDevice(identity.IPAddress(), identity.MAC(), identity.sn())
        .lock();
}
