#include "widgets/PictureKeys.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int kMarkSide = 17;       // logical pixels
constexpr double kLongStep = 10.0;  // short ones
constexpr double kToEdge = std::numeric_limits<double>::infinity();
constexpr char kHelp[] =
    "Arrow keys move the pointer, with Shift in larger steps; Home, End, Page Up and Page Down go to the edges. Enter "
    "clicks, Space holds the button down and lets it go, the Menu key or Shift F10 is a right click.";

// The way of the pointer, in short steps.
struct KeyMove {
    int key;
    double across, down;
};

constexpr KeyMove kMoves[] = {
    {Qt::Key_Left, -1.0, 0.0},       {Qt::Key_Right, 1.0, 0.0},        {Qt::Key_Up, 0.0, -1.0},
    {Qt::Key_Down, 0.0, 1.0},        {Qt::Key_Home, -kToEdge, 0.0},    {Qt::Key_End, kToEdge, 0.0},
    {Qt::Key_PageUp, 0.0, -kToEdge}, {Qt::Key_PageDown, 0.0, kToEdge},
};

// A ring, which leaves the place itself in sight. It lies over the picture: no stroke is drawn over.
class Mark : public QWidget {
  public:
    explicit Mark(QWidget* parent) : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        resize(kMarkSide, kMarkSide);
        hide();
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        for (const QPen& ink : {QPen(Qt::white, 4.5), QPen(Qt::black, 2.0)}) {
            painter.setPen(ink);
            painter.drawEllipse(QRectF(rect()).adjusted(3, 3, -3, -3));
        }
    }
};

// One pixel on, or one unit of the user scale where that is more; then on whole units.
double Stepped(double place, double steps, double scaleFrom, double scaleLength, int pixels) {
    const double unitsPerPixel = scaleLength / pixels;
    double to = place + steps;
    if (steps != 0.0 && std::fabs(unitsPerPixel) < 1.0) {
        const double units = std::round(scaleFrom + place * unitsPerPixel) + std::copysign(steps, steps * scaleLength);
        to = (units - scaleFrom) / unitsPerPixel;
    }
    return std::clamp<double>(to, 0.0, pixels);
}

}  // namespace

PictureKeys::PictureKeys(PictureBox& picture) : QObject(&picture), picture_(picture), mark_(new Mark(&picture)) {
    picture.setFocusPolicy(Qt::TabFocus);  // a stroke of the mouse leaves the focus where it is
    picture.setAccessibleDescription(QString::fromLatin1(kHelp));
    picture.installEventFilter(this);
}

bool PictureKeys::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
            return UseKey(*static_cast<QKeyEvent*>(event));
        case QEvent::FocusIn:
            FocusGained();
            break;
        case QEvent::FocusOut:
            FocusLost(static_cast<QFocusEvent*>(event)->reason());
            break;
        case QEvent::MouseMove:
        case QEvent::MouseButtonPress:  // the mouse takes over, and the keys go on from its place
            held_ = false;
            place_ = static_cast<QMouseEvent*>(event)->position();
            ShowMark();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

bool PictureKeys::UseKey(const QKeyEvent& key) {
    if ((key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != 0) {
        return false;
    }
    const double step = (key.modifiers() & Qt::ShiftModifier) != 0 ? kLongStep : 1.0;
    for (const KeyMove& move : kMoves) {
        if (move.key == key.key()) {
            Move(move.across * step, move.down * step);
            return true;
        }
    }
    return !key.isAutoRepeat() && UseButtonKey(key);
}

bool PictureKeys::UseButtonKey(const QKeyEvent& key) {
    const bool shift = (key.modifiers() & Qt::ShiftModifier) != 0;
    if (key.key() == Qt::Key_Menu || (key.key() == Qt::Key_F10 && shift)) {
        Click(Qt::RightButton);
    } else if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        Click(Qt::LeftButton);
    } else if (key.key() == Qt::Key_Space) {
        Hold(!held_);
    } else {
        return false;
    }
    return true;
}

void PictureKeys::FocusGained() {
    if (frame_ != nullptr) {
        return;  // the frame watches the picture from now on, and thereby the event comes by once more
    }
    if (!QRectF(picture_.rect()).contains(place_)) {
        place_ = QRectF(picture_.rect()).center();
    }
    frame_ = new QFocusFrame(&picture_);
    frame_->setWidget(&picture_);
    Move(0.0, 0.0);
    mark_->show();
}

// A button that nobody could let go any more is let go; another window leaves everything as it is.
void PictureKeys::FocusLost(Qt::FocusReason reason) {
    delete frame_;
    mark_->hide();
    if (held_ && reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
        Hold(false);
    }
}

// While a button is held, any key for a button lets it go.
void PictureKeys::Click(Qt::MouseButton button) {
    if (held_) {
        Hold(false);
        return;
    }
    Send(QEvent::MouseButtonPress, button, button);
    Send(QEvent::MouseButtonRelease, button, Qt::NoButton);
}

// What is dragged begins at the first move: here, not a step further on.
void PictureKeys::Hold(bool held) {
    held_ = held;
    if (held) {
        Send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
        Move(0.0, 0.0);
    } else {
        Send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
    }
}

void PictureKeys::Move(double across, double down) {
    place_.rx() = Stepped(place_.x(), across, picture_.ScaleLeft(), picture_.ScaleWidth(), picture_.width());
    place_.ry() = Stepped(place_.y(), down, picture_.ScaleTop(), picture_.ScaleHeight(), picture_.height());
    ShowMark();
    Send(QEvent::MouseMove, Qt::NoButton, held_ ? Qt::LeftButton : Qt::NoButton);
}

void PictureKeys::ShowMark() { mark_->move((place_ - QPointF(kMarkSide, kMarkSide) / 2.0).toPoint()); }

// Straight to the picture: on the way that the mouse's own events take it would be the mouse that takes over.
void PictureKeys::Send(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
    QMouseEvent event(type, place_, picture_.mapToGlobal(place_), button, held, Qt::NoModifier);
    static_cast<QObject&>(picture_).event(&event);
}
