#pragma once

#include <tavorocontrol/proto/fields.h>

#include <QtGlobal>

/// Records that all domains use. An identity names the object that a record describes.
namespace Tavoro::ProtoModel {

/// Identity of a screen. Every record of a screen begins with these keys.
struct s_ScreenId {
    quint8 screenId = 0; ///< Number of the screen within its kind.
    qint32 screenType = 0; ///< Kind of screen: a value of the model's \c ScreenType, 1 to 4.
    TAVORO_FIELDS(screenId, screenType)
};

/// Identity of an interface. The write records of an interface begin with these keys; its detail
/// record, the outputs of screens and the records of files hold the identity as an object.
struct s_InterfaceID {
    qint32 slotId = 0; ///< Slot of the card, from 1.
    qint32 connectorId = 0; ///< Connector on the card in that slot, from 1.
    qint32 splitId = 0; ///< Part of a split connector; 0 for a whole connector.
    TAVORO_FIELDS(slotId, connectorId, splitId)
};

/// Identity of a file. Every record of a file begins with these keys.
struct s_FileIdentity {
    qint32 fileId = 0; ///< Number of the file within its type, 0 to 254.
    qint32 fileType = 0; ///< A value of the model's \c FileType, 0 to 254.
    TAVORO_FIELDS(fileId, fileType)
};

} // namespace Tavoro::ProtoModel
