#include "sourceeditor.h"

#include <tavoropanel/sources/layersources.h>

#include <QComboBox>

#include <algorithm>

namespace Tavoro::Panel {

namespace {

QVariantMap recordOf(const SourceId &id)
{
    return {{QStringLiteral("type"), id.type}, {QStringLiteral("id"), id.id}};
}

SourceId idOf(const QVariantMap &record)
{
    return {record.value(QStringLiteral("type")).toInt(),
            record.value(QStringLiteral("id")).toUInt()};
}

/// Shows texts with their data. An entry that stays the same is not touched, since the user may be
/// looking at the open list.
void setEntries(QComboBox &box, const QList<LayerSource> &sources)
{
    while (box.count() > sources.size())
        box.removeItem(box.count() - 1);
    while (box.count() < sources.size())
        box.addItem(QString());
    for (int row = 0; row < box.count(); ++row) {
        const LayerSource &source = sources[row];
        if (box.itemText(row) != source.text())
            box.setItemText(row, source.text());
        const QVariant record = recordOf(source.id);
        if (box.itemData(row) != record)
            box.setItemData(row, record);
    }
}

} // namespace

SourceEditor::SourceEditor(const LayerSources &sources, QWidget *parent)
    : ValueEditor(parent), m_sources(sources), m_box(new QComboBox(this))
{
    m_box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_box->setMinimumContentsLength(12);
    setControl(m_box);
    connect(m_box, qOverload<int>(&QComboBox::activated), this,
            [this](int row) { Q_EMIT edited(m_box->itemData(row)); });
    connect(&sources, &LayerSources::changed, this, &SourceEditor::showSources);
}

void SourceEditor::setValue(const QVariant &value)
{
    m_source = value.toMap();
    showSources();
}

void SourceEditor::showSources()
{
    const SourceId shown = idOf(m_source);
    QList<LayerSource> sources = m_sources.all();
    const auto isShown = [&](const LayerSource &source) {
        return isSame(source.id, shown);
    };
    if (std::none_of(sources.begin(), sources.end(), isShown))
        sources << LayerSource{shown, tr("Another source"), {}};
    setEntries(*m_box, sources);
    const auto current = std::find_if(sources.begin(), sources.end(), isShown);
    m_box->setCurrentIndex(static_cast<int>(current - sources.begin()));
}

} // namespace Tavoro::Panel
