#pragma once

#include "core/ProgramState.h"
#include "platform/Desktop.h"
#include "waveform/EditorTables.h"

// What the editor's dialogs and imports work on.
struct EditorContext {
    ProgramState& program;
    Desktop& desktop;
    EditorTables& tables;
};
