// Readers and writers of the records of the file domain, in the order of the headers.

#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/preset.h>

#include "recordcodec.h"

TAVORO_CODEC(Tavoro::ProtoModel::File::s_FileGeneral)
TAVORO_CODEC(Tavoro::ProtoModel::File::s_FileSource)
TAVORO_CODEC(Tavoro::ProtoModel::File::s_FileSize)
TAVORO_CODEC(Tavoro::ProtoModel::File::s_FileContain)
TAVORO_CODEC(Tavoro::ProtoModel::File::s_LogPart)
TAVORO_CODEC(Tavoro::ProtoModel::File::s_FileDetail)
TAVORO_CODEC(Tavoro::ProtoModel::File::s_FileInfo)
TAVORO_CODEC(Tavoro::ProtoModel::File::s_CreateFileInfo)
TAVORO_CODEC(Tavoro::ProtoModel::File::s_CreateImageFile)
TAVORO_CODEC(Tavoro::ProtoModel::File::s_CreatePresetFile)
TAVORO_CODEC(Tavoro::ProtoModel::File::s_CreateProjFile)
TAVORO_CODEC(Tavoro::ProtoModel::File::s_CreateLogFile)
TAVORO_CODEC(Tavoro::ProtoModel::File::s_ModifyFileInfo)
TAVORO_CODEC(Tavoro::ProtoModel::File::s_DeleteFile)
TAVORO_CODEC(Tavoro::ProtoModel::File::s_FileTransPercent)
TAVORO_CODEC(Tavoro::ProtoModel::ProjectFile::s_ProjectFileApply)
TAVORO_CODEC(Tavoro::ProtoModel::Preset::s_PresetPlay)
