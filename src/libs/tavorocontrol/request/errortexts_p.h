#pragma once

#include <QString>

namespace Tavoro::Control::Internal {

/// Meaning of the status of a response, translated; "N/A" for a status without a text.
QString errorText(quint16 status);

} // namespace Tavoro::Control::Internal
