#pragma once

#include "tool.h"

/// The functions that the table of commands calls. Each expects the number of words that its row
/// allows.
namespace Tavoro::Ctl {

ExitStatus runApply(Tool &tool, const Arguments &arguments);
ExitStatus runBatch(Tool &tool, const Arguments &arguments);
ExitStatus runCall(Tool &tool, const Arguments &arguments);
ExitStatus runControl(Tool &tool, const Arguments &arguments);
ExitStatus runDiff(Tool &tool, const Arguments &arguments);
ExitStatus runDiscover(Tool &tool, const Arguments &arguments);
ExitStatus runFiles(Tool &tool, const Arguments &arguments);
ExitStatus runHelp(Tool &tool, const Arguments &arguments);
ExitStatus runList(Tool &tool, const Arguments &arguments);
ExitStatus runPresetApply(Tool &tool, const Arguments &arguments);
ExitStatus runPresetSave(Tool &tool, const Arguments &arguments);
ExitStatus runProjectApply(Tool &tool, const Arguments &arguments);
ExitStatus runProjectSave(Tool &tool, const Arguments &arguments);
ExitStatus runPull(Tool &tool, const Arguments &arguments);
ExitStatus runPush(Tool &tool, const Arguments &arguments);
ExitStatus runReboot(Tool &tool, const Arguments &arguments);
ExitStatus runReplay(Tool &tool, const Arguments &arguments);
ExitStatus runSelfCheck(Tool &tool, const Arguments &arguments);
ExitStatus runShow(Tool &tool, const Arguments &arguments);
ExitStatus runSync(Tool &tool, const Arguments &arguments);
ExitStatus runUpgrade(Tool &tool, const Arguments &arguments);
ExitStatus runVersion(Tool &tool, const Arguments &arguments);
ExitStatus runWatch(Tool &tool, const Arguments &arguments);

} // namespace Tavoro::Ctl
