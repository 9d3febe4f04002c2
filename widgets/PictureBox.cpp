#include "widgets/PictureBox.h"

#include <QAccessibleWidget>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>

namespace {

// The other buttons of a mouse mean nothing to a picture.
constexpr Qt::MouseButtons kButtons = Qt::LeftButton | Qt::RightButton | Qt::MiddleButton;

// Qt numbers these three as MouseDown and MouseMove do.
int Number(Qt::MouseButtons buttons) { return static_cast<int>(buttons & kButtons); }

// To a screen reader it is a picture, not merely some part of a window.
QAccessibleInterface* PictureInterface(const QString& className, QObject* object) {
    return className == u"PictureBox" ? new QAccessibleWidget(qobject_cast<QWidget*>(object), QAccessible::Graphic)
                                      : nullptr;
}

}  // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setContextMenuPolicy(Qt::PreventContextMenu);  // the right button is the form's
    setMouseTracking(true);
    QAccessible::installFactory(PictureInterface);
}

void PictureBox::SetBackColor(const QColor& color) {
    backColor_ = color;
    update();
}

void PictureBox::SetScale(double left, double width, double top, double height) {
    Q_ASSERT(width != 0.0 && height != 0.0);
    scaleLeft_ = left;
    scaleWidth_ = width;
    scaleTop_ = top;
    scaleHeight_ = height;
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    if (Number(event->button()) == 0 || !QRectF(rect()).contains(event->position())) {
        event->ignore();
        return;
    }
    const QPointF place = ToUser(event->position());
    Q_EMIT MouseDown(Number(event->button()), static_cast<float>(place.x()), static_cast<float>(place.y()));
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    const QPointF place = ToUser(event->position());
    Q_EMIT MouseMove(Number(event->buttons()), static_cast<float>(place.x()), static_cast<float>(place.y()));
}

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
    if (RedrawIsDue()) {
        settledFor_ = PixelSize();  // asked once, also if nobody draws
        Q_EMIT RedrawNeeded();
    }
    QPainter painter(this);
    if (image_.isNull()) {
        painter.fillRect(rect(), backColor_);
    } else if (image_.size() == PixelSize()) {
        painter.drawImage(QPoint(0, 0), image_);
    } else {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(rect(), image_);
    }
}

// Never empty, so that a form may draw while its layout leaves no room.
QSize PictureBox::PixelSize() const {
    const auto pixels = [this](int length) {
        return std::max(1, static_cast<int>(std::ceil(length * devicePixelRatioF())));
    };
    return {pixels(width()), pixels(height())};
}

void PictureBox::FitImage() {
    if (image_.size() != PixelSize()) {
        QImage image(PixelSize(), QImage::Format_RGB32);
        image.fill(backColor_);
        if (!image_.isNull()) {
            QPainter(&image).drawImage(image.rect(), image_);
        }
        image_ = image;
    }
    image_.setDevicePixelRatio(devicePixelRatioF());
}

QPointF PictureBox::ToUser(const QPointF& pixel) const {
    return {scaleLeft_ + pixel.x() * scaleWidth_ / width(), scaleTop_ + pixel.y() * scaleHeight_ / height()};
}
