#pragma once

#include <tavorobizmodel/devicelist.h>

namespace Tavoro::Control::Internal {

/// Shows \a text on the status bar of the application for five seconds.
inline void showOnStatusBar(BizModel::Enum::StatusBarMsgType type, const QString &text)
{
    Q_EMIT BizModel::DeviceList::instance()->signalShowStatusBarMsg(type, text, 5000);
}

} // namespace Tavoro::Control::Internal
