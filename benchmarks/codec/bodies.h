#pragma once

#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/screen.h>

#include <vector>

/// Typical bodies of devices and applications. They are the same in every run.
namespace Bodies {

Tavoro::ProtoModel::Device::s_DeviceDetail deviceDetail();
std::vector<Tavoro::ProtoModel::Screen::s_ScreenFullDetail> screens();
std::vector<Tavoro::ProtoModel::File::s_FileDetail> files();
std::vector<Tavoro::ProtoModel::Screen::s_SwitchEffect> switchEffects();

} // namespace Bodies
