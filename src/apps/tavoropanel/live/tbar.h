#pragma once

#include <QSlider>

namespace Tavoro::Panel {

/// The T-bar: a take by hand, from 0 to 100 percent. It follows the device while the operator does
/// not move it. Only its handle can be dragged. When it is released at the end, it returns to the
/// start, so that it can take again.
class TBar : public QSlider {
    Q_OBJECT

public:
    explicit TBar(QWidget *parent = nullptr);

    /// Shows the position that the device reports, unless the operator is moving the bar.
    void follow(int percent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The operator has moved the bar.
    void moved(int percent);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void returnFromEnd();
    int centre() const;
    QRect handle() const;

    bool m_isFollowing = false;
    int m_grip = 0; ///< Where the handle is held, from its centre.
};

} // namespace Tavoro::Panel
