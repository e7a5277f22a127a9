#pragma once

#include <QCoreApplication>

namespace Tavoro::Operations::Internal {

/// Texts::tr() returns a text for people in their language. Names, keys and schemas are English.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::Operations)
};

} // namespace Tavoro::Operations::Internal
