#pragma once

#include <tavorooperations/operation.h>

#include <QJsonObject>
#include <QString>

#include <map>
#include <memory>
#include <set>
#include <utility>

/// Everything that the reads of a device return, object by object.
class DeviceSnapshot {
public:
    /// Reads the device. False, with the reason in \a error, if a read fails.
    bool read(const std::shared_ptr<Tavoro::BizModel::Device> &device, QString &error);

    /// The smallest scopes of the objects that differ, exist only before, or exist only now.
    std::set<Tavoro::Operations::Scope> changesSince(const DeviceSnapshot &before) const;

private:
    /// Scope and identity of an object. The layers of a scene have one scope.
    using Key = std::pair<Tavoro::Operations::Scope, QString>;

    void add(const Tavoro::Operations::Scope &read, const QJsonObject &object);

    std::map<Key, QJsonObject> m_objects;
};
