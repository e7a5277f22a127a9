#pragma once

#include <QString>

namespace Tavoro::Control::Internal {

/// Name of the command with these codes, translated; "N/A" for a command without a name.
QString commandLabel(quint8 BC, quint8 FC);

} // namespace Tavoro::Control::Internal
