#pragma once

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/identities.h>

#include <QtGlobal>

#include <string>
#include <vector>

/// Records of the files that a device stores: images, presets, projects, logs and others.
///
/// Each record is sent as an element of an array, even for a single file. The ranges and codes
/// given here are those of the simulated device; another device may use others.
namespace Tavoro::ProtoModel::File {

/// Name of a file.
struct s_FileGeneral {
    std::string name = "N/A"; ///< Name for display, 1 to 255 bytes of UTF-8.
    TAVORO_FIELDS(name)
};

/// What an image is captured from.
struct s_FileSource {
    quint32 id = 0; ///< Number of the source; of an input slot << 16 | connector << 8 | split.
    qint32 type = 0; ///< Kind of source: 1 an input, 3 a screen.
    qint32 zoomRatio = 1; ///< For a capture: every n-th pixel is stored, n from 1.
    TAVORO_FIELDS(id, type, zoomRatio)
};

/// Length and hash sum of the content of a file, and the size of an image.
struct s_FileSize {
    qint32 length = 0; ///< Length of the content in bytes.
    /// Hash sum of the content as the device reports it. The library neither computes nor compares
    /// it.
    qint32 hashSum = 0;
    qint32 width = 0; ///< Width in pixels of an image, 0 for other files.
    qint32 height = 0; ///< Height in pixels of an image, 0 for other files.
    TAVORO_FIELDS(length, hashSum, width, height)
};

/// Which files a project contains.
struct s_FileContain {
    quint8 other = 0; ///< Not 0: the project contains the files of all other types.
    quint8 BKG = 0; ///< Not 0: the project contains the backgrounds.
    quint8 logo = 0; ///< Not 0: the project contains the logos.
    quint8 preset = 0; ///< Not 0: the project contains the presets.
    TAVORO_FIELDS(other, BKG, logo, preset)
};

/// A unit of the device whose log is collected.
struct s_LogPart {
    qint32 type = 0; ///< Kind of unit.
    quint8 slotId = 0; ///< Slot of the unit.
    TAVORO_FIELDS(type, slotId)
};

/// A file on the device: one element of the answer to the file list.
struct s_FileDetail : s_FileIdentity {
    s_FileGeneral general; ///< Name of the file.
    s_FileSource source; ///< What an image was captured from.
    s_FileSize size; ///< Length, hash sum, and size of an image.
    std::string binary; ///< Content of the file, once it was read. Not part of the JSON.
    TAVORO_FIELDS(fileId, fileType, general, source, size)
};

/// Announces a file to the device before its content is sent.
struct s_FileInfo : s_FileIdentity {
    s_FileGeneral general; ///< Name of the file.
    s_FileSize size; ///< Length, hash sum and image size of the content that follows.
    /// Interface to which the file belongs. Kept: the key is plural, but holds one object.
    s_InterfaceID interfaceIds;
    TAVORO_FIELDS(fileId, fileType, general, size, interfaceIds)
};

/// Creates a file from an interface.
struct s_CreateFileInfo : s_FileIdentity {
    s_FileGeneral general; ///< Name of the file.
    s_InterfaceID interfaceId; ///< Interface from which the file is created.
    TAVORO_FIELDS(fileId, fileType, general, interfaceId)
};

/// Captures an image into a file.
struct s_CreateImageFile : s_FileIdentity {
    s_FileGeneral general; ///< Name of the file.
    s_FileSource source; ///< What to capture.
    TAVORO_FIELDS(fileId, fileType, general, source)
};

/// Stores the current state of screens as a preset.
struct s_CreatePresetFile : s_FileIdentity {
    s_FileGeneral general; ///< Name of the file.
    std::vector<s_ScreenId> screens; ///< Screens that the preset covers.
    TAVORO_FIELDS(fileId, fileType, general, screens)
};

/// Stores a project.
struct s_CreateProjFile : s_FileIdentity {
    s_FileGeneral general; ///< Name of the file.
    s_FileContain contain; ///< Files that the project contains.
    TAVORO_FIELDS(fileId, fileType, general, contain)
};

/// Collects a log into a file.
struct s_CreateLogFile : s_FileIdentity {
    s_FileGeneral general; ///< Name of the file.
    std::vector<s_LogPart> parts; ///< Units whose logs are collected.
    TAVORO_FIELDS(fileId, fileType, general, parts)
};

/// Renames a file, or moves it to another number and type.
struct s_ModifyFileInfo : s_FileIdentity {
    s_FileGeneral general; ///< The new name.
    qint32 desFileId = 0; ///< The new number, 0 to 254.
    qint32 desFileType = 0; ///< The new type, 0 to 254.
    TAVORO_FIELDS(fileId, fileType, general, desFileId, desFileType)
};

/// Deletes a file.
struct s_DeleteFile : s_FileIdentity {
    TAVORO_FIELDS(fileId, fileType)
};

/// Progress of one file transfer, reported by the device.
struct s_FileTransPercent : s_FileIdentity {
    qint32 type = 0; ///< Kind of transfer: 1 to the device.
    qint32 percent = 0; ///< Progress, 0 to 100.
    qint32 status = 0; ///< 0 in progress, 1 complete, 2 failed.
    TAVORO_FIELDS(fileId, fileType, type, percent, status)
};

} // namespace Tavoro::ProtoModel::File

namespace Tavoro::ProtoModel::ProjectFile {

/// Applies a project.
struct s_ProjectFileApply : s_FileIdentity {
    TAVORO_FIELDS(fileId, fileType)
};

} // namespace Tavoro::ProtoModel::ProjectFile
