#pragma once

#include <QStringList>
#include <functional>

#include "platform/Desktop.h"

// A desktop that answers its boxes by itself and remembers them.
class FakeDesktop : public Desktop {
  public:
    QStringList boxes;  // "title|text" of each message box and question, in order; "busy" ahead under the hourglass
    QList<QUrl> viewed;
    int beeps = 0;
    bool busy = false;
    bool answer = false;                       // to questions
    Default defaultAnswer = Default::Yes;      // of the last question
    std::function<void()> whileShown = [] {};  // run while a message box stands
    QString chosen;                            // what the file dialogs give; empty for Cancel
    QStringList dialogs;                       // "open|title|filter|fileName|extension" of each file dialog

    void MessageBox(const QString& text, const QString& title) override {
        boxes += (busy ? QStringLiteral("busy ") : QString()) + title + u'|' + text;
        whileShown();
    }
    void Information(const QString& text, const QString& title) override { MessageBox(text, title); }
    bool Question(const QString& text, const QString& title, Default enter) override {
        boxes += title + u'|' + text;
        defaultAnswer = enter;
        return answer;
    }
    QString OpenFile(const FileRequest& request) override { return Choose(QStringLiteral("open"), request); }
    QString SaveFile(const FileRequest& request) override { return Choose(QStringLiteral("save"), request); }
    void Beep() override { ++beeps; }
    void BusyOn() override { busy = true; }
    void BusyOff() override { busy = false; }
    bool Busy() const override { return busy; }
    void OpenInViewer(const QUrl& address) override { viewed += address; }

  private:
    QString Choose(const QString& kind, const FileRequest& request) {
        dialogs += QStringList{kind, request.title, request.filter, request.fileName, request.extension}.join(u'|');
        return chosen;
    }
};
