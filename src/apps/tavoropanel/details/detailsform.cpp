#include "detailsform.h"

#include "field.h"
#include "makeeditor.h"
#include "valueeditor.h"

#include <tavoromodels/objectmodel.h>

#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QVBoxLayout>

#include <algorithm>

namespace Tavoro::Panel {

namespace {

QLabel *makeHeading(const QString &text, QWidget *parent)
{
    auto *const heading = new QLabel(text, parent);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    heading->setMinimumHeight(QFontMetrics(font).height() * 7 / 4);
    heading->setAlignment(Qt::AlignLeading | Qt::AlignBottom);
    return heading;
}

QString rangeText(const Field &field)
{
    const auto number = [&](int value) {
        return QLocale().toString(double(value) / field.divisor, 'f', field.decimals());
    };
    //: The range of a number, and its unit or nothing
    return DetailsForm::tr("%1 to %2%3")
        .arg(number(field.minimum), number(field.maximum), field.unitText());
}

} // namespace

DetailsForm::DetailsForm(const Context &context, QWidget *parent)
    : QWidget(parent), m_context(context), m_layout(new QFormLayout(this))
{
    m_layout->setRowWrapPolicy(QFormLayout::DontWrapRows);
    m_layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    addSections();
    const Models::ObjectModel &model = m_context.model;
    connect(&model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &first, const QModelIndex &last) {
                if (first.row() <= m_index.row() && m_index.row() <= last.row())
                    refresh();
            });
    connect(&model, &Models::ObjectModel::editFailed, this,
            [this](const QModelIndex &index, const QString &key, const QString &error) {
                if (index == m_index)
                    showRefusal(key, error);
            });
}

void DetailsForm::addSections()
{
    for (const Section &section : sectionsOf(m_context.kind)) {
        m_layout->addRow(makeHeading(section.titleText(), this));
        for (const Field &field : section) {
            if (field.editor == FieldEditor::Flag) // its box has the text
                m_layout->addRow(makeRow(field));
            else
                m_layout->addRow(field.labelText(), makeRow(field));
        }
    }
}

QLayout *DetailsForm::makeRow(const Field &field)
{
    auto *const layout = new QVBoxLayout;
    layout->setSpacing(0);
    const Row row{&field, makeEditor(field, m_context.sources, this), new QLabel(this)};
    row.editor->control()->setObjectName(QString::fromLatin1(field.path));
    row.editor->control()->setAccessibleName(field.labelText());
    row.refusal->setObjectName(QStringLiteral("refusal of %1").arg(QLatin1String(field.path)));
    row.refusal->setWordWrap(true);
    row.refusal->hide();
    layout->addWidget(row.editor);
    layout->addWidget(row.refusal);
    const std::size_t number = m_rows.size();
    connect(row.editor, &ValueEditor::edited, this,
            [this, number](const QVariant &value) { send(number, value); });
    m_rows.push_back(row);
    describe(row, {});
    return layout;
}

void DetailsForm::describe(const Row &row, const QString &refusal)
{
    const QString range =
        row.field->editor == FieldEditor::Number ? rangeText(*row.field) : QString();
    row.editor->control()->setToolTip(range);
    row.editor->control()->setAccessibleDescription(refusal.isEmpty() ? range : refusal);
    row.refusal->setText(refusal.isEmpty() ? QString() : QStringLiteral("⚠ ") + refusal);
    row.refusal->setVisible(!refusal.isEmpty());
}

void DetailsForm::show(const QModelIndex &index)
{
    if (index == m_index)
        return refresh();
    m_index = index;
    m_lastEdited.clear();
    for (const Row &row : m_rows)
        describe(row, {});
    refresh();
}

void DetailsForm::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitHeight();
}

/// Texts of several lines make the form higher, which the area that scrolls it does not consider.
void DetailsForm::fitHeight()
{
    setMinimumHeight(
        std::max(0, m_layout->heightForWidth(width()))); // -1: no text of several lines
}

void DetailsForm::refresh()
{
    if (!m_index.isValid())
        return;
    const Models::ObjectModel &model = m_context.model;
    const bool isOnline = m_index.data(model.role("online")).toBool();
    for (const Row &row : m_rows) {
        const QString key = row.field->key();
        const bool isShown = row.field->editor == FieldEditor::Shown;
        row.editor->setEnabled(isShown
                               || (isOnline && m_context.handler.canEdit(m_context.kind, key)));
        row.editor->setValue(row.field->valueIn(m_index.data(model.role(key.toLatin1()))));
    }
    fitHeight();
}

void DetailsForm::send(std::size_t number, const QVariant &value)
{
    if (!m_index.isValid())
        return;
    const Row &row = m_rows[number];
    const QString key = row.field->key();
    describe(row, {});
    m_lastEdited.insert(key, number);
    Models::ObjectModel &model = m_context.model;
    if (!model.setData(m_index, row.field->changeTo(value), model.role(key.toLatin1()))) {
        showRefusal(key, tr("This property cannot be changed."));
        refresh();
    }
}

void DetailsForm::showRefusal(const QString &key, const QString &reason)
{
    const auto last = m_lastEdited.constFind(key);
    if (last == m_lastEdited.constEnd())
        return;
    describe(m_rows[*last], reason);
    refresh();
}

} // namespace Tavoro::Panel
