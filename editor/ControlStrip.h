#pragma once

#include <QBoxLayout>
#include <QGridLayout>
#include <QWidget>

// The place of the controls between the two pictures. What belongs to the signal stands in a third row, and beside the
// others where there is room for it: the overview gets the more height.
class ControlStrip : public QWidget {
  public:
    explicit ControlStrip(QWidget* parent);

    QGridLayout* tools;     // what is edited, the pens, the entry: two rows
    QGridLayout* position;  // the read-outs: two rows
    QBoxLayout* curve;      // how the signal is joined
    QBoxLayout* points;     // what concerns its points

    void FitTo(int width);  // pixels; call once everything is in its place

  private:
    void Place(bool besideTheOthers);

    QWidget* signal_;
    QGridLayout* blocks_;
};
