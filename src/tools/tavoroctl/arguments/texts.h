#pragma once

#include <QCoreApplication>

namespace Tavoro::Ctl {

/// Texts::tr() returns a text for people in their language. With --json all texts are English.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(Ctl)
};

} // namespace Tavoro::Ctl
