#pragma once

#include "modelrecords.h"

#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/savedevicedatathread.h>

#include <QEventLoop>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QtTest>

#include <memory>

/// Catches the list's signals about its store, on the thread of the test.
class StoreSignals : public QObject {
public:
    StoreSignals()
    {
        using Tavoro::BizModel::DeviceList;
        const auto *const list = DeviceList::instance();
        connect(list, &DeviceList::signalDeviceDataSaved, this,
                [this](const auto &device) { saved.append(device.lock()); });
        connect(list, &DeviceList::signalSaveDeviceDataFailed, this,
                [this](const QString &text) { failures.append(text); });
        connect(list, &DeviceList::signalStoredRecordQuarantined, this,
                [this](const QString &fileName, const QString &record) {
                    damagedRecords.append(fileName + QStringLiteral(": ") + record);
                });
        connect(list, &DeviceList::signalDeviceStoreQuarantined, this,
                [this](const QString &fileName, const QString &quarantineFile) {
                    quarantined.append(fileName + QStringLiteral(" as ") + quarantineFile);
                });
    }

    QList<std::shared_ptr<Tavoro::BizModel::Device>> saved;
    QStringList failures;
    QStringList quarantined;
    QStringList damagedRecords;
};

/// The list of devices with an open store, as during one run of an application.
class StoredModel {
public:
    using Device = Tavoro::BizModel::Device;
    using DeviceList = Tavoro::BizModel::DeviceList;

    explicit StoredModel(const QString &fileName, int retryDelay = 10000)
    {
        Tavoro::BizModel::s_DeviceStoreOptions options;
        options.fileName = fileName;
        options.retryDelay = retryDelay;
        isOpen = list->openDeviceStore(options, error);
    }

    ~StoredModel()
    {
        list->closeDeviceStore();
        const auto devices = list->devices();
        for (const auto &device : devices)
            list->remove(device);
    }

    StoredModel(const StoredModel &) = delete;
    StoredModel &operator=(const StoredModel &) = delete;

    /// The only device in the list.
    std::shared_ptr<Device> onlyDevice() const
    {
        const auto devices = list->devices();
        return devices.size() == 1 ? devices.first().lock() : nullptr;
    }

    /// Requests a save and waits until it is done.
    void save(const std::shared_ptr<Device> &device) const
    {
        QEventLoop waiting;
        bool isSaved = false;
        QObject::connect(list, &DeviceList::signalDeviceDataSaved, &waiting,
                         [&](const auto &saved) {
                             isSaved = isSaved || saved.lock() == device;
                             if (isSaved)
                                 waiting.quit();
                         });
        QTimer::singleShot(10000, &waiting, &QEventLoop::quit);
        list->saveDeviceDataThread()->saveDevicesInfor(device);
        waiting.exec();
        QVERIFY(isSaved);
    }

    DeviceList *const list = DeviceList::instance();
    bool isOpen = false;
    QString error;
};
