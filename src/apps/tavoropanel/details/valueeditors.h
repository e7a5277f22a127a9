#pragma once

#include "valueeditor.h"

#include <QColor>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QLineEdit;
class QToolButton;
QT_END_NAMESPACE

namespace Tavoro::Panel {

struct Field;

/// A line of text. It is sent when the user presses Return or leaves the line.
class TextEditor : public ValueEditor {
    Q_OBJECT

public:
    TextEditor(const Field &field, QWidget *parent);
    void setValue(const QVariant &value) override;

private:
    void send();

    QLineEdit *const m_line;
    QString m_value;
};

/// A number. Steps are sent at once, typed digits when the user presses Return or leaves the box.
class NumberEditor : public ValueEditor {
    Q_OBJECT

public:
    NumberEditor(const Field &field, QWidget *parent);
    void setValue(const QVariant &value) override;

private:
    void showSuffix();

    QDoubleSpinBox *const m_box;
    const Field &m_field;
};

/// A check box.
class FlagEditor : public ValueEditor {
    Q_OBJECT

public:
    FlagEditor(const Field &field, QWidget *parent);
    void setValue(const QVariant &value) override;

private:
    QCheckBox *const m_box;
};

/// A list of words. A value without a word is shown as a number.
class ChoiceEditor : public ValueEditor {
    Q_OBJECT

public:
    ChoiceEditor(const Field &field, QWidget *parent);
    void setValue(const QVariant &value) override;

private:
    QComboBox *const m_box;
};

/// A button with a colour, which opens a dialogue.
class ColourEditor : public ValueEditor {
    Q_OBJECT

public:
    ColourEditor(const Field &field, QWidget *parent);
    void setValue(const QVariant &value) override;

private:
    void openDialogue();

    QToolButton *const m_button;
    const QString m_title;
    QColor m_colour;
};

/// A text that the user can select and copy.
class ReadOnlyValue : public ValueEditor {
    Q_OBJECT

public:
    ReadOnlyValue(const Field &field, QWidget *parent);
    void setValue(const QVariant &value) override;

private:
    QLabel *const m_label;
    QString (*const m_text)(const QVariant &value);
};

} // namespace Tavoro::Panel
