#pragma once

#include <tavorosession/devicefiles.h>

#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
class QProgressBar;
class QToolButton;
QT_END_NAMESPACE

namespace Tavoro::Panel {

/// A transfer with its progress, its rate and a button that cancels it. A transfer that succeeded
/// disappears after a while, a failure stays until it is closed.
class TransferRow : public QWidget {
    Q_OBJECT

public:
    TransferRow(const QString &title, const PendingTransfer &transfer, QWidget *parent = nullptr);

private:
    void showProgress(const TransferProgress &progress);
    void showEnd(const Outcome &outcome);

    const PendingTransfer m_transfer;
    QProgressBar *const m_bar;
    QLabel *const m_result;
    QToolButton *const m_button;
    bool m_hasEnded = false;
};

} // namespace Tavoro::Panel
