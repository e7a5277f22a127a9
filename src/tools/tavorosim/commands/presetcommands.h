#pragma once

#include "request.h"

/// The commands of presets and projects.
///
/// A preset holds screens with all their layers. A project holds all screens and, if it is asked
/// to, files with their contents.
namespace Tavoro::Sim {

/// Types of the files that are presets.
constexpr qint32 screenPreset = 6;
constexpr qint32 devicePreset = 8;

DeviceStatus writeCreatePreset(SimState &state, const Request &request, Reports &reports);
/// Brings the screens of presets back as they were (\c applyType 0), or the programmes of the
/// presets into the previews of the screens (1).
DeviceStatus writePresetApply(SimState &state, const Request &request, Reports &reports);

DeviceStatus writeCreateProject(SimState &state, const Request &request, Reports &reports);
/// Makes the device have exactly the screens of a project, and also its files.
DeviceStatus writeProjectApply(SimState &state, const Request &request, Reports &reports);

} // namespace Tavoro::Sim
