#pragma once

#include "platform/Desktop.h"

// The one file dialog that all commands share: each finds the name where the command before it left it.
class FileBox {
  public:
    explicit FileBox(Desktop& desktop) : desktop_(desktop) {}

    QString FileName;  // stands in the dialog at first; becomes the chosen file's path, and stays on Cancel

    // The chosen file's path, empty on Cancel. FileName goes into the dialog, whatever name the request holds.
    QString ShowOpen(FileRequest request) { return Show(&Desktop::OpenFile, request); }
    QString ShowSave(FileRequest request) { return Show(&Desktop::SaveFile, request); }

  private:
    QString Show(QString (Desktop::*dialog)(const FileRequest&), FileRequest& request) {
        request.fileName = FileName;
        QString chosen = (desktop_.*dialog)(request);
        if (!chosen.isEmpty()) {
            FileName = chosen;
        }
        return chosen;
    }

    Desktop& desktop_;
};
