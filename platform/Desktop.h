#pragma once

#include <QString>
#include <QUrl>

// What a file dialog is to show.
struct FileRequest {
    QString title;
    QString filter;         // "Settings (*.set) |*.set": what is shown, then the pattern
    QString fileName = {};  // the name that stands in the dialog at first; a pattern stands for none
    QString extension;      // added to a name that is saved without it; matched in upper or lower case
    qsizetype longest = 0;  // characters of a path that is saved; a longer one is cut. 0: any
};

// What the program asks of the desktop around it. An interface, so that tests answer the boxes.
class Desktop {
  public:
    virtual ~Desktop() = default;

    // One OK button; returns when the user has pressed it.
    virtual void MessageBox(const QString& text, const QString& title) = 0;
    // The same for what is no trouble: it does not look like a warning.
    virtual void Information(const QString& text, const QString& title) = 0;
    // Yes and No; true for Yes. Enter gives the default; closing the box counts as No.
    enum class Default { Yes, No };
    virtual bool Question(const QString& text, const QString& title, Default answer) = 0;

    // The chosen file's path, empty on Cancel. Opening takes existing files only, by the name as it was typed or with
    // the extension; saving asks before it overwrites.
    virtual QString OpenFile(const FileRequest& request) = 0;
    virtual QString SaveFile(const FileRequest& request) = 0;

    virtual void Beep() = 0;

    // The hourglass: one flag for the whole program, neither nested nor counted.
    virtual void BusyOn() = 0;
    virtual void BusyOff() = 0;
    virtual bool Busy() const = 0;

    // Hands a document or an address to the system's viewer, without waiting. A failure is silent.
    virtual void OpenInViewer(const QUrl& address) = 0;
};
