#pragma once

#include <QtGlobal>

/// Codes that the model shares with the device and with the application's windows. Plain
/// enumerations: they convert to the integers that travel.
namespace Tavoro::BizModel::Enum {

/// Kind of a message in the status bar.
enum StatusBarMsgType : int {
    StatusBarSuccess = 0,
    StatusBarInformation = 1,
    StatusBarFailure = 2,
};

/// Kind of a modal message box.
enum FramelessMessageBoxMsgType : int {
    MessageBoxInformation = 0,
    MessageBoxWarning = 1,
};

namespace File {

/// Type of a file on the device. Types without a name here pass through unchanged.
enum FileType : qint32 {
    AllTypes = -1,
    Background = 0,
    Logo = 2,
    ScreenPreset = 6,
    DevicePreset = 8,
};

} // namespace File

namespace Device {

/// What applying a preset does to the programme.
enum LoadToPGMStatus : quint8 {
    LoadToPreview = 0,
    LoadToProgramme = 1,
};

/// What of a device changed.
enum DataPart : int {
    Identity = 0, ///< Address, name, model or serial number.
    OnlineFlag = 1,
    SyncSuccess = 2,
    Detail = 3, ///< All that is known of the device as a whole.
    Subcards = 4,
    Powers = 5,
    GenlockSignal = 6,
    Groups = 7,
    InterfaceRelations = 8,
    ScreenGenlocks = 9,
    Process = 10,
    CutoutRGB = 11,
    Interfaces = 12, ///< Objects came or went, as in the three below.
    Screens = 13,
    Layers = 14,
    Files = 15,
    ActiveScreens = 16,
};

} // namespace Device

namespace Layer {

/// Kind of what a layer shows. Kinds without a name here pass through unchanged.
enum SourceType : qint32 {
    NoSource = 0,
    InterfaceSource = 1, ///< The number packs the identity: slot << 16 | connector << 8 | split.
};

} // namespace Layer

namespace Screen {

/// Kind of a screen. Kind \e t is bit <tt>1 << t</tt> of the mask of \c Device::screens().
enum ScreenType : int {
    UnknownScreen = 0,
    OrdinaryScreen = 1,
    MosaicScreen = 2,
    MultiviewerScreen = 3,
    AuxiliaryScreen = 4,
};

} // namespace Screen

} // namespace Tavoro::BizModel::Enum
