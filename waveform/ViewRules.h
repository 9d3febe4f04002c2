#pragma once

#include <optional>

#include "core/EditorState.h"

// The part of the address axis that the enlarged picture shows. All of them keep 0 <= left < right <= LastAdr.
struct View {
    int left;   // ViewLeft
    int right;  // ViewRight
    bool operator==(const View&) const = default;
};

inline constexpr View kFirstView{1000, 2000};

void SetView(EditorState& editor, View view);

// The width of the shaded strip on either side of the view, in addresses.
int ViewMargin(View view);

// The view chosen by a drag in the overview, in either direction; at least 40 addresses wide. A drag that begins or
// ends outside the axis is held to it.
View ZoomView(int from, int to, int LastAdr);

// The view half a span further after a press at x, in a shaded strip or past it. None if x lies in the view (where up
// to a quarter of the strip counts as view), or if the axis ends there.
std::optional<View> PageView(View view, float x, int LastAdr);

// The view `factor` times as wide, at least 40 addresses, with what stands at x left at its place as far as the axis
// allows.
View ScaleView(View view, double x, double factor, int LastAdr);

// The view after a change of the axis: kFirstView if it lies past the end, else shifted onto the axis as a whole.
View FitView(View view, int LastAdr);

// Where the crosshair stands for a pointer at x, y.
float ClampX(float x, View view);
float ClampY(float y);

// Positions for display. Full scale in y is the whole span, so that the highest sample reads 50.
float PercentX(float x, int LastAdr);
float PercentY(float y);
