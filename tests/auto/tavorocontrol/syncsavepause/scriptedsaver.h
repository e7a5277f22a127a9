#pragma once

#include <support/tavorobizmodel/journal.h>

/// Replaces the model's saver during its lifetime: does nothing, and records the calls in a
/// journal.
class ScriptedSaver {
public:
    explicit ScriptedSaver(Journal &journal);
    ~ScriptedSaver();
    ScriptedSaver(const ScriptedSaver &) = delete;
    ScriptedSaver &operator=(const ScriptedSaver &) = delete;
};
