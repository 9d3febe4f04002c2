#pragma once

#include <QPalette>

// Makes the program follow the desktop's theme, also when it changes, with every text and every edge in sight: palettes
// go through Readable, and where the toolkit would draw the controls in its own style, ControlStyle does. A desktop's
// own style stays. Call before the first window; a second call changes nothing.
void FollowTheme();

// The palette with texts of a contrast of at least 4.5 to their grounds, those of disabled controls included, and with
// a selection that stands out by at least 3 from what is around it. Colours that do so already stay.
QPalette Readable(const QPalette& theme);
