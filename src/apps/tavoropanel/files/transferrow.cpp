#include "transferrow.h"

#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QTimer>
#include <QToolButton>

#include <cmath>

namespace Tavoro::Panel {

namespace {

constexpr int steps = 1000;
constexpr int shownAfterSuccess = 4000; // ms

QString endText(const Outcome &outcome)
{
    if (outcome)
        return TransferRow::tr("✓ Done");
    return outcome.isCanceled() ? TransferRow::tr("Cancelled")
                                : QStringLiteral("⚠ ") + outcome.text();
}

} // namespace

TransferRow::TransferRow(const QString &title, const PendingTransfer &transfer, QWidget *parent)
    : QWidget(parent),
      m_transfer(transfer),
      m_bar(new QProgressBar(this)),
      m_result(new QLabel(this)),
      m_button(new QToolButton(this))
{
    auto *const name = new QLabel(title, this);
    name->setWordWrap(true);
    m_bar->setRange(0, steps);
    m_bar->setAccessibleName(title);
    m_bar->setMinimumWidth(m_bar->fontMetrics().averageCharWidth() * 24);
    m_result->setObjectName(QStringLiteral("transferResult"));
    m_result->setWordWrap(true);
    m_result->hide();
    m_button->setText(tr("Cancel"));
    m_button->setAccessibleName(tr("Cancel: %1").arg(title));
    m_button->setToolTip(tr("Ends the transfer. The device keeps what it had."));
    m_button->setFocusPolicy(Qt::StrongFocus);
    auto *const layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(name, 0, 0);
    layout->addWidget(m_bar, 0, 1);
    layout->addWidget(m_button, 0, 2);
    layout->addWidget(m_result, 1, 0, 1, 3);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
    showProgress({});

    connect(m_button, &QToolButton::clicked, this, [this] {
        if (m_hasEnded)
            deleteLater();
        else
            m_transfer.cancel();
    });
    m_transfer.onProgress(this, [this](const TransferProgress &now) { showProgress(now); });
    m_transfer.then(this, [this](const Outcome &outcome) { showEnd(outcome); });
}

void TransferRow::showProgress(const TransferProgress &progress)
{
    m_bar->setValue(static_cast<int>(std::lround(progress.share() * steps)));
    const QString rate = QLocale().formattedDataSize(std::llround(progress.rate));
    //: Share of a transfer in percent, bytes per second with their unit
    m_bar->setFormat(tr("%1 %, %2/s").arg(std::lround(progress.share() * 100)).arg(rate));
}

void TransferRow::showEnd(const Outcome &outcome)
{
    m_hasEnded = true;
    m_bar->hide();
    m_result->setText(endText(outcome));
    m_result->show();
    m_button->setText(tr("Close"));
    m_button->setAccessibleName(tr("Close: %1").arg(m_bar->accessibleName()));
    m_button->setToolTip(tr("Removes this line."));
    if (outcome || outcome.isCanceled())
        QTimer::singleShot(shownAfterSuccess, this, &QObject::deleteLater);
}

} // namespace Tavoro::Panel
