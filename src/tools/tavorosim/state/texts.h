#pragma once

#include <QCoreApplication>

namespace Tavoro::Sim {

/// Texts::tr() returns a text for people in their language. The log is English.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(Sim)
};

} // namespace Tavoro::Sim
