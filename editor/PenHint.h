#pragma once

#include <QLabel>
#include <QStringList>
#include <QWidget>

#include "core/EditorState.h"

// The line below the pictures: what the pen does, and which part of the axis the view shows.
class PenHint : public QWidget {
  public:
    explicit PenHint(QWidget* parent);

    void ShowPen(Pen pen, EditTarget target);
    void ShowView(const EditorState& editor);
    // Stands in place of the pen's hint until a pen is shown again.
    void Tell(const QString& notice, const QString& toolTip);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Fit();

    QStringList hints_;  // the most important first; the last ones give way where the form is narrow
    QLabel* hint_;
    QLabel* viewrange_;
};
