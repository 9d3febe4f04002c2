#pragma once

#include "link/LinkFront.h"
#include "platform/Desktop.h"

// For programs without a window and a desktop: what the link shows goes nowhere.
class SilentFront : public LinkFront, public Desktop {
  public:
    void CheckRemote(bool) override {}
    void ShowCaption(const QString&) override {}
    void ShowTransfer(const QString&, int) override {}
    void ShowProgress(int) override {}
    void HideTransfer() override {}
    void HoldInput(bool) override {}

    void MessageBox(const QString&, const QString&) override {}
    void Information(const QString&, const QString&) override {}
    bool Question(const QString&, const QString&, Default) override { return false; }
    QString OpenFile(const FileRequest&) override { return {}; }
    QString SaveFile(const FileRequest&) override { return {}; }
    void Beep() override {}
    void BusyOn() override {}
    void BusyOff() override {}
    bool Busy() const override { return false; }
    void OpenInViewer(const QUrl&) override {}
};
