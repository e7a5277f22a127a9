#pragma once

#include <tavorobizmodel/device.h>

#include <QList>
#include <QSignalSpy>

#include <memory>

/// Selects the screens of all types.
constexpr int everyType = 0x7FFFFFFF;

/// A device that has not been read.
inline std::shared_ptr<Tavoro::BizModel::Device> emptyDevice()
{
    return std::make_shared<Tavoro::BizModel::Device>(65535, nullptr);
}

/// The parts of the device that its signal deviceDataChanged named.
inline QList<int> signalledParts(const QSignalSpy &spy)
{
    QList<int> list;
    for (const auto &arguments : spy)
        list.append(arguments[0].value<Tavoro::BizModel::Enum::Device::DataPart>());
    return list;
}
