#include "widgets/FileDialog.h"

#include <QLineEdit>

#include "widgets/PlainBox.h"

FileDialog::FileDialog(const FileRequest& request, AcceptMode mode, QWidget* parent)
    : QFileDialog(parent, request.title, QString(), request.filter.section(u'|', 0, 0).trimmed()), request_(request) {
    setAcceptMode(mode);
    setFileMode(AnyFile);  // else "Open" is closed to a name that is still to get its extension
    if (!request.fileName.isEmpty() && !request.fileName.contains(u'*')) {
        const QFileInfo last(request.fileName);
        setDirectory(last.absolutePath());
        selectFile(last.fileName());
    }
}

QString FileDialog::Choose() {
    while (exec() == Accepted) {
        const QString typed = selectedFiles().value(0);
        QString name = FinalName(typed);
        // Where the desktop shows a dialog of its own, that has asked about the name as it was typed.
        if (acceptMode() == AcceptOpen ? IsThere(name) : name == typed || MayReplace(name)) {
            return name;
        }
        selectFile(name);
    }
    return {};
}

// The toolkit's dialog asks before it replaces the file whose name stands in its field. It can give a name the
// extension by itself, but only one without any dot.
void FileDialog::accept() {
    auto* const field = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const QString typed = selectedFiles().value(0);
    const QString name = FinalName(typed);
    if (field != nullptr) {
        if (acceptMode() == AcceptOpen && !IsThere(name)) {
            return;
        }
        if (name != typed) {
            const QFileInfo file(name);
            field->setFocus();  // only then what is selected in the list follows the text
            field->setText(file.absoluteDir() == directory() ? file.fileName() : name);
        }
    }
    QFileDialog::accept();
    if (field != nullptr && acceptMode() == AcceptOpen && QFileInfo(typed).isDir()) {
        field->clear();
    }
}

// A folder is not chosen but entered.
QString FileDialog::FinalName(const QString& typed) const {
    const QString suffix = u'.' + request_.extension.toLower();
    const QString named = typed.endsWith(suffix, Qt::CaseInsensitive) ? typed : typed + suffix;
    if (acceptMode() == AcceptOpen) {
        return !QFileInfo::exists(typed) && QFileInfo::exists(named) ? named : typed;
    }
    return QFileInfo(typed).isDir() ? typed : named.left(request_.longest > 0 ? request_.longest : named.size());
}

bool FileDialog::IsThere(const QString& name) {
    if (QFileInfo::exists(name)) {
        return true;
    }
    PlainBox box(QMessageBox::Warning, windowTitle(), QFileInfo(name).fileName() + QStringLiteral("\nFile not found."),
                 QMessageBox::Ok, BoxParent());
    box.exec();
    return false;
}

bool FileDialog::MayReplace(const QString& name) {
    if (!QFileInfo::exists(name)) {
        return true;
    }
    const QString question =
        QFileInfo(name).fileName() + QStringLiteral(" already exists.\nDo you want to replace it?");
    PlainBox box(QMessageBox::Warning, windowTitle(), question, QMessageBox::Yes | QMessageBox::No, BoxParent());
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

QWidget* FileDialog::BoxParent() { return isVisible() ? this : parentWidget(); }
