#pragma once

#include "actionid.h"

#include <vector>

namespace Tavoro::Panel {

/// The menu of an action.
enum class Menu : int {
    Live,
    Edit,
    Device,
    View,
    Help,
};

/// When an action is enabled.
enum class Needs : int {
    Nothing, ///< Always.
    Device, ///< A device is selected.
    Connection, ///< The selected device is connected.
    WritableScreens, ///< Screens of a device are selected that accepts writes.
    WritableLayer, ///< A layer is selected, and its device accepts writes.
    WritableDevice, ///< A device is selected that accepts writes.
    UndoStep, ///< A change can be undone.
    RedoStep, ///< A change can be redone.
};

/// One action of the program.
struct ActionRow {
    ActionId id;
    Menu menu;
    Needs needs;
    const char *text; ///< To be translated; with a mnemonic.
    const char *shortcut; ///< As in QKeySequence; empty for none.
    const char *icon; ///< Name in the icon theme; empty for none.
};

/// All actions.
const std::vector<ActionRow> &actionTable();

/// What an action does, in one sentence to be translated.
const char *descriptionOf(ActionId id);

} // namespace Tavoro::Panel
