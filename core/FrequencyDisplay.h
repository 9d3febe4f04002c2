#pragma once

#include <array>

// The unit of a frequency is a matter of display: the stored value is in Hz, and each unit shows 0.0001 Hz.
struct FrequencyUnit {
    const char* name;
    const char* picture;
    double hertz;  // Hz that 1 of the unit stands for
};

inline constexpr std::array<FrequencyUnit, 3> kFrequencyUnits{{
    {"Hz", "0.0000", 1.0},
    {"kHz", "0.0000000", 1.0e3},
    {"MHz", "0.0000000000", 1.0e6},
}};

// Index of the unit that shows a frequency in Hz: Hz below 1000, kHz below 1,000,000, MHz from there on.
int FrequencyUnitIndex(double hertz);
