#pragma once

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/identities.h>

#include <QtGlobal>

namespace Tavoro::ProtoModel::Preset {

/// Applies the preset in a file, which the identity names.
struct s_PresetPlay : s_FileIdentity {
    /// 0 applies the preset as it was stored, 1 to the preview. Not related to \c presetApplyType
    /// of the device.
    qint32 applyType = 0;
    TAVORO_FIELDS(fileId, fileType, applyType)
};

} // namespace Tavoro::ProtoModel::Preset
