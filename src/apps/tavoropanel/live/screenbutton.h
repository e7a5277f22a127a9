#pragma once

#include <tavorocontrol/proto/screen.h>

#include <QAbstractButton>
#include <QKeySequence>

namespace Tavoro::Panel {

/// Selects one screen, and shows its name and state.
class ScreenButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit ScreenButton(QWidget *parent = nullptr);

    /// Sets the shortcut that clicks the button.
    void setKeys(const QKeySequence &keys);
    /// Shows a screen. \a name is its name, or its number. Without a connection its state is not
    /// known.
    void show(const QString &name, const ProtoModel::Screen::s_ScreenFullDetail &screen,
              bool isConnected);
    const ProtoModel::s_ScreenId &screen() const { return m_screen; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    ProtoModel::s_ScreenId m_screen;
    QString m_keys; ///< The shortcut for users; empty if there is none.
    QString m_state; ///< Words for frozen, black or ready.
    QColor m_stateColour; ///< Not valid: that of the button.
};

} // namespace Tavoro::Panel
