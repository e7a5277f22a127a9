#include "savepresetdialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace Tavoro::Panel {

SavePresetDialog::SavePresetDialog(const QString &name, const QStringList &screens, QWidget *parent)
    : QDialog(parent),
      m_name(new QLineEdit(name, this)),
      m_selected(new QRadioButton(
          tr("The selected screens: %1").arg(screens.join(QStringLiteral(", "))), this)),
      m_all(new QRadioButton(tr("All screens of the device"), this))
{
    setWindowTitle(tr("Save preset"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_name->setObjectName(QStringLiteral("presetName"));
    m_name->setMaxLength(255);
    m_name->setMinimumWidth(m_name->fontMetrics().averageCharWidth() * 32);
    m_name->selectAll();
    m_selected->setObjectName(QStringLiteral("selectedScreens"));
    m_all->setObjectName(QStringLiteral("allScreens"));
    m_selected->setEnabled(!screens.isEmpty());
    m_selected->setVisible(!screens.isEmpty());
    (screens.isEmpty() ? m_all : m_selected)->setChecked(true);

    auto *const buttons =
        new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_name, &QLineEdit::textChanged, this, [buttons](const QString &text) {
        buttons->button(QDialogButtonBox::Save)->setEnabled(!text.trimmed().isEmpty());
    });

    auto *const layout = new QFormLayout(this);
    layout->setRowWrapPolicy(QFormLayout::WrapLongRows);
    layout->addRow(tr("&Name"), m_name);
    layout->addRow(m_selected);
    layout->addRow(m_all);
    layout->addRow(buttons);
}

QString SavePresetDialog::name() const
{
    return m_name->text().trimmed();
}

bool SavePresetDialog::hasAllScreens() const
{
    return m_all->isChecked();
}

} // namespace Tavoro::Panel
