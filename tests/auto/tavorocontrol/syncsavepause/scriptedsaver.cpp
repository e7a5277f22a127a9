// The functions below replace the model's of the same name, since the linker searches this program
// before its libraries.

#include "scriptedsaver.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/savedevicedatathread.h>

namespace {

Journal *listener = nullptr;

} // namespace

namespace Tavoro::BizModel {

/// Only the private part of the list may create a saver.
class DeviceListPrivate {
public:
    static SaveDeviceDataThread *silentSaver()
    {
        static SaveDeviceDataThread saver;
        return &saver;
    }
};

SaveDeviceDataThread *DeviceList::saveDeviceDataThread() const
{
    return listener ? DeviceListPrivate::silentSaver() : nullptr;
}

void SaveDeviceDataThread::setTemporaryStop(bool stop)
{
    listener->add(stop ? QStringLiteral("saver: stop") : QStringLiteral("saver: resume"));
}

void SaveDeviceDataThread::waitForSavingDataFinished()
{
    listener->add(QStringLiteral("saver: wait"));
}

void SaveDeviceDataThread::saveDevicesInfor(std::weak_ptr<Device> weakDevice)
{
    const auto device = weakDevice.lock();
    listener->add(QStringLiteral("saver: save ")
                  + (device ? device->IPAddress() : QStringLiteral("nothing")));
}

} // namespace Tavoro::BizModel

ScriptedSaver::ScriptedSaver(Journal &journal)
{
    listener = &journal;
}

ScriptedSaver::~ScriptedSaver()
{
    listener = nullptr;
}
