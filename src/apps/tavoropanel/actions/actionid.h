#pragma once

namespace Tavoro::Panel {

/// The actions of the program, in the order of the table and of the list of shortcuts.
enum class ActionId : int {
    Take,
    Cut,
    Freeze,
    FadeToBlack,
    SelectAllScreens,
    Undo,
    Redo,
    TakeControl,
    ForceControl,
    ReleaseControl,
    AddDevice,
    RemoveDevice,
    FindDevices,
    Reconnect,
    ReadAgain,
    ZoomIn,
    ZoomOut,
    ZoomFit,
    RaiseLayer,
    LowerLayer,
    RaiseToTop,
    LowerToBottom,
    MoreOpaque,
    LessOpaque,
    SavePreset,
    CopyLog,
    ClearAlert,
    DarkTheme,
    LightTheme,
    SystemTheme,
    ShowShortcuts,
    Quit,
};

} // namespace Tavoro::Panel
