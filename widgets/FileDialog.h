#pragma once

#include <QFileDialog>

#include "platform/Desktop.h"

// The dialog for one file, to open or to save. What is saved has the extension of the request, in upper or lower case,
// and is not longer than the request says; before a file is replaced, the dialog asks about the name as it will be, and
// stays if the answer is No. What is opened is the file of exactly the typed name, else the one with the extension.
class FileDialog : public QFileDialog {
  public:
    FileDialog(const FileRequest& request, AcceptMode mode, QWidget* parent);

    // Shows the dialog. The chosen file's path, empty on Cancel.
    QString Choose();

  protected:
    void accept() override;

  private:
    QString FinalName(const QString& typed) const;
    bool IsThere(const QString& name);
    bool MayReplace(const QString& name);
    QWidget* BoxParent();

    FileRequest request_;
};
