#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace Tavoro::BizModel {

class Device;

/// What a row of a stored device holds. The numbers stand in files: never change one.
enum class RowKind : int {
    Identity = 0, ///< Of the device, with the name and address that the model has.
    Detail = 1,
    Interface = 2,
    Screen = 3,
    Layer = 4,
    File = 5,
    ScreenGenlock = 6,
    CutoutRGB = 7,
    Layout = 8, ///< Of a multiviewer screen: columns and rows, divided by a comma.
};

/// One record of a device as it is stored.
struct DeviceRow {
    RowKind kind;
    QString key; ///< Identity within the kind.
    QByteArray body; ///< The record's text.
    QByteArray content; ///< Of a file.
};

/// Shows each row of a device to \a visit, one at a time, in the order in which they are read back.
void visitRows(const Device &device, const std::function<void(const DeviceRow &)> &visit);

/// An offline device made of its rows; null when a row does not hold what it should.
std::shared_ptr<Device> deviceOfRows(const std::vector<DeviceRow> &rows);

} // namespace Tavoro::BizModel
