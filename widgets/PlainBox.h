#pragma once

#include <QMessageBox>

// A message box whose text is shown as it stands: a name may look like markup. It leaves room for its title beside the
// buttons of the window's frame.
class PlainBox : public QMessageBox {
  public:
    PlainBox(Icon icon, const QString& title, const QString& text, StandardButtons buttons, QWidget* parent);
};
