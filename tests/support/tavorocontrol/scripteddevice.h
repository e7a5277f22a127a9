#pragma once

#include "scriptedchannel.h"

#include <tavorobizmodel/device.h>

#include <QString>

#include <memory>

/// A device of the model and a scripted channel of the same identity. The manager has the channel
/// during the lifetime of this object.
class ScriptedDevice {
public:
    /// \a number distinguishes devices that exist at the same time.
    explicit ScriptedDevice(
        quint8 number = 7,
        std::shared_ptr<ScriptedChannel> channel = std::make_shared<ScriptedChannel>());
    ~ScriptedDevice();
    ScriptedDevice(const ScriptedDevice &) = delete;
    ScriptedDevice &operator=(const ScriptedDevice &) = delete;

    void removeChannel();
    bool isChannelKnown() const;
    /// Name and identity as log lines quote them.
    QString quotedName() const;

    const std::shared_ptr<ScriptedChannel> channel;
    std::shared_ptr<Tavoro::BizModel::Device> model;
};
