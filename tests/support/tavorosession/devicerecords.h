#pragma once

#include <support/tavorobizmodel/modeltext.h>
#include <support/tavorosession/sessionbench.h>

#include <tavorobizmodel/deviceupdate.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/interface.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/screen.h>

#include <QStringList>

#include <memory>

/// The records that the model holds of a device, without the contents of files.
inline QStringList recordsOf(const Tavoro::BizModel::Device &device)
{
    const ModelText text(device);
    return QStringList(text.detail) + text.interfaces + text.screens + text.layers + text.files;
}

/// The records that a device has now, as recordsOf() returns them. Empty if a read fails.
inline QStringList readRecords(Tavoro::DeviceSession &wall)
{
    using namespace Tavoro;
    const auto detailCall = wall.call(&Control::Device::readDetails);
    const auto interfacesCall = wall.call(&Control::Interface::readDetails, 0, -1);
    const auto screensCall = wall.call(&Control::Screen::readDetails, -1, 0, -1);
    const auto layersCall = wall.call(&Control::Layer::readDetails, -1, -1, -1, -1);
    const auto filesCall = wall.call(&Control::File::readDetails, -1, -1);
    const auto detail = resultOf(detailCall);
    const auto interfaces = resultOf(interfacesCall);
    const auto screens = resultOf(screensCall);
    const auto layers = resultOf(layersCall);
    const auto files = resultOf(filesCall);
    if (!detail || !interfaces || !screens || !layers || !files)
        return {};
    BizModel::s_DeviceReading reading;
    reading.baseInfo = wall.device()->deviceBaseInfo();
    reading.detail = detail.record();
    reading.interfaces = interfaces.record();
    reading.screens = screens.record();
    reading.layers = layers.record();
    reading.files = files.record();
    const auto read = std::make_shared<BizModel::Device>(1, nullptr);
    QString error;
    return BizModel::updateDevice(*read, reading, error) ? recordsOf(*read) : QStringList();
}
