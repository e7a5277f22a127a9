#pragma once

#include <QCoreApplication>

namespace Tavoro::Help {

/// Texts::tr() returns a text for people in their language. Placeholders of words are English.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(Help)
};

} // namespace Tavoro::Help
