#pragma once

#include <QCoreApplication>

namespace Tavoro::SessionInternal {

// Translators find each text under the public class that shows it.

struct FilesTexts {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::DeviceFiles)
};

struct OutcomeTexts {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::Outcome)
};

struct SessionTexts {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::DeviceSession)
};

} // namespace Tavoro::SessionInternal
