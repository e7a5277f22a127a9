#pragma once

#include <QVariant>
#include <QWidget>

namespace Tavoro::Panel {

/// A control that shows one value of the device and lets the user change it.
///
/// The control shows what the user entered until setValue() is called with what the device has.
class ValueEditor : public QWidget {
    Q_OBJECT

public:
    /// Shows a value of the device. A text that the user is typing stays.
    virtual void setValue(const QVariant &value) = 0;
    /// The widget that the user operates. It has the accessible texts.
    QWidget *control() const { return m_control; }

Q_SIGNALS:
    /// The user has entered another value, as the device counts.
    void edited(const QVariant &value);

protected:
    explicit ValueEditor(QWidget *parent) : QWidget(parent) { }
    /// Fills the editor with the control. A wheel over a control without focus scrolls the page
    /// instead of changing the device.
    void setControl(QWidget *control);
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *m_control = nullptr;
};

} // namespace Tavoro::Panel
