#pragma once

#include <QWidget>

// A small filled corner on a control whose setting is not yet in the instrument. Its shape tells, not its colour.
class ChangeMark : public QWidget {
    Q_OBJECT

  public:
    explicit ChangeMark(QWidget* control);

    // Shows the mark; its tool tip and its description say what the instrument has reported.
    void Tell(const QString& reported);

  protected:
    void paintEvent(QPaintEvent* event) override;
};
