#include "actiontable.h"

#include <QtGlobal>

namespace Tavoro::Panel {

#define TEXT(text) QT_TRANSLATE_NOOP("Tavoro::Panel::Actions", text)

const std::vector<ActionRow> &actionTable()
{
    using Id = ActionId;
    // clang-format off
    static const std::vector<ActionRow> table = {
        // id                   menu          needs                   text                        shortcut        icon                    description
        {Id::Take,              Menu::Live,   Needs::WritableScreens, TEXT("&Take"),              "Space",        "media-playback-start", TEXT("Puts the preview of the selected screens on the programme with their transition.")},
        {Id::Cut,               Menu::Live,   Needs::WritableScreens, TEXT("&Cut"),               "Return",       "media-skip-forward",   TEXT("Puts the preview of the selected screens on the programme at once.")},
        {Id::Freeze,            Menu::Live,   Needs::WritableScreens, TEXT("F&reeze"),            "F",            "media-playback-pause", TEXT("Freezes the picture of the selected screens, or releases it.")},
        {Id::FadeToBlack,       Menu::Live,   Needs::WritableScreens, TEXT("Fade to &black"),     "B",            "contrast",             TEXT("Fades the selected screens to black, or back to the picture.")},
        {Id::SelectAllScreens,  Menu::Live,   Needs::Device,          TEXT("Select &all screens"),"Ctrl+Shift+A", "edit-select-all",      TEXT("Selects all screens of the device.")},
        {Id::Undo,              Menu::Edit,   Needs::UndoStep,        TEXT("&Undo"),              "Ctrl+Z",       "edit-undo",            TEXT("Takes the last change back.")},
        {Id::Redo,              Menu::Edit,   Needs::RedoStep,        TEXT("&Redo"),              "Ctrl+Shift+Z", "edit-redo",            TEXT("Makes the change again that was undone last.")},
        {Id::RaiseLayer,        Menu::Edit,   Needs::WritableLayer,   TEXT("R&aise layer"),       "Ctrl+PgUp",    "go-up",                TEXT("Moves the selected layer up by one.")},
        {Id::LowerLayer,        Menu::Edit,   Needs::WritableLayer,   TEXT("L&ower layer"),       "Ctrl+PgDown",  "go-down",              TEXT("Moves the selected layer down by one.")},
        {Id::SavePreset,        Menu::Edit,   Needs::WritableDevice,  TEXT("&Save preset…"),      "Ctrl+S",       "document-save",        TEXT("Saves the selected screens as a preset on the device.")},
        {Id::AddDevice,         Menu::Device, Needs::Nothing,         TEXT("&Add device…"),       "Ctrl+N",       "list-add",             TEXT("Opens a device by its address.")},
        {Id::RemoveDevice,      Menu::Device, Needs::Device,          TEXT("Remo&ve device"),     "",             "list-remove",          TEXT("Disconnects the device and removes it from the list.")},
        {Id::FindDevices,       Menu::Device, Needs::Nothing,         TEXT("&Find devices"),      "Ctrl+F",       "edit-find",            TEXT("Searches the network for devices, until it is switched off.")},
        {Id::Reconnect,         Menu::Device, Needs::Device,          TEXT("Re&connect now"),     "Ctrl+R",       "network-connect",      TEXT("Tries to connect at once instead of after the pause.")},
        {Id::ReadAgain,         Menu::Device, Needs::Device,          TEXT("&Read again"),        "F5",           "view-refresh",         TEXT("Reads the whole device again.")},
        {Id::TakeControl,       Menu::Device, Needs::Device,          TEXT("&Take control"),      "Ctrl+T",       "object-locked",        TEXT("Takes control of the device unless another client holds it.")},
        {Id::ForceControl,      Menu::Device, Needs::Device,          TEXT("F&orce control…"),    "",             "dialog-warning",       TEXT("Takes control of the device even if another client holds it.")},
        {Id::ReleaseControl,    Menu::Device, Needs::Device,          TEXT("Re&lease control"),   "",             "object-unlocked",      TEXT("Gives up control of the device, so that another client can take it.")},
        {Id::Quit,              Menu::Device, Needs::Nothing,         TEXT("&Quit"),              "Ctrl+Q",       "application-exit",     TEXT("Ends the program. The devices keep their state.")},
        {Id::ZoomIn,            Menu::View,   Needs::Nothing,         TEXT("Zoom &in"),           "Ctrl++",       "zoom-in",              TEXT("Enlarges the canvas.")},
        {Id::ZoomOut,           Menu::View,   Needs::Nothing,         TEXT("Zoom &out"),          "Ctrl+-",       "zoom-out",             TEXT("Reduces the canvas.")},
        {Id::ZoomFit,           Menu::View,   Needs::Nothing,         TEXT("&Fit to window"),     "Ctrl+0",       "zoom-fit-best",        TEXT("Shows all screens of the device.")},
        {Id::DarkTheme,         Menu::View,   Needs::Nothing,         TEXT("&Dark"),              "",             "",                     TEXT("Shows the window in dark colours.")},
        {Id::LightTheme,        Menu::View,   Needs::Nothing,         TEXT("&Light"),             "",             "",                     TEXT("Shows the window in light colours.")},
        {Id::SystemTheme,       Menu::View,   Needs::Nothing,         TEXT("As the &system"),     "",             "",                     TEXT("Shows the window in the colours of the desktop.")},
        {Id::CopyLog,           Menu::View,   Needs::Nothing,         TEXT("&Copy log"),          "Ctrl+Shift+C", "edit-copy",            TEXT("Copies the selected messages of the log as text, or all if none is selected.")},
        {Id::ClearAlert,        Menu::View,   Needs::Nothing,         TEXT("Dismiss &alert"),     "Esc",          "dialog-close",         TEXT("Removes the alert of the live bar.")},
        {Id::ShowShortcuts,     Menu::Help,   Needs::Nothing,         TEXT("&Keyboard shortcuts"),"F1",           "help-contents",        TEXT("Lists all keyboard shortcuts.")},
    };
    // clang-format on
    return table;
}

} // namespace Tavoro::Panel
