#pragma once

#include "core/ProgramState.h"
#include "editor/EditorFront.h"
#include "editor/EditorTables.h"
#include "editor/EditorView.h"
#include "platform/Desktop.h"

// What every tool of the editor works on.
struct EditorContext {
    ProgramState& program;
    Desktop& desktop;
    EditorFront& front;
    EditorTables& tables;
    EditorView& view;
};
