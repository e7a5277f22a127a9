#pragma once

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/identities.h>

#include <QtGlobal>

namespace Tavoro::ProtoModel::Preset {

/// A preset that is to be applied.
struct s_PresetPlay : s_FileIdentity {
    qint32 applyType = 0; ///< How. No relation to the device's \c presetApplyType.
    TAVORO_FIELDS(fileId, fileType, applyType)
};

} // namespace Tavoro::ProtoModel::Preset
