#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace Tavoro::Sim {

/// Lines of the console that are carried out one after the other, with pauses.
///
/// In the text, "wait MILLISECONDS" is a pause and "repeat" at the end begins again with the first
/// line. Empty lines and lines that begin with '#' have no effect.
struct Scenario {
    struct Step {
        int line = 0; ///< Line of the text, from 1.
        int pause = 0; ///< Milliseconds before the command.
        QString command; ///< A line of the console; empty for a pause at the end.
    };
    QString name;
    std::vector<Step> steps;
    bool isRepeated = false;
};

/// Reads a scenario from its text. Nothing if the text is not valid; \a error then holds the line
/// and the reason.
std::optional<Scenario> parseScenario(const QString &text, QString &error);

/// Reads a scenario by the name of one that is part of the program, or from a file. Nothing if
/// there is none, or if it is not valid; \a error then holds the reason.
std::optional<Scenario> readScenario(const QString &nameOrFile, QString &error);

/// The names of the scenarios that are part of the program.
QStringList scenarioNames();

} // namespace Tavoro::Sim
