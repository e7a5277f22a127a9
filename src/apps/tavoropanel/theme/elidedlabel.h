#pragma once

#include <QLabel>

namespace Tavoro::Panel {

/// A line of text that shortens its end instead of widening the window; the tool tip has the whole
/// text.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    /// Shows a text, and has it as tool tip.
    void setLine(const QString &text);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace Tavoro::Panel
