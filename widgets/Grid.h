#pragma once

// The one grid of margins and gaps, in pixels: multiples of 4.
inline constexpr int kGap = 8;      // between controls
inline constexpr int kMargin = 12;  // around the content of a window or a frame, and between frames
