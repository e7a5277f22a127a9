#pragma once

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/identities.h>

#include <QtGlobal>

#include <string>
#include <vector>

/// Records of the files that a device stores: pictures, presets, projects, logs and others. Each
/// travels as an element of an array, also when only one file is meant.
namespace Tavoro::ProtoModel::File {

struct s_FileGeneral {
    std::string name = "N/A";
    TAVORO_FIELDS(name)
};

/// What an image was or is to be made from.
struct s_FileSource {
    quint32 id = 0;
    qint32 type = 0; ///< Kind of the source.
    qint32 zoomRatio = 1;
    TAVORO_FIELDS(id, type, zoomRatio)
};

/// Length and hash sum of a file's content, and its size in pixels if it is an image.
struct s_FileSize {
    qint32 length = 0; ///< Bytes.
    qint32 hashSum = 0; ///< As the device states it; passed on, never computed or compared.
    qint32 width = 0;
    qint32 height = 0;
    TAVORO_FIELDS(length, hashSum, width, height)
};

/// Which files a project holds: those whose key is not zero.
struct s_FileContain {
    quint8 other = 0;
    quint8 BKG = 0;
    quint8 logo = 0;
    quint8 preset = 0;
    TAVORO_FIELDS(other, BKG, logo, preset)
};

/// A unit of the device whose log is wanted.
struct s_LogPart {
    qint32 type = 0;
    quint8 slotId = 0;
    TAVORO_FIELDS(type, slotId)
};

/// A file on the device: one element of the answer to the file list.
struct s_FileDetail : s_FileIdentity {
    s_FileGeneral general;
    s_FileSource source;
    s_FileSize size;
    std::string binary; ///< The file's content once it was read. Never travels in a body.
    TAVORO_FIELDS(fileId, fileType, general, source, size)
};

/// A file that is announced to the device before its content follows.
struct s_FileInfo : s_FileIdentity {
    s_FileGeneral general;
    s_FileSize size;
    s_InterfaceID interfaceIds; ///< Kept: the key is in the plural and holds one object.
    TAVORO_FIELDS(fileId, fileType, general, size, interfaceIds)
};

/// A file that the device is to make from an interface.
struct s_CreateFileInfo : s_FileIdentity {
    s_FileGeneral general;
    s_InterfaceID interfaceId;
    TAVORO_FIELDS(fileId, fileType, general, interfaceId)
};

/// An image that the device is to capture.
struct s_CreateImageFile : s_FileIdentity {
    s_FileGeneral general;
    s_FileSource source;
    TAVORO_FIELDS(fileId, fileType, general, source)
};

/// A preset that the device is to store from its state.
struct s_CreatePresetFile : s_FileIdentity {
    s_FileGeneral general;
    std::vector<s_ScreenId> screens; ///< The screens that the preset covers.
    TAVORO_FIELDS(fileId, fileType, general, screens)
};

/// A project that the device is to store.
struct s_CreateProjFile : s_FileIdentity {
    s_FileGeneral general;
    s_FileContain contain;
    TAVORO_FIELDS(fileId, fileType, general, contain)
};

/// A log that the device is to collect.
struct s_CreateLogFile : s_FileIdentity {
    s_FileGeneral general;
    std::vector<s_LogPart> parts;
    TAVORO_FIELDS(fileId, fileType, general, parts)
};

/// Renames or moves the file of the identity.
struct s_ModifyFileInfo : s_FileIdentity {
    s_FileGeneral general; ///< The new name.
    qint32 desFileId = 0;
    qint32 desFileType = 0;
    TAVORO_FIELDS(fileId, fileType, general, desFileId, desFileType)
};

struct s_DeleteFile : s_FileIdentity {
    TAVORO_FIELDS(fileId, fileType)
};

/// Progress of one file's transfer, reported by the device. Five plain integers, cheap to copy.
struct s_FileTransPercent : s_FileIdentity {
    qint32 type = 0; ///< Kind of transfer.
    qint32 percent = 0;
    qint32 status = 0;
    TAVORO_FIELDS(fileId, fileType, type, percent, status)
};

} // namespace Tavoro::ProtoModel::File

namespace Tavoro::ProtoModel::ProjectFile {

/// A project that is to be applied.
struct s_ProjectFileApply : s_FileIdentity {
    TAVORO_FIELDS(fileId, fileType)
};

} // namespace Tavoro::ProtoModel::ProjectFile
