#include "actiontable.h"

#include <QtGlobal>

namespace Tavoro::Panel {

namespace {

struct DescriptionRow {
    ActionId id;
    const char *text;
};

#define TEXT(text) QT_TRANSLATE_NOOP("Tavoro::Panel::Actions", text)

using Id = ActionId;

// clang-format off
constexpr DescriptionRow descriptions[] = {
    {Id::Take,             TEXT("Puts the preview of the selected screens on the programme with their transition.")},
    {Id::Cut,              TEXT("Puts the preview of the selected screens on the programme at once.")},
    {Id::Freeze,           TEXT("Freezes the picture of the selected screens, or releases it.")},
    {Id::FadeToBlack,      TEXT("Fades the selected screens to black, or back to the picture.")},
    {Id::SelectAllScreens, TEXT("Selects all screens of the device.")},
    {Id::Undo,             TEXT("Takes the last change back.")},
    {Id::Redo,             TEXT("Makes the change again that was undone last.")},
    {Id::RaiseLayer,       TEXT("Moves the selected layer up by one.")},
    {Id::LowerLayer,       TEXT("Moves the selected layer down by one.")},
    {Id::RaiseToTop,       TEXT("Moves the selected layer above all others.")},
    {Id::LowerToBottom,    TEXT("Moves the selected layer below all others that are not backgrounds.")},
    {Id::MoreOpaque,       TEXT("Increases the opacity of the selected layer by 5 percent.")},
    {Id::LessOpaque,       TEXT("Reduces the opacity of the selected layer by 5 percent.")},
    {Id::SavePreset,       TEXT("Saves the selected screens as a preset on the device.")},
    {Id::AddDevice,        TEXT("Opens a device by its address.")},
    {Id::RemoveDevice,     TEXT("Disconnects the device and removes it from the list.")},
    {Id::FindDevices,      TEXT("Searches the network for devices, until it is switched off.")},
    {Id::Reconnect,        TEXT("Tries to connect at once instead of after the pause.")},
    {Id::ReadAgain,        TEXT("Reads the whole device again.")},
    {Id::TakeControl,      TEXT("Takes control of the device unless another client holds it.")},
    {Id::ForceControl,     TEXT("Takes control of the device even if another client holds it.")},
    {Id::ReleaseControl,   TEXT("Gives up control of the device, so that another client can take it.")},
    {Id::Quit,             TEXT("Ends the program. The devices keep their state.")},
    {Id::ZoomIn,           TEXT("Enlarges the canvas.")},
    {Id::ZoomOut,          TEXT("Reduces the canvas.")},
    {Id::ZoomFit,          TEXT("Shows all screens of the device.")},
    {Id::DarkTheme,        TEXT("Shows the window in dark colours.")},
    {Id::LightTheme,       TEXT("Shows the window in light colours.")},
    {Id::SystemTheme,      TEXT("Shows the window in the colours of the desktop.")},
    {Id::CopyLog,          TEXT("Copies the selected messages of the log as text, or all if none is selected.")},
    {Id::ClearAlert,       TEXT("Removes the alert of the live bar.")},
    {Id::ShowShortcuts,    TEXT("Lists all keyboard shortcuts.")},
};
// clang-format on

#undef TEXT

} // namespace

const char *descriptionOf(ActionId id)
{
    for (const DescriptionRow &row : descriptions) {
        if (row.id == id)
            return row.text;
    }
    Q_ASSERT_X(false, "descriptionOf", "an action without a description");
    return "";
}

} // namespace Tavoro::Panel
