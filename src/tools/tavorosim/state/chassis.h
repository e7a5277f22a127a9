#pragma once

#include "deviceoptions.h"
#include "simstate.h"

namespace Tavoro::Sim {

/// The device as it leaves the factory, with its cards plugged, its inputs connected and its first
/// screens set up.
///
/// Cards carry four connectors each and stand from slot 1 on, those of the inputs first; their
/// connectors count from 1. Screens are numbered from 1. The first is an ordinary one over two
/// outputs side by side, the second a blended mosaic of four, the third a multiviewer, the fourth
/// an auxiliary screen; all others are ordinary ones over one output. When the outputs are used up,
/// the remaining screens have none.
Setup makeChassis(const DeviceOptions &options);

} // namespace Tavoro::Sim
