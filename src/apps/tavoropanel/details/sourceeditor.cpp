#include "sourceeditor.h"

#include "shownvalues.h"

#include <tavorobizmodel/enums.h>
#include <tavoromodels/interfacesmodel.h>

#include <QComboBox>
#include <QVariantMap>

namespace Tavoro::Panel {

namespace {

using BizModel::Enum::Layer::InterfaceSource;
using BizModel::Enum::Layer::NoSource;

QVariantMap source(int type, quint32 id)
{
    return {{QStringLiteral("type"), type}, {QStringLiteral("id"), id}};
}

bool isSame(const QVariantMap &one, const QVariantMap &other)
{
    const auto number = [](const QVariantMap &map, const char *key) {
        return map.value(QLatin1String(key)).toUInt();
    };
    return number(one, "type") == number(other, "type")
        && (number(one, "type") == NoSource || number(one, "id") == number(other, "id"));
}

} // namespace

quint32 sourceId(const QVariantMap &interfaceId)
{
    const auto part = [&](const char *key) {
        return interfaceId.value(QLatin1String(key)).toUInt();
    };
    return part("slotId") << 16U | part("connectorId") << 8U | part("splitId");
}

SourceEditor::SourceEditor(Models::InterfacesModel &inputs, QWidget *parent)
    : ValueEditor(parent), m_inputs(inputs), m_box(new QComboBox(this))
{
    m_box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_box->setMinimumContentsLength(12);
    setControl(m_box);
    connect(m_box, qOverload<int>(&QComboBox::activated), this,
            [this](int row) { Q_EMIT edited(m_box->itemData(row)); });
    connect(&inputs, &QAbstractItemModel::rowsInserted, this, &SourceEditor::refill);
    connect(&inputs, &QAbstractItemModel::rowsRemoved, this, &SourceEditor::refill);
    connect(&inputs, &QAbstractItemModel::rowsMoved, this, &SourceEditor::refill);
    connect(&inputs, &QAbstractItemModel::dataChanged, this, &SourceEditor::refill);
}

void SourceEditor::setValue(const QVariant &value)
{
    m_source = value.toMap();
    refill();
}

void SourceEditor::refill()
{
    m_box->clear();
    m_box->addItem(tr("Nothing"), source(NoSource, 0));
    for (int row = 0; row < m_inputs.rowCount(); ++row) {
        const QModelIndex input = m_inputs.index(row);
        const quint32 id = sourceId(input.data(m_inputs.role("interfaceId")).toMap());
        //: Name of an input, and its format
        m_box->addItem(tr("%1 – %2").arg(input.data().toString(),
                                         timingText(input.data(m_inputs.role("actualTiming")))),
                       source(InterfaceSource, id));
    }
    for (int row = 0; row < m_box->count(); ++row) {
        if (isSame(m_box->itemData(row).toMap(), m_source))
            return m_box->setCurrentIndex(row);
    }
    m_box->addItem(tr("Another source"), m_source);
    m_box->setCurrentIndex(m_box->count() - 1);
}

} // namespace Tavoro::Panel
