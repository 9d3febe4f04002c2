#include "platform/FormPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <limits>

namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kGrabbablePixels = 60;  // as much of the title bar has to stay on a screen

qint16 ToTwips(int pixels) {
    using Limits = std::numeric_limits<qint16>;
    return static_cast<qint16>(std::clamp<int>(pixels * kTwipsPerPixel, Limits::min(), Limits::max()));
}

bool IsGrabbable(const QRect& titleBar) {
    const auto screens = QGuiApplication::screens();
    return std::any_of(screens.cbegin(), screens.cend(), [&titleBar](const QScreen* screen) {
        const QRect seen = screen->availableGeometry() & titleBar;
        return seen.width() >= kGrabbablePixels && seen.height() > 0;
    });
}

}  // namespace

qint16 WindowStateNumber(const QWidget& form) {
    if (form.isMinimized()) {
        return 1;
    }
    return form.isMaximized() ? 2 : 0;
}

void ApplyWindowState(QWidget& form, qint16 state) {
    if (state == 1) {
        form.setWindowState(Qt::WindowMinimized);
    } else if (state == 2) {
        form.setWindowState(Qt::WindowMaximized);
    }
}

qint16 FormLeft(const QWidget& form) { return ToTwips(form.frameGeometry().left()); }
qint16 FormTop(const QWidget& form) { return ToTwips(form.frameGeometry().top()); }

qint16 FormWidth(const QWidget& form) { return ToTwips(form.width()); }
qint16 FormHeight(const QWidget& form) { return ToTwips(form.height()); }

void SizeForm(QWidget& form, qint16 width, qint16 height) {
    form.resize(width / kTwipsPerPixel, height / kTwipsPerPixel);
}

void MoveForm(QWidget& form, qint16 left, qint16 top) {
    // A form without a size of its own would be moved by its frame's width once more when it is shown.
    form.resize(form.size().expandedTo(form.sizeHint()));
    QPoint place(left / kTwipsPerPixel, top / kTwipsPerPixel);
    const QRect titleBar(place, QSize(form.width(), 20));
    if (!IsGrabbable(titleBar)) {
        const QScreen* const screen = QGuiApplication::primaryScreen();
        place = screen != nullptr ? screen->availableGeometry().topLeft() : QPoint();
    }
    form.move(place);
}

void BringToFront(QWidget& form) {
    form.setWindowState(form.windowState() & ~Qt::WindowMinimized);
    form.show();
    form.raise();
    form.activateWindow();
}
