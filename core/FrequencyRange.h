#pragma once

// Bounds of every frequency entry in Hz, both inclusive. They don't depend on the signal form.
inline constexpr double kLowestHz = 0.0001;
inline constexpr double kHighestHz = 15.0e6;
