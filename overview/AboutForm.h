#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "platform/Desktop.h"

// The form `about`: who made the program and where to find help. Closes with OK, Enter and Escape.
class AboutForm : public QDialog {
    Q_OBJECT

  public:
    AboutForm(Desktop& desktop, QWidget* parent);

    void about_Form_Load();
    void about_Command1_Click();
    void about_Label14_Click();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    QLabel* AddLabel(QLabel* label, const char* name, const QString& text);
    void RefreshLabel14();

    Desktop& desktop_;
    QLabel* Label2 = nullptr;
    QLabel* Label14 = nullptr;
    QPushButton* Command1 = nullptr;
};

// Shows the form over its owner without waiting for it. The owner has one at most: a second call brings that one to
// the front.
void ShowAbout(QWidget& owner, Desktop& desktop);
