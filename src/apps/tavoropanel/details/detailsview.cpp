#include "detailsview.h"

#include "detailsform.h"

#include <QCoreApplication>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
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
    connect(m_tabs, &QTabBar::currentChanged, this, &DetailsView::showPage);
    connect(&m_rows, &SelectedRows::changed, this, &DetailsView::update);
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
    const QModelIndex row = m_rows.row(kind);
    const bool isNew = row.isValid() && row != page.row;
    const int tab = tabOf(kind);
    page.row = row;
    m_tabs->setTabEnabled(tab, row.isValid());
    if (isNew)
        m_tabs->setCurrentIndex(tab);
    else if (!row.isValid() && m_tabs->currentIndex() == tab)
        m_tabs->setCurrentIndex(
            tabOf(m_rows.row(Kind::Screen).isValid() ? Kind::Screen : Kind::Device));
    showPage(m_tabs->currentIndex());
}

void DetailsView::showPage(int tab)
{
    const Kind kind = tabs[tab].kind;
    Page &page = m_pages[static_cast<std::size_t>(kind)];
    if (!page.row.isValid())
        return m_stack->setCurrentIndex(0);
    if (!page.form) {
        page.form = new DetailsForm({kind, m_rows.model(kind), m_rows.edits(), m_rows.inputs()});
        page.area->setWidget(page.form);
        page.area->setMinimumWidth(page.form->minimumSizeHint().width()
                                   + page.area->verticalScrollBar()->sizeHint().width());
    }
    page.form->show(page.row);
    m_stack->setCurrentWidget(page.area);
}

} // namespace Tavoro::Panel
