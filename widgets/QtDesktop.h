#pragma once

#include <QMessageBox>
#include <QPointer>
#include <QWidget>

#include "platform/Desktop.h"

// The desktop of the running program. A box belongs to the active window, or else to the form that was active
// last, or to the one that is set as parent.
class QtDesktop : public Desktop {
  public:
    void SetParent(QWidget* parent) { parent_ = parent; }

    void MessageBox(const QString& text, const QString& title) override;
    void Information(const QString& text, const QString& title) override;
    bool Question(const QString& text, const QString& title, Default answer) override;
    QString OpenFile(const FileRequest& request) override;
    QString SaveFile(const FileRequest& request) override;
    void Beep() override;
    void BusyOn() override;
    void BusyOff() override;
    bool Busy() const override { return busy_; }
    void OpenInViewer(const QUrl& address) override;

  private:
    QWidget* Parent();
    void ShowBox(QMessageBox::Icon icon, const QString& text, const QString& title);

    QPointer<QWidget> parent_;
    QPointer<QWidget> last_;  // the form that was active last
    bool busy_ = false;
};
