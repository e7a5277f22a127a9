#pragma once

#include <QCoreApplication>
#include <QString>

namespace Tavoro::Control::Internal {

/// Translates a text of the request path or of an operation. All these texts share the translation
/// context of ControlHelper.
inline QString translated(const char *text)
{
    return QCoreApplication::translate("Tavoro::Control::ControlHelper", text);
}

} // namespace Tavoro::Control::Internal
