#pragma once

#include "request.h"

/// The commands of presets and projects.
///
/// A preset holds screens with all their layers. A project holds all screens and, on
/// request, files with their contents.
namespace Tavoro::Sim {

/// Types of the files that are presets.
constexpr qint32 screenPreset = 6;
constexpr qint32 devicePreset = 8;

DeviceStatus writeCreatePreset(SimState &state, const Request &request, Reports &reports);
/// Restores the screens of presets (\c applyType 0), or copies the programmes of the presets to the
/// previews of the screens (1).
DeviceStatus writePresetApply(SimState &state, const Request &request, Reports &reports);

DeviceStatus writeCreateProject(SimState &state, const Request &request, Reports &reports);
/// Replaces all screens by those of a project, and restores its files.
DeviceStatus writeProjectApply(SimState &state, const Request &request, Reports &reports);

} // namespace Tavoro::Sim
