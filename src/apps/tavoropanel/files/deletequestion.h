#pragma once

#include <QString>

#include <functional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Tavoro::Panel {

/// Asks whether to delete a file from the device, and calls \a confirmed if the answer is yes.
/// Returns at once.
void askToDelete(const QString &name, QWidget *parent, const std::function<void()> &confirmed);

} // namespace Tavoro::Panel
