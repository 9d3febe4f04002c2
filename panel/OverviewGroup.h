#pragma once

#include <QBoxLayout>
#include <QPlainTextEdit>

#include "core/ProgramState.h"
#include "platform/Desktop.h"
#include "widgets/PictureBox.h"

// The tab "Overview": the modes in words, and the signal form as a picture.
class OverviewGroup {
  public:
    OverviewGroup(const ProgramState& program, Desktop& desktop, QWidget* parent);
    Q_DISABLE_COPY_MOVE(OverviewGroup)

    void AddTo(QBoxLayout& column) const;
    QList<QWidget*> TabStops() const { return {Text3}; }

    // Writes the text anew and draws the picture.
    void RefreshOverview();
    void DrawOverviewSignal();

  private:
    const ProgramState& program_;
    Desktop& desktop_;
    PictureBox* Picture1;
    QPlainTextEdit* Text3;
};
