#pragma once

#include <QList>
#include <QtGlobal>

#include <memory>

namespace Tavoro::BizModel {

/// How long the control library waits for the answer to one command.
struct s_CommandTimeout {
    quint16 BC = 0; ///< Base code of the command.
    quint16 FC = 0; ///< Function code of the command.
    quint32 timeout = 0; ///< Milliseconds.
};

/// Settings of a device in the application. The device does not know them.
struct s_DeviceConfig {
    QList<std::shared_ptr<s_CommandTimeout>> timeouts; ///< The first entry with both codes applies.
    quint32 defaultTimeout = 5000; ///< Milliseconds, for commands without an entry.
};

} // namespace Tavoro::BizModel
