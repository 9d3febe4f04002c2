#include "waveform/ViewRules.h"

#include <algorithm>
#include <cmath>

#include "waveform/Samples.h"

namespace {

constexpr int kNarrowestView = 40;  // addresses

// Shifts the view onto the axis; one wider than the axis becomes the whole axis.
View HoldView(View view, int LastAdr) {
    const int span = std::min(view.right - view.left, LastAdr);
    const int left = std::clamp(view.left, 0, LastAdr - span);
    return {left, left + span};
}

}  // namespace

void SetView(EditorState& editor, View view) {
    editor.ViewLeft = static_cast<qint16>(view.left);
    editor.ViewRight = static_cast<qint16>(view.right);
}

int ViewMargin(View view) { return Nearest((view.right - view.left) / 50.0); }

View ZoomView(int from, int to, int LastAdr) {
    const auto [left, right] = std::minmax({std::clamp(from, 0, LastAdr), std::clamp(to, 0, LastAdr)});
    return HoldView({left, std::max(right, left + kNarrowestView)}, LastAdr);
}

std::optional<View> PageView(View view, float x, int LastAdr) {
    const int span = view.right - view.left;
    const int step = Nearest(span / 2.0);
    const double slack = ViewMargin(view) / 4.0;
    if (x < static_cast<float>(view.left - slack) && view.left > 0) {
        return HoldView({view.left - step, view.right - step}, LastAdr);
    }
    if (x > static_cast<float>(view.right + slack) && view.right < LastAdr) {
        return HoldView({view.left + step, view.right + step}, LastAdr);
    }
    return std::nullopt;
}

View ScaleView(View view, double x, double factor, int LastAdr) {
    const int span = view.right - view.left;
    const int scaled = std::clamp(static_cast<int>(std::lround(span * factor)), kNarrowestView, LastAdr);
    const double before = (x - view.left) / span;  // the part of the view that lies before x
    const int left = static_cast<int>(std::lround(x - before * scaled));
    return HoldView({left, left + scaled}, LastAdr);
}

View FitView(View view, int LastAdr) { return view.left >= LastAdr ? kFirstView : HoldView(view, LastAdr); }

float ClampX(float x, View view) {
    return std::clamp(x, static_cast<float>(view.left), static_cast<float>(view.right));
}

float ClampY(float y) {
    constexpr float kHighest = kHighestSample;
    return std::clamp(y, -kHighest, kHighest);
}

float PercentX(float x, int LastAdr) { return x / static_cast<float>(LastAdr) * 100.0F; }

float PercentY(float y) {
    constexpr float kSpan = 2 * kHighestSample;
    return y / kSpan * 100.0F;
}
