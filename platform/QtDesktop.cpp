#include "platform/QtDesktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMessageBox>

QWidget* QtDesktop::Parent() const {
    QWidget* const active = QApplication::activeWindow();
    return active != nullptr ? active : parent_.data();
}

void QtDesktop::MessageBox(const QString& text, const QString& title) {
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, Parent());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool QtDesktop::Question(const QString& text, const QString& title) {
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No, Parent());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
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
