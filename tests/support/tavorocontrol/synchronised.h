#pragma once

#include "scripteddevice.h"
#include "wholedevicechannel.h"
#include <support/tavorobizmodel/journal.h>

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/syncdevicetask.h>

#include <QString>
#include <QStringList>

#include <memory>
#include <stdexcept>
#include <utility>

/// The task, for running it on the test's thread.
class SyncTask : public Tavoro::Control::SyncDeviceTask {
public:
    SyncTask() : SyncDeviceTask(nullptr) { }
    using SyncDeviceTask::run;
};

/// The lines of a journal that come from a synchronisation itself, not from its requests.
inline QStringList syncLines(const QStringList &journal)
{
    QStringList lines;
    for (const QString &line : journal) {
        const bool isOfRequest = line.contains(QLatin1String(": TavoroCmd "))
            || line.startsWith(QLatin1String("debug: find Tavoro Device Channel"));
        const bool isShown = line.startsWith(QLatin1String("status bar "));
        if (!isOfRequest && (!isShown || line.endsWith(QLatin1String("Device offline"))))
            lines << line;
    }
    return lines;
}

/// What every synchronisation logs about the model at its end, with \a between.
inline QStringList modelStep(const QStringList &between = {})
{
    return QStringList(QStringLiteral("info: Sync device init model begin.")) + between
        + QStringList(QStringLiteral("info: Sync device init model end."));
}

/// A device on the network, the model's list without that device, and the task.
class Synchronised {
public:
    explicit Synchronised(
        std::shared_ptr<WholeDeviceChannel> itsChannel = std::make_shared<WholeDeviceChannel>())
        : channel(std::move(itsChannel))
    { }

    ~Synchronised()
    {
        while (const auto left = listed())
            Tavoro::BizModel::DeviceList::instance()->remove(left);
    }

    static QString ip() { return QStringLiteral("192.0.2.7"); }
    static QString mac() { return QStringLiteral("02005E100007"); }
    static QString sn() { return QStringLiteral("0123456789ABCD07"); }

    /// Puts device.model, which has the identity of the channel, into the model's list.
    void makeKnown() { Tavoro::BizModel::DeviceList::instance()->append(device.model); }

    /// The device of this identity in the model's list.
    static std::shared_ptr<Tavoro::BizModel::Device> listed()
    {
        return Tavoro::BizModel::DeviceList::instance()->findDevice(ip(), mac(), sn()).lock();
    }

    bool setDevice() { return task.setDevice(ip(), mac(), sn()); }

    /// One synchronisation from beginning to end, without the reset after it.
    void run()
    {
        setDevice();
        task.run();
    }

    /// True if the synchronisation ends with the exception of the test.
    bool runThrows()
    {
        try {
            run();
        } catch (const std::runtime_error &) {
            return true;
        }
        return false;
    }

    QStringList asked() const { return channel->asked(); }
    QStringList lines() const { return syncLines(journal.lines()); }

    const std::shared_ptr<WholeDeviceChannel> channel;
    ScriptedDevice device{7, channel};
    Journal journal;
    SyncTask task;
};
