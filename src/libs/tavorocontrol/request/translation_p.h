#pragma once

#include <QCoreApplication>
#include <QString>

namespace Tavoro::Control::Internal {

/// Translates a text of the request path or of an operation. All of them share the context of
/// ControlHelper.
inline QString translated(const char *text)
{
    return QCoreApplication::translate("Tavoro::Control::ControlHelper", text);
}

} // namespace Tavoro::Control::Internal
