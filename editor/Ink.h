#pragma once

#include <QPalette>

// The colour of texts, so much of it on the ground: 1 is the text, 0 the ground.
inline QColor InkOn(const QPalette& palette, double share) {
    const QColor text = palette.color(QPalette::Text);
    const QColor ground = palette.color(QPalette::Base);
    const auto mix = [share](int ink, int paper) { return static_cast<int>(share * ink + (1.0 - share) * paper); };
    return {mix(text.red(), ground.red()), mix(text.green(), ground.green()), mix(text.blue(), ground.blue())};
}
