#pragma once

#include "livestatus.h"

#include <QFrame>

QT_BEGIN_NAMESPACE
class QAction;
class QLabel;
class QToolButton;
QT_END_NAMESPACE

namespace Tavoro::Panel {

class ElidedLabel;

/// One line above the large buttons: a failed take, an unknown outcome, or whether the screens can
/// be operated. Its height never changes, so that no button moves under the operator's hand.
class StatusLine : public QFrame {
    Q_OBJECT

public:
    /// \a dismiss removes a status that the operator has read.
    explicit StatusLine(QAction &dismiss, QWidget *parent = nullptr);

    void show(const LiveStatus &status);
    /// What is shown: a word and a sentence.
    QString text() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    LiveStatus m_status;
    QLabel *const m_word;
    ElidedLabel *const m_text;
    QToolButton *const m_dismiss;
};

} // namespace Tavoro::Panel
