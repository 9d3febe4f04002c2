#pragma once

#include <QPlainTextEdit>

#include "core/ProgramState.h"
#include "platform/Desktop.h"
#include "platform/PictureBox.h"

// The tab "Overview": the modes in words, and the signal form as a picture.
class OverviewGroup {
  public:
    OverviewGroup(const ProgramState& program, Desktop& desktop, QWidget* parent);

    // Writes the text anew and draws the picture.
    void RefreshOverview();
    void DrawOverviewSignal();

    PictureBox* Picture1;
    QPlainTextEdit* Text3;

  private:
    const ProgramState& program_;
    Desktop& desktop_;
};
