#pragma once

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/identities.h>

#include <QtGlobal>

namespace Tavoro::ProtoModel::Preset {

/// Applies a preset. The identity is that of the preset file.
struct s_PresetPlay : s_FileIdentity {
    /// 0: as stored. 1: into the preview. Not related to the device's \c presetApplyType.
    qint32 applyType = 0;
    TAVORO_FIELDS(fileId, fileType, applyType)
};

} // namespace Tavoro::ProtoModel::Preset
