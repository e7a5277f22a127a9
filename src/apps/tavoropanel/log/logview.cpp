#include "logview.h"

#include "logfilter.h"

#include <tavoropanel/actions/actions.h>
#include <tavoropanel/messages/messages.h>

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace Tavoro::Panel {

namespace {

struct LeastRow {
    Severity least;
    const char *text;
};

#define TEXT(text) QT_TRANSLATE_NOOP("Tavoro::Panel::LogView", text)

// clang-format off
constexpr LeastRow leastRows[] = {
    {Severity::Information, TEXT("Messages")},
    {Severity::Warning,     TEXT("Problems only")},
    {Severity::Detail,      TEXT("Every request")},
};
// clang-format on

#undef TEXT

} // namespace

LogView::LogView(Messages &messages, Actions &actions, QWidget *parent)
    : QWidget(parent),
      m_messages(messages),
      m_actions(actions),
      m_filter(new LogFilter(this)),
      m_table(new QTableView(this))
{
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    addFilter();
    addTable();
    connect(&actions.action(ActionId::CopyLog), &QAction::triggered, this,
            [this] { QGuiApplication::clipboard()->setText(text()); });
}

void LogView::addFilter()
{
    auto *const row = new QHBoxLayout;
    auto *const label = new QLabel(tr("&Show:"), this);
    auto *const least = new QComboBox(this);
    for (const LeastRow &each : leastRows)
        least->addItem(tr(each.text), static_cast<int>(each.least));
    least->setAccessibleName(tr("Messages that are shown"));
    least->setAccessibleDescription(tr("Shows all messages, only problems, or every request"));
    label->setBuddy(least);
    connect(least, qOverload<int>(&QComboBox::currentIndexChanged), this, [this, least] {
        m_filter->setLeast(static_cast<Severity>(least->currentData().toInt()));
    });

    QAction &copyAction = m_actions.action(ActionId::CopyLog);
    auto *const copy = new QToolButton(this);
    copy->setDefaultAction(&copyAction);
    copy->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    copy->setFocusPolicy(Qt::TabFocus);
    copy->setAccessibleName(copyAction.iconText());
    copy->setAccessibleDescription(copyAction.toolTip());
    row->addWidget(label);
    row->addWidget(least);
    row->addStretch();
    row->addWidget(copy);
    static_cast<QVBoxLayout *>(layout())->addLayout(row);
}

void LogView::addTable()
{
    m_filter->setSourceModel(&m_messages);
    m_table->setModel(m_filter);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setAlternatingRowColors(true);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);
    m_table->setAccessibleName(tr("Log"));
    m_table->setAccessibleDescription(tr("The messages of this run, the latest one last"));
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() + 6);
    QHeaderView *const header = m_table->horizontalHeader();
    header->setStretchLastSection(true);
    header->setHighlightSections(false);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    const int character = fontMetrics().averageCharWidth();
    header->resizeSection(Messages::TimeColumn, 15 * character);
    header->resizeSection(Messages::SeverityColumn, 16 * character);
    header->resizeSection(Messages::DeviceColumn, 20 * character);
    layout()->addWidget(m_table);
    connect(m_filter, &QAbstractItemModel::rowsInserted, this, &LogView::scroll,
            Qt::QueuedConnection);
}

/// Shows the last message, unless the user reads older ones.
void LogView::scroll()
{
    const QScrollBar &bar = *m_table->verticalScrollBar();
    if (bar.maximum() - bar.value() <= bar.pageStep())
        m_table->scrollToBottom();
}

QString LogView::text() const
{
    QModelIndexList rows = m_table->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    if (rows.isEmpty()) {
        for (int row = 0; row < m_filter->rowCount(); ++row)
            rows << m_filter->index(row, 0);
    }
    QStringList lines;
    for (const QModelIndex &row : qAsConst(rows))
        lines << Messages::line(m_messages.message(m_filter->mapToSource(row).row()));
    return lines.join(QLatin1Char('\n'));
}

} // namespace Tavoro::Panel
