#pragma once

#include <QtGlobal>

// 16-bit truth value, as the settings files store it.
using Truth = qint16;
inline constexpr Truth kTrue = -1;
inline constexpr Truth kFalse = 0;
constexpr Truth ToTruth(bool value) { return value ? kTrue : kFalse; }

// All that the panel knows of the instrument's setting. Nothing on the screen is a source of truth: every entry writes
// here, the commands read it, the read-back writes it, RefreshPanel shows it.
//
// The field names are those of the settings table of a file, with two German words among them:
// Bereich = range, Wobbel = sweep. Prefixes: m = measure, bm = byte, tm = truth value.
struct PanelState {
    double mFreq = 1000.0;      // Hz, output frequency
    double mAmp = 1.0;          // V, output level: peak-to-peak while tmVPP, else RMS
    quint8 bmBereich = 1;       // level range 1 to 3, follows from mAmp and tmVPP
    double mOffset = 0.0;       // V, keeps its value while the offset is off
    Truth tmOffset = kFalse;    // offset switched on
    Truth tmOut = kFalse;       // output switched on
    Truth tmIntRef = kTrue;     // reference is the internal crystal oscillator
    quint8 bmWobbel = 0;        // sweep: 0 off, 1 linear, 2 logarithmic
    quint8 bmSignal = 0;        // signal form, 0 to 8 (kSignals)
    quint8 bmAmpMod = 0;        // AM: 0 off, 1 external, 2 internal
    quint8 bmFMod = 0;          // shift keying: 0 off, 1 PSK, 2 FSK
    quint8 bmMode = 0;          // operating mode, 0 to 4 (kModes)
    Truth tmVPP = kTrue;        // level is given as peak-to-peak
    quint8 bmAmDepth = 50;      // percent, AM depth
    double mcFreq = 1000.0;     // Hz, FSK carrier
    double mhFreq = 1100.0;     // Hz, FSK hop
    double mPhasea = 90.0;      // degrees, PSK phase 0
    double mPhaseb = 180.0;     // degrees, PSK phase 1
    double msWobbel = 1000.0;   // Hz, sweep start
    double meWobbel = 50000.0;  // Hz, sweep stop
    double mtWobbel = 1.0;      // s, sweep time

    bool operator==(const PanelState&) const = default;
};
