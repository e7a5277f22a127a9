#pragma once

#include <tavorocontrol/proto/fields.h>

#include <QtGlobal>

/// The identities by which records name what they are about.
namespace Tavoro::ProtoModel {

/// Identity of a screen. Every record of a screen begins with it, flat.
struct s_ScreenId {
    quint8 screenId = 0;
    qint32 screenType = 0; ///< A value of the model's \c ScreenType.
    TAVORO_FIELDS(screenId, screenType)
};

/// Identity of an interface. The write records of an interface begin with it, flat; its detail
/// record, outputs of screens and files nest it.
struct s_InterfaceID {
    qint32 slotId = 0;
    qint32 connectorId = 0; ///< Connector on the card in that slot.
    qint32 splitId = 0; ///< Part of a split connector.
    TAVORO_FIELDS(slotId, connectorId, splitId)
};

/// Identity of a file. Every record of a file begins with it, flat.
struct s_FileIdentity {
    qint32 fileId = 0; ///< Number of the file within its type.
    qint32 fileType = 0; ///< A value of the model's \c FileType.
    TAVORO_FIELDS(fileId, fileType)
};

} // namespace Tavoro::ProtoModel
