#include "widgets/FormPlace.h"

#include <QEvent>
#include <QGuiApplication>
#include <QRegion>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <limits>

namespace {

constexpr int kTwipsPerPixel = 15;

qint16 ToTwips(int pixels) {
    using Limits = std::numeric_limits<qint16>;
    return static_cast<qint16>(std::clamp<int>(pixels * kTwipsPerPixel, Limits::min(), Limits::max()));
}

// The parts of the screens that windows may use, without panels and the like.
QList<QRect> Screens() {
    QList<QRect> screens;
    for (const QScreen* const screen : QGuiApplication::screens()) {
        screens += screen->availableGeometry();
    }
    return screens;
}

// The frame around a form is known only when the form shows in its normal state for the first time. Then this brings in
// what the frame makes stick out.
class FrameWatch : public QObject {
  public:
    explicit FrameWatch(QWidget& form) : QObject(&form), form_(form), size_(form.size()) {
        form.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* /*form*/, QEvent* event) override {
        if (event->type() == QEvent::Paint && WindowStateNumber(form_) == 0 && form_.size() == size_) {
            form_.removeEventFilter(this);
            // Later, when the desktop's messages that have arrived by now have been handled.
            QMetaObject::invokeMethod(this, &FrameWatch::BringIn, Qt::QueuedConnection);
        }
        return false;
    }

  private:
    void BringIn() {
        const QRect frame = form_.windowHandle()->frameGeometry();
        const QRect place = FittingPlace(frame, Screens());
        if (place.size() != frame.size()) {
            form_.resize(form_.size() - (frame.size() - place.size()));
        }
        if (place.topLeft() != frame.topLeft()) {
            form_.move(place.topLeft());
        }
        deleteLater();
    }

    QWidget& form_;
    QSize size_;
};

}  // namespace

qint16 WindowStateNumber(const QWidget& form) {
    if (form.isMinimized()) {
        return 1;
    }
    return form.isMaximized() ? 2 : 0;
}

qint16 FormLeft(const QWidget& form) { return ToTwips(form.frameGeometry().left()); }
qint16 FormTop(const QWidget& form) { return ToTwips(form.frameGeometry().top()); }

qint16 FormWidth(const QWidget& form) { return ToTwips(form.width()); }
qint16 FormHeight(const QWidget& form) { return ToTwips(form.height()); }

void SizeForm(QWidget& form, qint16 width, qint16 height) {
    form.resize(width / kTwipsPerPixel, height / kTwipsPerPixel);
}

QPoint NearestPlace(const QRect& window, const QList<QRect>& screens) {
    QRegion seen;
    for (const QRect& screen : screens) {
        seen += screen;
    }
    // Where the top left may lie: not so near to the right and lower edges, or to a gap, that the window sticks out.
    const QPoint reach(window.width() - 1, window.height() - 1);
    const QRect all = seen.boundingRect();
    QRegion places(QRect(all.topLeft(), all.bottomRight() - reach));
    for (const QRect& gap : QRegion(all) - seen) {
        places -= QRect(gap.topLeft() - reach, gap.bottomRight());
    }
    for (const QRect& screen : places.isEmpty() ? screens : QList<QRect>()) {
        places += QRect(screen.topLeft(), QSize(1, 1));
    }
    QPoint nearest = window.topLeft();
    int least = std::numeric_limits<int>::max();
    for (const QRect& part : places) {
        const QPoint place(std::clamp(window.left(), part.left(), part.right()),
                           std::clamp(window.top(), part.top(), part.bottom()));
        const QPoint way = place - window.topLeft();
        if (QPoint::dotProduct(way, way) < least) {
            least = QPoint::dotProduct(way, way);
            nearest = place;
        }
    }
    return nearest;
}

QRect FittingPlace(const QRect& window, const QList<QRect>& screens) {
    QRect place(NearestPlace(window, screens), window.size());
    QRegion outside(place);
    for (const QRect& screen : screens) {
        outside -= screen;
    }
    for (const QRect& screen : outside.isEmpty() ? QList<QRect>() : screens) {
        if (screen.topLeft() == place.topLeft()) {
            place.setSize(place.size().boundedTo(screen.size()));
        }
    }
    return place;
}

void PlaceForm(QWidget& form, qint16 left, qint16 top, qint16 state) {
    // A form without a size of its own would be moved by its frame's width once more when it is shown.
    if (!form.testAttribute(Qt::WA_Resized)) {
        form.resize(form.size().expandedTo(form.sizeHint()));
    }
    const QPoint stored(left / kTwipsPerPixel, top / kTwipsPerPixel);
    const QRect place = FittingPlace(QRect(stored, form.size()), Screens());
    form.resize(place.size());
    form.move(place.topLeft());
    new FrameWatch(form);
    // The place comes first: a form that is maximised or minimised already would take it for the place of its inside.
    if (state == 1) {
        form.setWindowState(Qt::WindowMinimized);
    } else if (state == 2) {
        form.setWindowState(Qt::WindowMaximized);
    }
}

void BringToFront(QWidget& form) {
    form.setWindowState(form.windowState() & ~Qt::WindowMinimized);
    form.show();
    form.raise();
    form.activateWindow();
}
