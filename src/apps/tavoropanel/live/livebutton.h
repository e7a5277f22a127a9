#pragma once

#include <QAbstractButton>
#include <QColor>

QT_BEGIN_NAMESPACE
class QAction;
QT_END_NAMESPACE

namespace Tavoro::Panel {

/// A large button of the live bar: triggers an action, and shows its shortcut. A lit button has
/// another colour and another word, such as "Frozen".
class LiveButton : public QAbstractButton {
    Q_OBJECT

public:
    /// A button in the colour \a base, or in that of other buttons if \a base is not valid.
    LiveButton(QAction &action, const QColor &base, QWidget *parent = nullptr);

    /// Lights the button with a colour and a word for its state; without a word it is not lit.
    void setLit(const QString &word, const QColor &colour = {});
    /// The word of a lit button.
    const QString &litWord() const { return m_word; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void follow();
    QFont titleFont(double size) const;
    double titleSizeFor(int width) const;
    QSize sizeFor(double titleSize) const;
    QString note() const;
    QColor background() const;

    QAction &m_action;
    const QColor m_base;
    QColor m_colour; ///< While it is lit.
    QString m_word;
};

} // namespace Tavoro::Panel
