#pragma once

#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/screen.h>

#include <vector>

/// Typical bodies of devices and applications, with random values in plausible ranges. They are the
/// same in every run. There are several of each kind, so that the branch predictor of the processor
/// cannot learn one body by heart.
namespace Bodies {

using Screens = std::vector<Tavoro::ProtoModel::Screen::s_ScreenFullDetail>;
using Files = std::vector<Tavoro::ProtoModel::File::s_FileDetail>;
using SwitchEffects = std::vector<Tavoro::ProtoModel::Screen::s_SwitchEffect>;

std::vector<Screens> screens(); ///< 16 bodies of 32 screens.
std::vector<Files> files(); ///< 8 bodies of 2,000 files.
std::vector<SwitchEffects> switchEffects(); ///< 512 bodies of 8 switch effects.

} // namespace Bodies
