#pragma once

#include <QHash>
#include <QImage>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cmath>

// What a window shows, pixel by pixel.

// The contrast ratio of WCAG 2.
inline double Contrast(const QColor& one, const QColor& other) {
    const auto part = [](double share) {
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    const auto luminance = [part](const QColor& colour) {
        return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
    };
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

inline bool IsReadable(const QColor& text, const QColor& ground) { return Contrast(text, ground) >= 4.5; }

// How many rows of an image, in logical pixels, hold some ink.
double InkedRows(const QImage& image, const auto& isInk) {
    int rows = 0;
    for (int y = 0; y < image.height(); ++y) {
        int x = 0;
        while (x < image.width() && !isInk(image.pixel(x, y))) {
            ++x;
        }
        rows += x < image.width() ? 1 : 0;
    }
    return rows / image.devicePixelRatio();
}

// A picture of a window, addressed in logical pixels.
struct Shot {
    explicit Shot(QWidget& of) : window(of), image(of.grab().toImage()) {}

    QWidget& window;
    QImage image;

    QRect Device(const QRect& place) const {
        const double ratio = image.devicePixelRatio();
        return QRect((QPointF(place.topLeft()) * ratio).toPoint(), (QSizeF(place.size()) * ratio).toSize()) &
               image.rect();
    }

    // Between the ground of this part, its most frequent colour, and what stands out most from it.
    double InkContrast(const QRect& place) const {
        QHash<QRgb, int> counts;
        const QRect part = Device(place);
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                ++counts[image.pixel(x, y)];
            }
        }
        const auto ground = std::max_element(counts.cbegin(), counts.cend());
        double best = 1.0;
        for (auto colour = counts.cbegin(); colour != counts.cend(); ++colour) {
            best = std::max(best, Contrast(colour.key(), ground.key()));
        }
        return best;
    }

    // The least, over the middles of the sides (left, right, top, bottom), of what stands out most at the edge of a
    // control from the ground beside it.
    double EdgeContrast(const QRect& control, int sides = 4) const {
        constexpr int kBeside = 2;
        const QPoint middle = control.center();
        const std::array<std::pair<QPoint, QPoint>, 4> ways{{{{control.left(), middle.y()}, {1, 0}},
                                                             {{control.right(), middle.y()}, {-1, 0}},
                                                             {{middle.x(), control.top()}, {0, 1}},
                                                             {{middle.x(), control.bottom()}, {0, -1}}}};
        double least = 21.0;
        const int dense = static_cast<int>(image.devicePixelRatio());
        for (int side = 0; side < sides; ++side) {
            const auto& [edge, inwards] = ways[static_cast<std::size_t>(side)];
            const QRgb ground = Pixel(edge - kBeside * inwards);
            double best = 1.0;
            for (int step = -dense; step <= 2 * dense; ++step) {
                best = std::max(best, Contrast(Pixel(edge, step * inwards), ground));
            }
            least = std::min(least, best);
        }
        return least;
    }

    // `beside`: device pixels from the place.
    QRgb Pixel(const QPoint& place, const QPoint& beside = {}) const {
        const QPoint at = Device(QRect(place, QSize(1, 1))).center() + beside;
        return image.pixel(image.rect().contains(at) ? at : QPoint());
    }
};
