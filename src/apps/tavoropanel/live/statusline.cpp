#include "statusline.h"

#include <tavoropanel/theme/colours.h>
#include <tavoropanel/theme/elidedlabel.h>

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

namespace Tavoro::Panel {

namespace {

struct KindRow {
    LiveStatus::Kind kind;
    const char *word;
    QColor background; ///< Not valid: that of the window.
    QColor foreground;
};

#define WORD(text) QT_TRANSLATE_NOOP("Tavoro::Panel::StatusLine", text)

const KindRow &rowOf(LiveStatus::Kind kind)
{
    // clang-format off
    static const KindRow rows[] = {
        {LiveStatus::Idle,    "",                      {},                   {}},
        {LiveStatus::Blocked, WORD("Not possible"),    Colours::warning,     Colours::onWarning},
        {LiveStatus::Waiting, WORD("Waiting"),         Colours::warning,     Colours::onWarning},
        {LiveStatus::Unknown, WORD("Outcome unknown"), Colours::warning,     Colours::onWarning},
        {LiveStatus::Failed,  WORD("Failed"),          Colours::programme,   Colours::onColour},
        {LiveStatus::Done,    WORD("Done"),            Colours::preview,     Colours::onColour},
    };
    // clang-format on
    for (const KindRow &row : rows) {
        if (row.kind == kind)
            return row;
    }
    return rows[0];
}

#undef WORD

} // namespace

StatusLine::StatusLine(QAction &dismiss, QWidget *parent)
    : QFrame(parent),
      m_word(new QLabel(this)),
      m_text(new ElidedLabel(this)),
      m_dismiss(new QToolButton(this))
{
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.25);
    m_text->setFont(large);
    large.setBold(true);
    m_word->setFont(large);
    m_dismiss->setText(tr("Dismiss"));
    m_dismiss->setFocusPolicy(Qt::TabFocus);
    m_dismiss->setAccessibleName(tr("Dismiss"));
    m_dismiss->setAccessibleDescription(dismiss.toolTip());
    m_dismiss->setToolTip(dismiss.toolTip());
    connect(m_dismiss, &QToolButton::clicked, &dismiss, &QAction::trigger);

    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(10, 3, 6, 3);
    row->setSpacing(10);
    row->addWidget(m_word);
    row->addWidget(m_text, 1);
    row->addWidget(m_dismiss);
    setFixedHeight(m_dismiss->sizeHint().height() + 8);
    setAccessibleName(tr("State of the live controls"));
    show({});
}

void StatusLine::show(const LiveStatus &status)
{
    const KindRow &row = rowOf(status.kind);
    m_status = status;
    m_word->setText(tr(row.word));
    m_word->setVisible(status.kind != LiveStatus::Idle);
    m_dismiss->setVisible(status.kind != LiveStatus::Idle && status.kind != LiveStatus::Blocked);
    QPalette colours;
    if (row.foreground.isValid())
        colours.setColor(QPalette::WindowText, row.foreground);
    m_word->setPalette(colours);
    m_text->setPalette(colours);
    setAccessibleDescription(text());
    m_text->setLine(m_status.text);
    update();
}

QString StatusLine::text() const
{
    return m_status.kind == LiveStatus::Idle ? m_status.text
                                             : tr("%1: %2").arg(m_word->text(), m_status.text);
}

void StatusLine::paintEvent(QPaintEvent *)
{
    const QColor background = rowOf(m_status.kind).background;
    if (!background.isValid())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(background);
    painter.drawRoundedRect(rect(), 5, 5);
}

} // namespace Tavoro::Panel
