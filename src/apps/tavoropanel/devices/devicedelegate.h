#pragma once

#include <QStyledItemDelegate>

namespace Tavoro::Panel {

/// Shows a device of SessionsModel: its name, its state as symbol, colour and words, the progress
/// of the reading, who controls it, and its last message.
class DeviceDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};

} // namespace Tavoro::Panel
