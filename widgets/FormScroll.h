#pragma once

#include <QScrollArea>

// The content of a form that may be larger than its screen: as large as the form where it fits, else it scrolls. A
// control that takes the focus comes into view, however it was given it.
class FormScroll : public QScrollArea {
  public:
    FormScroll(QWidget* content, QWidget* parent);

    // So large that nothing scrolls.
    QSize sizeHint() const override;
};
