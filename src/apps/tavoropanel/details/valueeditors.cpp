#include "valueeditors.h"

#include "field.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVariantMap>

#include <cmath>

namespace Tavoro::Panel {

namespace {

/// Whether the user is typing in the line of a control.
bool isBeingTyped(const QWidget &control)
{
    const auto *const line = control.findChild<QLineEdit *>();
    return control.hasFocus() && line && line->isModified();
}

QColor colourOf(const QVariantMap &record)
{
    const auto part = [&](const char *key) {
        return record.value(QLatin1String(key)).toInt();
    };
    return QColor(part("R"), part("G"), part("B"));
}

} // namespace

// Text

TextEditor::TextEditor(const Field &field, QWidget *parent)
    : ValueEditor(parent), m_line(new QLineEdit(this))
{
    m_line->setMaxLength(field.maximum);
    setControl(m_line);
    connect(m_line, &QLineEdit::editingFinished, this, &TextEditor::send);
}

void TextEditor::setValue(const QVariant &value)
{
    m_value = value.toString();
    if (m_line->hasFocus() && m_line->isModified())
        return;
    if (m_line->text() != m_value)
        m_line->setText(m_value);
}

void TextEditor::send()
{
    if (!m_line->isModified())
        return;
    m_line->setModified(false);
    if (m_line->text() != m_value)
        Q_EMIT edited(m_line->text());
}

// Number

NumberEditor::NumberEditor(const Field &field, QWidget *parent)
    : ValueEditor(parent), m_box(new QDoubleSpinBox(this)), m_field(field)
{
    m_box->setDecimals(field.decimals());
    m_box->setRange(double(field.minimum) / field.divisor, double(field.maximum) / field.divisor);
    m_box->setKeyboardTracking(false);
    m_box->setAccelerated(true);
    setControl(m_box);
    connect(m_box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, [this](double value) {
        showSuffix();
        Q_EMIT edited(static_cast<int>(std::lround(value * m_field.divisor)));
    });
}

void NumberEditor::setValue(const QVariant &value)
{
    if (isBeingTyped(*m_box))
        return;
    const QSignalBlocker blocker(m_box);
    m_box->setValue(double(value.toInt()) / m_field.divisor);
    showSuffix();
}

/// The unit, or the word for a special number.
void NumberEditor::showSuffix()
{
    const QString word = m_field.choiceText(static_cast<int>(m_box->value()));
    const QString suffix = word.isEmpty() ? m_field.unitText() : QStringLiteral(" (%1)").arg(word);
    if (m_box->suffix() != suffix)
        m_box->setSuffix(suffix);
}

// Flag

FlagEditor::FlagEditor(const Field &field, QWidget *parent)
    : ValueEditor(parent), m_box(new QCheckBox(field.labelText(), this))
{
    setControl(m_box);
    connect(m_box, &QCheckBox::clicked, this,
            [this](bool isChecked) { Q_EMIT edited(isChecked ? 1 : 0); });
}

void FlagEditor::setValue(const QVariant &value)
{
    m_box->setChecked(value.toInt() != 0);
}

// Choice

ChoiceEditor::ChoiceEditor(const Field &field, QWidget *parent)
    : ValueEditor(parent), m_box(new QComboBox(this))
{
    for (const FieldChoice *choice = field.choices; choice->text; ++choice)
        m_box->addItem(fieldText(choice->text), choice->value);
    setControl(m_box);
    connect(m_box, qOverload<int>(&QComboBox::activated), this,
            [this](int row) { Q_EMIT edited(m_box->itemData(row)); });
}

void ChoiceEditor::setValue(const QVariant &value)
{
    if (m_box->findData(value.toInt()) < 0)
        m_box->addItem(tr("Code %1").arg(value.toInt()), value.toInt());
    m_box->setCurrentIndex(m_box->findData(value.toInt()));
}

// Colour

ColourEditor::ColourEditor(const Field &field, QWidget *parent)
    : ValueEditor(parent), m_button(new QToolButton(this)), m_title(field.labelText())
{
    m_button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_button->setFocusPolicy(Qt::StrongFocus);
    setControl(m_button);
    connect(m_button, &QToolButton::clicked, this, &ColourEditor::openDialogue);
}

void ColourEditor::setValue(const QVariant &value)
{
    m_colour = colourOf(value.toMap());
    QPixmap swatch(m_button->iconSize());
    swatch.fill(m_colour);
    m_button->setIcon(swatch);
    m_button->setText(m_colour.name().toUpper());
}

void ColourEditor::openDialogue()
{
    auto *const dialogue = new QColorDialog(m_colour, this);
    dialogue->setWindowTitle(m_title);
    dialogue->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialogue, &QColorDialog::colorSelected, this, [this](const QColor &colour) {
        Q_EMIT edited(QVariantMap{{QStringLiteral("R"), colour.red()},
                                  {QStringLiteral("G"), colour.green()},
                                  {QStringLiteral("B"), colour.blue()}});
    });
    dialogue->open();
}

// Shown

ReadOnlyValue::ReadOnlyValue(const Field &field, QWidget *parent)
    : ValueEditor(parent), m_label(new QLabel(this)), m_text(field.text)
{
    m_label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_label->setWordWrap(true);
    setControl(m_label);
}

void ReadOnlyValue::setValue(const QVariant &value)
{
    m_label->setText(m_text(value));
}

} // namespace Tavoro::Panel
