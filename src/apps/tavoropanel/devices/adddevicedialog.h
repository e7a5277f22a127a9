#pragma once

#include <QDialog>
#include <QString>

QT_BEGIN_NAMESPACE
class QLineEdit;
class QPushButton;
class QSpinBox;
QT_END_NAMESPACE

namespace Tavoro::Panel {

/// Asks for the address of a device.
class AddDeviceDialog : public QDialog {
    Q_OBJECT

public:
    explicit AddDeviceDialog(QWidget *parent = nullptr);

    QString host() const;
    quint16 port() const;

private:
    QLineEdit *m_host;
    QSpinBox *m_port;
};

} // namespace Tavoro::Panel
