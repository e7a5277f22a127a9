#pragma once

#include <QtGlobal>

/// Codes that the model shares with the device and with the application's windows. They are
/// unscoped enumerations, so that they convert to the integers on the wire.
namespace Tavoro::BizModel::Enum {

/// Kind of a message in the status bar.
enum StatusBarMsgType : int {
    StatusBarSuccess = 0, ///< A request succeeded.
    StatusBarInformation = 1, ///< Not used by the control library.
    StatusBarFailure = 2, ///< A request failed, or the device is offline.
};

/// Kind of a modal message box.
enum FramelessMessageBoxMsgType : int {
    MessageBoxInformation = 0, ///< Not used by the control library.
    MessageBoxWarning = 1, ///< The device requires a synchronisation.
};

namespace File {

/// Type of a file on the device. Types that are not listed here pass through unchanged.
enum FileType : qint32 {
    AllTypes = -1, ///< In requests only: files of every type.
    Background = 0, ///< A background.
    Logo = 2, ///< A logo.
    ScreenPreset = 6, ///< A preset of one screen.
    DevicePreset = 8, ///< A preset of the whole device.
};

} // namespace File

namespace Device {

/// What applying a preset does to the programme.
enum LoadToPGMStatus : quint8 {
    LoadToPreview = 0, ///< The preset is loaded into the preview.
    LoadToProgramme = 1, ///< The preset is loaded into the programme.
};

/// The part of a device that changed.
enum DataPart : int {
    Identity = 0, ///< Address, name, model or serial number.
    OnlineFlag = 1, ///< Whether the device has a channel.
    SyncSuccess = 2, ///< Whether the last synchronisation succeeded.
    Detail = 3, ///< The data of the device as a whole.
    Subcards = 4, ///< Plug-in cards.
    Powers = 5, ///< Power supplies.
    GenlockSignal = 6, ///< The external genlock signal.
    Groups = 7, ///< Groups of devices.
    InterfaceRelations = 8, ///< Backup relations between interfaces.
    ScreenGenlocks = 9, ///< Genlock states of the screens.
    Process = 10, ///< Progress of the device as a whole.
    CutoutRGB = 11, ///< The cutout colour.
    Interfaces = 12, ///< Interface objects were added, removed, moved or replaced.
    Screens = 13, ///< Screen objects were added, removed, moved or replaced.
    Layers = 14, ///< Layer objects were added, removed, moved or replaced.
    Files = 15, ///< File objects were added, removed, moved or replaced.
    ActiveScreens = 16, ///< The active screen or the active multiviewer.
};

} // namespace Device

namespace Layer {

/// Kind of the source of a layer. Kinds that are not listed here pass through unchanged.
enum SourceType : qint32 {
    NoSource = 0, ///< The layer shows nothing.
    InterfaceSource = 1, ///< The source ID is slot << 16 | connector << 8 | split connector.
};

} // namespace Layer

namespace Screen {

/// Kind of a screen. Kind \e t is bit <tt>1 << t</tt> of the mask of \c Device::screens().
enum ScreenType : int {
    UnknownScreen = 0, ///< Not a kind of screen.
    OrdinaryScreen = 1, ///< An ordinary screen.
    MosaicScreen = 2, ///< A mosaic; may become the active screen, like an ordinary one.
    MultiviewerScreen = 3, ///< A multiviewer, see MVRScreen.
    AuxiliaryScreen = 4, ///< An auxiliary output.
};

} // namespace Screen

} // namespace Tavoro::BizModel::Enum
