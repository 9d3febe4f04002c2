#pragma once

#include <array>

#include "core/PanelState.h"

// One row for each value of an enumeration: what the panel shows, what is sent, what the status reply holds, and the
// word of the overview, if it has one. The row's index is the value. An empty token marks what remains when no other
// token is found.
struct EnumerationRow {
    const char* caption = "";
    const char* command = "";
    const char* token = "";
    const char* overview = "";
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

inline constexpr quint8 kSignalSine = 0;
inline constexpr quint8 kSignalSquare = 1;
inline constexpr quint8 kSignalTriangular = 2;
inline constexpr quint8 kSignalRampInc = 3;
inline constexpr quint8 kSignalRampDec = 4;
inline constexpr quint8 kSignalArbitrary4 = 5;
inline constexpr quint8 kSignalArbitrary16 = 6;
inline constexpr quint8 kSignalWhiteNoise = 7;  // from here on: noise, which has no frequency
inline constexpr quint8 kSignalPinkNoise = 8;

inline constexpr std::array<EnumerationRow, 3> kSweeps{{
    {"Sweep: Off", "SW0", "SW0", "Off"},
    {"Sweep: linear", "lin", "SL1", "Linear"},
    {"Sweep: logarithmic", "log", "", "Logarithmic"},
}};

inline constexpr quint8 kSweepOff = 0;

inline constexpr std::array<EnumerationRow, 5> kModes{{
    {"Free-running mode", "ctm", "CTM", "Free running"},
    {"Gated high level", "gtm+", "GT+", "Gated 1"},
    {"Gated low level", "gtm-", "GT-", "Gated 0"},
    {"Trg + slope", "trm+", "TR+", "Triggered positive slope"},
    {"Trg - slope", "trm-", "", "Triggered negative slope"},
}};

// The command words of both modulations are in link/SettingCommands.cpp, with the sequences that send them.
inline constexpr std::array<EnumerationRow, 3> kAmplitudeModulations{{
    {"", "", "AM0", "Off"},
    {"Modulation external", "", "AMX", "External"},
    {"Modulation internal 1kHz", "", "", "Internal"},
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
