#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>
#include <tavorocontrol/proto/fields.h>

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <functional>
#include <string>

namespace Tavoro::BizModel {

class Device;

/// What a row of a stored device holds. The numbers are written to files: never change one.
enum class RowKind : int {
    Identity = 0, ///< s_StoredIdentity
    Detail = 1, ///< s_DeviceDetail
    Interface = 2, ///< s_InterfaceDetail
    Screen = 3, ///< s_ScreenFullDetail
    Layer = 4, ///< s_LayerFullDetail
    File = 5, ///< s_FileDetail, with the file's bytes as the content of the row
    ScreenGenlock = 6, ///< s_ScreenGenlockBody
    CutoutRGB = 7, ///< s_RGB
    Layout = 8, ///< s_StoredLayout
};

/// The identity record of a device, and the address, name and model number that the model has for
/// it, which may differ.
struct s_StoredIdentity {
    ProtoModel::DeviceBaseInfo info;
    std::string ip;
    std::string name;
    quint16 modelId = 0;
    TAVORO_FIELDS(info, ip, name, modelId)
};

/// The user's layout of one multiviewer screen.
struct s_StoredLayout {
    qint32 screenId = 0;
    qint32 columns = 0;
    qint32 rows = 0;
    TAVORO_FIELDS(screenId, columns, rows)
};

/// One record of a device as it is stored.
struct DeviceRow {
    RowKind kind;
    QString key; ///< Identity within the kind.
    QByteArray body; ///< The record, as rowformat_p.h describes it.
    QByteArray content; ///< The bytes of a file; empty for other kinds.

    /// Returns the SHA-1 of "kind key size ", where size is that of the body, followed by body and
    /// content. It covers the whole row, so that it shows whether a row was changed or damaged.
    QByteArray digest() const;
    /// Returns the name of the row for messages, such as "File 2/5/0/0/0".
    QString name() const;
};

/// Passes each row of \a device to \a visit, one at a time, ordered by position within each kind.
void visitRows(const Device &device, const std::function<void(const DeviceRow &)> &visit);

} // namespace Tavoro::BizModel
