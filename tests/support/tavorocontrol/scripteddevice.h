#pragma once

#include "scriptedchannel.h"

#include <tavorobizmodel/device.h>

#include <QString>

#include <memory>

/// A device of the model and a scripted channel of the same identity. The manager knows the channel
/// for as long as this lives.
class ScriptedDevice {
public:
    /// \a number tells devices apart that live at the same time.
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
