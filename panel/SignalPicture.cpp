#include "panel/SignalPicture.h"

#include <QIcon>
#include <QIconEngine>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/Enumerations.h"
#include "widgets/FollowFont.h"

namespace {

constexpr double kWidth = 1.9;  // of a picture against the height of the text
constexpr double kPen = 0.09;   // of its stroke against its height
constexpr int kSineSteps = 48;

QPolygonF Sine() {
    QPolygonF curve;
    for (int i = 0; i <= kSineSteps; ++i) {
        const double x = static_cast<double>(i) / kSineSteps;
        curve += QPointF(x, std::sin(2.0 * std::numbers::pi * x));
    }
    return curve;
}

// Evenly spaced levels, joined by lines.
QPolygonF Joined(std::initializer_list<double> levels) {
    QPolygonF curve;
    for (const double level : levels) {
        curve += QPointF(static_cast<double>(curve.size()) / static_cast<double>(levels.size() - 1), level);
    }
    return curve;
}

// Evenly spaced levels, each of which stands until the next one.
QPolygonF Stepped(std::initializer_list<double> levels) {
    QPolygonF curve;
    double x = 0.0;
    for (const double level : levels) {
        curve += QPointF(x, level);
        x += 1.0 / static_cast<double>(levels.size());
        curve += QPointF(x, level);
    }
    return curve;
}

// x from 0 to 1, levels from -1 to 1. The memories hold the same curve in coarse and in fine steps; white noise goes up
// and down as fast as it can, pink noise has slow swings below.
QPolygonF CurveOf(int signal) {
    switch (signal) {
        case kSignalSine:
            return Sine();
        case kSignalSquare:
            return {{0, -1}, {0, 1}, {0.5, 1}, {0.5, -1}, {1, -1}, {1, 1}};
        case kSignalTriangular:
            return {{0, 0}, {0.25, 1}, {0.75, -1}, {1, 0}};
        case kSignalRampInc:
            return {{0, -1}, {0.5, 1}, {0.5, -1}, {1, 1}, {1, -1}};
        case kSignalRampDec:
            return {{0, -1}, {0, 1}, {0.5, -1}, {0.5, 1}, {1, -1}};
        case kSignalArbitrary4:
            return Stepped({-0.4, 0.2, 1.0, 0.2, -1.0, -0.4, 0.5});
        case kSignalArbitrary16:
            return Stepped({-0.5, -0.3, 0.0, 0.5, 0.9, 1.0, 0.7, 0.0, -0.7, -1.0, -0.9, -0.6, -0.3, 0.1, 0.5, 0.6});
        case kSignalWhiteNoise:
            return Joined({0.1, -0.7, 0.9, -0.3, 0.5, -1.0, 0.6, -0.2, 1.0, -0.8, 0.3, -0.5, 0.8, -0.9, 0.4, -0.1});
        default:
            return Joined({-0.9, -0.4, -0.7, 0.1, -0.2, 0.5, 0.2, 1.0, 0.6, 0.9, 0.1, 0.4, -0.5, -0.1, -0.8, -0.3});
    }
}

class SignalPicture : public QIconEngine {
  public:
    SignalPicture(const QWidget& option, int signal) : option_(option), signal_(signal) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State /*state*/) override {
        const double pen = std::max(std::round(kPen * place.height()), 1.0);
        const QRectF area = QRectF(place).adjusted(pen, pen, -pen, -pen);
        // Strokes that are level or upright cover whole pixels.
        const double half = std::fmod(pen, 2.0) / 2.0;
        const auto sharp = [half, this](double at) { return signal_ == kSignalSine ? at : std::floor(at) + half; };
        QPolygonF curve;
        for (const QPointF& point : CurveOf(signal_)) {
            curve += QPointF(sharp(area.left() + point.x() * area.width()),
                             sharp(area.center().y() - point.y() * area.height() / 2.0));
        }
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(option_.palette().color(group, QPalette::WindowText), pen, Qt::SolidLine, Qt::SquareCap,
                             Qt::MiterJoin));
        painter->drawPolyline(curve);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new SignalPicture(option_, signal_); }

  private:
    const QWidget& option_;
    int signal_;
};

}  // namespace

void SetSignalPicture(QAbstractButton& option, int signal) {
    option.setIcon(QIcon(new SignalPicture(option, signal)));
    FollowFont(&option, [&option] {
        const int height = option.fontMetrics().height();
        option.setIconSize(QSize(static_cast<int>(height * kWidth), height));
    });
}
