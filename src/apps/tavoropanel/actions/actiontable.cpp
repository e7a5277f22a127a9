#include "actiontable.h"

#include <QtGlobal>

namespace Tavoro::Panel {

#define TEXT(text) QT_TRANSLATE_NOOP("Tavoro::Panel::Actions", text)

const std::vector<ActionRow> &actionTable()
{
    using Id = ActionId;
    // clang-format off
    static const std::vector<ActionRow> table = {
        // id                  menu          needs                   text                          shortcut        icon
        {Id::Take,             Menu::Live,   Needs::WritableScreens, TEXT("&Take"),                "Space",        "media-playback-start"},
        {Id::Cut,              Menu::Live,   Needs::WritableScreens, TEXT("&Cut"),                 "Ctrl+Space",   "media-skip-forward"},
        {Id::Freeze,           Menu::Live,   Needs::WritableScreens, TEXT("F&reeze"),              "F",            "media-playback-pause"},
        {Id::FadeToBlack,      Menu::Live,   Needs::WritableScreens, TEXT("Fade to &black"),       "B",            "contrast"},
        {Id::SelectAllScreens, Menu::Live,   Needs::Device,          TEXT("Select &all screens"),  "Ctrl+Shift+A", "edit-select-all"},
        {Id::Undo,             Menu::Edit,   Needs::UndoStep,        TEXT("&Undo"),                "Ctrl+Z",       "edit-undo"},
        {Id::Redo,             Menu::Edit,   Needs::RedoStep,        TEXT("&Redo"),                "Ctrl+Shift+Z", "edit-redo"},
        {Id::RaiseLayer,       Menu::Edit,   Needs::WritableLayer,   TEXT("R&aise layer"),         "Ctrl+PgUp",    "go-up"},
        {Id::LowerLayer,       Menu::Edit,   Needs::WritableLayer,   TEXT("L&ower layer"),         "Ctrl+PgDown",  "go-down"},
        {Id::RaiseToTop,       Menu::Edit,   Needs::WritableLayer,   TEXT("Raise layer to &top"),  "Ctrl+Shift+PgUp", "go-top"},
        {Id::LowerToBottom,    Menu::Edit,   Needs::WritableLayer,   TEXT("Lower layer to botto&m"), "Ctrl+Shift+PgDown", "go-bottom"},
        {Id::MoreOpaque,       Menu::Edit,   Needs::WritableLayer,   TEXT("More opa&que"),         "Alt+Up",       ""},
        {Id::LessOpaque,       Menu::Edit,   Needs::WritableLayer,   TEXT("L&ess opaque"),         "Alt+Down",     ""},
        {Id::SavePreset,       Menu::Edit,   Needs::WritableDevice,  TEXT("&Save preset…"),        "Ctrl+S",       "document-save"},
        {Id::AddDevice,        Menu::Device, Needs::Nothing,         TEXT("&Add device…"),         "Ctrl+N",       "list-add"},
        {Id::RemoveDevice,     Menu::Device, Needs::Device,          TEXT("Remo&ve device"),       "",             "list-remove"},
        {Id::FindDevices,      Menu::Device, Needs::Nothing,         TEXT("&Find devices"),        "Ctrl+F",       "edit-find"},
        {Id::Reconnect,        Menu::Device, Needs::Device,          TEXT("Re&connect now"),       "Ctrl+R",       "network-connect"},
        {Id::ReadAgain,        Menu::Device, Needs::Connection,      TEXT("&Read again"),          "F5",           "view-refresh"},
        {Id::TakeControl,      Menu::Device, Needs::Connection,      TEXT("&Take control"),        "Ctrl+T",       "object-locked"},
        {Id::ForceControl,     Menu::Device, Needs::Connection,      TEXT("F&orce control…"),      "",             "dialog-warning"},
        {Id::ReleaseControl,   Menu::Device, Needs::Connection,      TEXT("Re&lease control"),     "",             "object-unlocked"},
        {Id::Quit,             Menu::Device, Needs::Nothing,         TEXT("&Quit"),                "Ctrl+Q",       "application-exit"},
        {Id::ZoomIn,           Menu::View,   Needs::Nothing,         TEXT("Zoom &in"),             "Ctrl++",       "zoom-in"},
        {Id::ZoomOut,          Menu::View,   Needs::Nothing,         TEXT("Zoom &out"),            "Ctrl+-",       "zoom-out"},
        {Id::ZoomFit,          Menu::View,   Needs::Nothing,         TEXT("&Fit to window"),       "Ctrl+0",       "zoom-fit-best"},
        {Id::DarkTheme,        Menu::View,   Needs::Nothing,         TEXT("&Dark"),                "",             ""},
        {Id::LightTheme,       Menu::View,   Needs::Nothing,         TEXT("&Light"),               "",             ""},
        {Id::SystemTheme,      Menu::View,   Needs::Nothing,         TEXT("As the &system"),       "",             ""},
        {Id::CopyLog,          Menu::View,   Needs::Nothing,         TEXT("&Copy log"),            "Ctrl+Shift+C", "edit-copy"},
        {Id::ClearAlert,       Menu::View,   Needs::Nothing,         TEXT("Dismiss &alert"),       "Esc",          "dialog-close"},
        {Id::ShowShortcuts,    Menu::Help,   Needs::Nothing,         TEXT("&Keyboard shortcuts"),  "F1",           "help-contents"},
    };
    // clang-format on
    return table;
}

#undef TEXT

} // namespace Tavoro::Panel
