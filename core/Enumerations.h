#pragma once

#include <array>

#include "core/PanelState.h"

// One row for each value of an enumeration: what the panel shows, what is sent, and what the status reply holds.
// The row's index is the value. An empty token marks what remains when no other token is found.
struct EnumerationRow {
    const char* caption;
    const char* command;
    const char* token;
};

inline constexpr std::array<EnumerationRow, 9> kSignals{{
    {"Sinusoid", "sin", "SIN"},
    {"Square wave", "sqr", "SQR"},
    {"Triangular", "tri", "TRI"},
    {"Ramp, inc.", "rmp", "RMP"},
    {"Ramp, dec.", "rmn", "RMN"},
    {"Arbitrary (4k)", "arb4", "AR4"},
    {"Arbitrary (16k)", "arb16", "A16"},
    {"White noise", "noise", "WNS"},
    {"Pink noise", "pink", ""},
}};

inline constexpr quint8 kSignalTriangular = 2;
inline constexpr quint8 kSignalArbitrary4 = 5;
inline constexpr quint8 kSignalArbitrary16 = 6;
inline constexpr quint8 kSignalWhiteNoise = 7;  // from here on: noise, which has no frequency

inline constexpr std::array<EnumerationRow, 3> kSweeps{{
    {"Sweep: Off", "SW0", "SW0"},
    {"Sweep: linear", "lin", "SL1"},
    {"Sweep: logarithmic", "log", ""},
}};

inline constexpr quint8 kSweepOff = 0;
inline constexpr quint8 kSweepLinear = 1;

inline constexpr std::array<EnumerationRow, 5> kModes{{
    {"Free-running mode", "ctm", "CTM"},
    {"Gated high level", "gtm+", "GT+"},
    {"Gated low level", "gtm-", "GT-"},
    {"Trg + slope", "trm+", "TR+"},
    {"Trg - slope", "trm-", ""},
}};

// The command words of both modulations stand with the sequences that send them.
inline constexpr std::array<EnumerationRow, 3> kAmplitudeModulations{{
    {"", "", "AM0"},
    {"Modulation external", "", "AMX"},
    {"Modulation internal 1kHz", "", ""},
}};

inline constexpr quint8 kAmOff = 0;
inline constexpr quint8 kAmExternal = 1;
inline constexpr quint8 kAmInternal = 2;

inline constexpr std::array<EnumerationRow, 3> kShiftKeyings{{
    {"", "", "SK0"},
    {"", "", "PS1"},
    {"", "", ""},
}};

inline constexpr quint8 kShiftKeyingOff = 0;
inline constexpr quint8 kPsk = 1;
inline constexpr quint8 kFsk = 2;

// The row of a value; a value beyond the table has the meaning of the last row.
template <std::size_t size>
constexpr const EnumerationRow& RowOf(const std::array<EnumerationRow, size>& table, quint8 value) {
    return table[value < size ? value : size - 1];
}

// The option group opmod sets shift keying and AM together, so that at most one of them is on.
struct ModulationOption {
    const char* caption;
    quint8 bmFMod;
    quint8 bmAmpMod;
};

inline constexpr std::array<ModulationOption, 4> kModulationOptions{{
    {"AM", kShiftKeyingOff, kAmInternal},
    {"FSK", kFsk, kAmOff},
    {"PSK", kPsk, kAmOff},
    {"Modulation Off", kShiftKeyingOff, kAmOff},
}};
