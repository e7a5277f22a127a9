#include "adddevicedialog.h"

#include <tavorosession/session.h>

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace Tavoro::Panel {

AddDeviceDialog::AddDeviceDialog(QWidget *parent)
    : QDialog(parent), m_host(new QLineEdit(this)), m_port(new QSpinBox(this))
{
    setWindowTitle(tr("Add a device"));
    m_host->setPlaceholderText(QStringLiteral("192.0.2.7"));
    m_host->setAccessibleName(tr("Address"));
    m_host->setAccessibleDescription(tr("IP address or host name of the device"));
    m_host->setObjectName(QStringLiteral("host"));
    m_port->setRange(1, 65535);
    m_port->setValue(SSProxy::defaultTcpPort);
    m_port->setAccessibleName(tr("Port"));
    m_port->setAccessibleDescription(tr("TCP port of the device, 1 to 65535"));
    m_port->setObjectName(QStringLiteral("port"));

    auto *const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    QPushButton *const add = buttons->button(QDialogButtonBox::Ok);
    add->setText(tr("Add"));
    add->setAccessibleDescription(tr("Opens the device at this address"));
    add->setEnabled(false);
    buttons->button(QDialogButtonBox::Cancel)
        ->setAccessibleDescription(tr("Closes the dialog without a new device"));
    connect(m_host, &QLineEdit::textChanged, this,
            [this, add] { add->setEnabled(!host().isEmpty()); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *const layout = new QFormLayout(this);
    layout->addRow(tr("&Address:"), m_host);
    layout->addRow(tr("&Port:"), m_port);
    layout->addRow(buttons);
}

QString AddDeviceDialog::host() const
{
    return m_host->text().trimmed();
}

quint16 AddDeviceDialog::port() const
{
    return static_cast<quint16>(m_port->value());
}

} // namespace Tavoro::Panel
