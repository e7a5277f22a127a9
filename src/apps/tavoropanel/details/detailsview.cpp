#include "detailsview.h"

#include "detailsform.h"

#include <QCoreApplication>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

namespace Tavoro::Panel {

namespace {

using Kind = Models::ObjectKind;

struct TabRow {
    Kind kind;
    const char *title;
};

// clang-format off
/// The tabs, in their order.
constexpr TabRow tabs[] = {
    {Kind::Layer,     QT_TRANSLATE_NOOP("Tavoro::Panel::DetailsView", "Layer")},
    {Kind::Screen,    QT_TRANSLATE_NOOP("Tavoro::Panel::DetailsView", "Screen")},
    {Kind::Interface, QT_TRANSLATE_NOOP("Tavoro::Panel::DetailsView", "Input")},
    {Kind::File,      QT_TRANSLATE_NOOP("Tavoro::Panel::DetailsView", "File")},
    {Kind::Device,    QT_TRANSLATE_NOOP("Tavoro::Panel::DetailsView", "Device")},
};
// clang-format on

int tabOf(Kind kind)
{
    int tab = 0;
    while (tabs[tab].kind != kind)
        ++tab;
    return tab;
}

} // namespace

DetailsView::DetailsView(Selection &selection, Messages & /*messages*/, Changes &changes,
                         Actions & /*actions*/, QWidget *parent)
    : QWidget(parent),
      m_rows(selection, changes),
      m_tabs(new QTabBar(this)),
      m_stack(new QStackedWidget(this))
{
    m_tabs->setObjectName(QStringLiteral("detailsTabs"));
    m_tabs->setAccessibleName(tr("Kind of object"));
    m_tabs->setExpanding(false);
    m_tabs->setUsesScrollButtons(false);
    m_tabs->setDrawBase(false);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_tabs);
    layout->addWidget(m_stack);
    addPages();
    m_tabs->setAccessibleDescription(tr("Selects whose properties are shown"));
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int tab) { select(tabs[tab].kind); });
    connect(&m_rows, &SelectedRows::changed, this, &DetailsView::update);
    connect(&m_rows, &SelectedRows::selected, this, &DetailsView::select);
    for (const Kind kind : {Kind::Device, Kind::Screen, Kind::Layer})
        update(kind);
}

DetailsView::~DetailsView() = default;

void DetailsView::addPages()
{
    auto *const empty = new QLabel(tr("Nothing is selected."), this);
    empty->setAlignment(Qt::AlignCenter);
    empty->setWordWrap(true);
    m_stack->addWidget(empty);
    for (const TabRow &row : tabs) {
        auto *const area = new QScrollArea(this);
        area->setFocusPolicy(Qt::NoFocus); // its fields have the focus
        area->setWidgetResizable(true);
        area->setFrameShape(QFrame::NoFrame);
        area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_stack->addWidget(area);
        m_pages[static_cast<std::size_t>(row.kind)].area = area;
        const int tab = m_tabs->addTab(tr(row.title));
        m_tabs->setTabEnabled(tab, false);
    }
}

void DetailsView::update(Kind kind)
{
    Page &page = m_pages[static_cast<std::size_t>(kind)];
    page.row = m_rows.row(kind);
    {
        const QSignalBlocker blocker(m_tabs); // a tab that is disabled is left, which selects none
        m_tabs->setTabEnabled(tabOf(kind), page.row.isValid());
    }
    showWanted();
}

void DetailsView::select(Kind kind)
{
    m_wanted = kind;
    showWanted();
}

bool DetailsView::exists(Kind kind) const
{
    return m_pages[static_cast<std::size_t>(kind)].row.isValid();
}

/// Shows the kind that was selected last. While its object does not exist, for example because the
/// device restarts, the screen or the device takes its place.
void DetailsView::showWanted()
{
    const Kind shown = exists(m_wanted) ? m_wanted
        : exists(Kind::Screen)          ? Kind::Screen
                                        : Kind::Device;
    const QSignalBlocker blocker(m_tabs); // only the user's choice of a tab is a selection
    m_tabs->setCurrentIndex(tabOf(shown));
    showPage(shown);
}

void DetailsView::showPage(Kind kind)
{
    Page &page = m_pages[static_cast<std::size_t>(kind)];
    if (!page.row.isValid())
        return m_stack->setCurrentIndex(0);
    if (!page.form) {
        page.form = new DetailsForm({kind, m_rows.model(kind), m_rows.edits(), m_rows.sources()});
        page.area->setWidget(page.form);
        page.area->setMinimumWidth(page.form->minimumSizeHint().width()
                                   + page.area->verticalScrollBar()->sizeHint().width());
    }
    page.form->show(page.row);
    m_stack->setCurrentWidget(page.area);
}

} // namespace Tavoro::Panel
