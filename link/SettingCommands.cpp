#include "link/SettingCommands.h"

#include "core/Enumerations.h"
#include "core/LevelRange.h"

namespace {
constexpr double kHighestTriangularHz = 1.0e6;
constexpr char kFrequencyPicture[] = "00000000.0000";
constexpr char kPhasePicture[] = "000.0";
}  // namespace

void SettingCommands::Send(const QString& text) {
    link_.CommandText = text;
    transport_.SendCommand();
}

void SettingCommands::SendValue(const char* word, double value, const char* picture) {
    Send(QString::fromLatin1(word) + numbers_.Picture(value, picture));
}

void SettingCommands::SendAllToUnit() {
    SendSignal();
    SendMode();
    SendSweep();
    SendReference();
    SendModulation();
    if (panel_.bmSignal < kSignalWhiteNoise) {
        if (panel_.bmSignal == kSignalTriangular && panel_.mFreq > kHighestTriangularHz) {
            panel_.mFreq = kHighestTriangularHz;
        }
        SendFrequency();
    }
    SendLevel();
    SendOutput();
}

void SettingCommands::SendSignal() {
    if (Linked()) {
        Send(RowOf(kSignals, panel_.bmSignal).command);
    }
}

void SettingCommands::SendMode() {
    if (Linked()) {
        Send(RowOf(kModes, panel_.bmMode).command);
    }
}

void SettingCommands::SendSweep() {
    if (!Linked() || panel_.bmWobbel == kSweepOff) {
        Send(kSweeps[kSweepOff].command);
        return;
    }
    SendValue("stt:", panel_.msWobbel, "0.0000");
    SendValue("stp:", panel_.meWobbel, "0.0000");
    SendValue("swt:", panel_.mtWobbel, "0.00");
    Send(RowOf(kSweeps, panel_.bmWobbel).command);
    Send("sw1");
}

void SettingCommands::SendReference() {
    if (Linked()) {
        Send(panel_.tmIntRef ? "rfi" : "rfx");
    }
}

void SettingCommands::SendDepth(const char* word) {
    Send("psk0");
    Send("fsk0");
    Send(QString::fromLatin1(word) + u':' + QString::number(panel_.bmAmDepth));
    Send(word);
}

// Amplitude modulation first, shift keying after it, always both.
void SettingCommands::SendModulation() {
    if (!Linked()) {
        return;
    }
    if (panel_.bmAmpMod == kAmOff) {
        Send("am0");
    } else {
        SendDepth(panel_.bmAmpMod == kAmExternal ? "amx" : "ami");
    }
    if (panel_.bmFMod == kShiftKeyingOff) {
        Send("psk0");
        Send("fsk0");
    } else if (panel_.bmFMod == kPsk) {
        Send("am0");
        Send("fsk0");
        SendValue("ph0:", panel_.mPhasea, kPhasePicture);
        SendValue("ph1:", panel_.mPhaseb, kPhasePicture);
        Send("psk1");
    } else {
        Send("am0");
        Send("psk0");
        SendValue("fk0:", panel_.mcFreq, kFrequencyPicture);
        SendValue("fk1:", panel_.mhFreq, kFrequencyPicture);
        Send("fsk1");
    }
}

// In a sweep the sweep's own commands set the frequencies.
void SettingCommands::SendFrequency() {
    if (Linked() && panel_.bmWobbel == kSweepOff) {
        SendValue("frq:", panel_.mFreq, kFrequencyPicture);
    }
}

// The floor of the range goes out ahead of the offset, so that the instrument is in the range in which the offset is
// allowed before it gets the offset and the level itself.
void SettingCommands::SendLevel() {
    if (!Linked()) {
        return;
    }
    panel_.bmBereich = LevelRangeNumber(panel_.mAmp, panel_.tmVPP);
    SendValue("amp:", LowestLevel(RangeOf(panel_.bmBereich), panel_.tmVPP), "0.00");
    SendOffset();
    Send(panel_.tmVPP ? "vpp" : "vrms");
    SendValue("amp:", panel_.mAmp, "0.0");
}

void SettingCommands::SendOffset() {
    if (!Linked()) {
        return;
    }
    if (panel_.tmOffset) {
        SendValue("ofs:", panel_.mOffset, "0.0000");
    } else {
        Send("ofs:0");
    }
}

void SettingCommands::SendOutput() {
    if (Linked()) {
        Send(panel_.tmOut ? "OT1" : "OT0");
        // The one command that a click sends by itself: what it said holds until it is read.
        if (link_.SerialFault != 1) {
            link_.Reported.Note(&PanelState::tmOut, panel_);
        }
    }
}

void SettingCommands::SendTimeDate() {
    if (!Linked()) {
        return;
    }
    const auto field = [this](QStringView picture) { return now_().toString(picture); };
    link_.CommandText = u"time:" + field(u"HH") + u',' + field(u"mm");
    transport_.SendCommandSlow();
    link_.CommandText = u"date:" + field(u"dd") + u',' + field(u"MM") + u',' + field(u"yy");
    transport_.SendCommandSlow();
}
