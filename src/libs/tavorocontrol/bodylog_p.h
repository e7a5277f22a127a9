#pragma once

#include <tavorocontrol/bodylog.h>

#include <QDebug>

#include <string>

namespace Tavoro::Control::Internal {

/// \a device is null while it is not known.
inline bool isBodyLogged(const BizModel::Device *device)
{
    return !device || areBodiesLogged(*device);
}

/// A body for a log line; empty if bodies of the device are not logged.
struct LoggedBody {
    const BizModel::Device *device;
    const std::string &text;
};

inline QDebug operator<<(QDebug line, LoggedBody body)
{
    return isBodyLogged(body.device) ? line << QString::fromStdString(body.text) : line;
}

} // namespace Tavoro::Control::Internal
