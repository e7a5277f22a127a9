#pragma once

#include "program.h"

#include <QCommandLineOption>

namespace Tavoro::Help {

/// Receives what a program declares for its QCommandLineParser, and keeps it as a description. It
/// has the members of the parser that such a declaration calls.
class OptionRecorder {
public:
    /// The first line is the summary, the other lines are the details.
    void setApplicationDescription(const QString &description);
    void addHelpOption();
    void addVersionOption();
    bool addOption(const QCommandLineOption &option);

    /// The description so far.
    Program &program() { return m_program; }

private:
    Program m_program;
};

} // namespace Tavoro::Help
