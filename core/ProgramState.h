#pragma once

#include "core/ArbMemory.h"
#include "core/EditorState.h"
#include "core/FixedName.h"
#include "core/LinkState.h"
#include "core/Numbers.h"
#include "core/PanelState.h"
#include "core/Preferences.h"

// Everything that lives for the whole run, made once and handed by reference to those who use it.
struct ProgramState {
    PanelState panel;
    LinkState link;
    ArbMemories memories;
    EditorState editor;
    Preferences preferences;
    UserNumbers numbers;
    FixedName SettingFileName;       // the setting file last chosen
    FixedName ConstructionFileName;  // the construction file in use
};
