#pragma once

#include "deviceoptions.h"
#include "simstate.h"

namespace Tavoro::Sim {

/// The device as it leaves the factory, with its cards plugged, its inputs connected and its first
/// screens set up.
///
/// Cards have four connectors each, counted from 1. They occupy the slots from 1 on, input cards
/// first. Screens are numbered from 1. The first is an ordinary one over two
/// outputs side by side, the second a blended mosaic of four, the third a multiviewer, the fourth
/// an auxiliary screen; all others are ordinary ones over one output. When the outputs are used up,
/// the remaining screens have none.
Setup makeFactorySetup(const DeviceOptions &options);

} // namespace Tavoro::Sim
