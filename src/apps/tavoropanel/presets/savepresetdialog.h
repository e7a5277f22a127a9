#pragma once

#include <QDialog>

QT_BEGIN_NAMESPACE
class QLineEdit;
class QPushButton;
class QRadioButton;
QT_END_NAMESPACE

namespace Tavoro::Panel {

/// Asks for the name of a new preset, and which screens it contains.
class SavePresetDialog : public QDialog {
    Q_OBJECT

public:
    /// \a name is proposed. \a screens are the names of the selected screens.
    SavePresetDialog(const QString &name, const QStringList &screens, QWidget *parent = nullptr);

    QString name() const;
    /// True for all screens of the device, false for the selected ones.
    bool hasAllScreens() const;

private:
    QLineEdit *const m_name;
    QRadioButton *const m_selected;
    QRadioButton *const m_all;
};

} // namespace Tavoro::Panel
