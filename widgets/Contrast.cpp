#include "widgets/Contrast.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int kSteps = 64;  // from one colour to the other

// The relative luminance of WCAG 2, from 0 to 1.
double LuminanceOf(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

}  // namespace

double ContrastOf(const QColor& one, const QColor& other) {
    const auto [dark, bright] = std::minmax({LuminanceOf(one), LuminanceOf(other)});
    return (bright + 0.05) / (dark + 0.05);
}

double ContrastOn(std::initializer_list<QColor> grounds, const QColor& ink) {
    double least = std::numeric_limits<double>::max();
    for (const QColor& ground : grounds) {
        least = std::min(least, ContrastOf(ground, ink));
    }
    return least;
}

QColor FirstWith(double contrast, std::initializer_list<QColor> grounds, const QColor& from, const QColor& to) {
    for (int step = 0; step < kSteps; ++step) {
        const QColor colour = Mixed(from, to, static_cast<double>(step) / kSteps);
        if (ContrastOn(grounds, colour) >= contrast) {
            return colour;
        }
    }
    return to;
}

QColor Mixed(const QColor& ground, const QColor& ink, double share) {
    const auto mix = [share](int from, int to) { return static_cast<int>(std::lround(from + (to - from) * share)); };
    return {mix(ground.red(), ink.red()), mix(ground.green(), ink.green()), mix(ground.blue(), ink.blue())};
}
