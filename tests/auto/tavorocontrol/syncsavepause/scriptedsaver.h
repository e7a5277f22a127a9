#pragma once

#include <support/tavorobizmodel/journal.h>

/// The model's saver, for as long as this lives: it does nothing, and tells a journal what it is
/// asked to do.
class ScriptedSaver {
public:
    explicit ScriptedSaver(Journal &journal);
    ~ScriptedSaver();
    ScriptedSaver(const ScriptedSaver &) = delete;
    ScriptedSaver &operator=(const ScriptedSaver &) = delete;
};
