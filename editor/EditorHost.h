#pragma once

// What the editor asks of the panel that opened it. An interface, so that editor/ does not depend on panel/.
class EditorHost {
  public:
    virtual ~EditorHost() = default;

    // Reads the setting file back into PanelState and the memories and rebuilds the panel. A fault is silent.
    virtual void LoadSettingFile() = 0;
    virtual void DrawOverviewSignal() = 0;
    // True, after a beep, while an operation on the link runs: the editor must not change what is being sent.
    virtual bool RefuseWhileRunning() = 0;
};
