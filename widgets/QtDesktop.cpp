#include "widgets/QtDesktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QPointer>

#include "widgets/FileDialog.h"
#include "widgets/InputHold.h"
#include "widgets/PlainBox.h"

namespace {

// Whoever the box belongs to may be closed and deleted while it stands, and the box with it.
int Answer(PlainBox* box) {
    const QPointer<PlainBox> still(box);
    const int answer = box->exec();
    delete still;
    return answer;
}

QString Choice(FileDialog* dialog) {
    const QPointer<FileDialog> still(dialog);
    const QString name = dialog->Choose();
    delete still;
    return name;
}

}  // namespace

QWidget* QtDesktop::Parent() {
    QWidget* const active = QApplication::activeWindow();
    if (active != nullptr) {
        if (!active->isModal()) {
            last_ = active;
        }
        return active;
    }
    // Between two boxes no window is active; the second belongs where the first did.
    if (last_ != nullptr && last_->isVisible()) {
        return last_;
    }
    // A box would create a window that is not shown yet, which then no longer goes where it is moved.
    return parent_ != nullptr && parent_->isVisible() ? parent_.data() : nullptr;
}

void QtDesktop::MessageBox(const QString& text, const QString& title) { ShowBox(QMessageBox::Warning, text, title); }

void QtDesktop::Information(const QString& text, const QString& title) {
    ShowBox(QMessageBox::Information, text, title);
}

void QtDesktop::ShowBox(QMessageBox::Icon icon, const QString& text, const QString& title) {
    // A close of the window that came while the program was waiting would get lost behind the box. What was typed and
    // clicked meanwhile is dropped: it was meant for the operation that the box is about.
    InputHold hold(*this);
    hold.Set(true);
    QCoreApplication::processEvents();
    hold.Set(false);
    Answer(new PlainBox(icon, title, text, QMessageBox::Ok, Parent()));
}

bool QtDesktop::Question(const QString& text, const QString& title, Default answer) {
    auto* const box = new PlainBox(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No, Parent());
    box->setDefaultButton(answer == Default::Yes ? QMessageBox::Yes : QMessageBox::No);
    box->setEscapeButton(QMessageBox::No);
    return Answer(box) == QMessageBox::Yes;
}

QString QtDesktop::OpenFile(const FileRequest& request) {
    return Choice(new FileDialog(request, QFileDialog::AcceptOpen, Parent()));
}

QString QtDesktop::SaveFile(const FileRequest& request) {
    return Choice(new FileDialog(request, QFileDialog::AcceptSave, Parent()));
}

void QtDesktop::Beep() { QApplication::beep(); }

void QtDesktop::BusyOn() {
    if (!busy_) {
        busy_ = true;
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
}

void QtDesktop::BusyOff() {
    if (busy_) {
        busy_ = false;
        QGuiApplication::restoreOverrideCursor();
    }
}

void QtDesktop::OpenInViewer(const QUrl& address) { QDesktopServices::openUrl(address); }
