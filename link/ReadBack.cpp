#include "link/ReadBack.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/Enumerations.h"
#include "core/LevelRange.h"

namespace {

// The first value of the enumeration whose token stands anywhere in the status line; what has no token remains.
template <std::size_t size>
quint8 FindToken(const std::array<EnumerationRow, size>& table, const QString& status) {
    const auto row = std::find_if(table.begin(), table.end(), [&status](const EnumerationRow& candidate) {
        return *candidate.token == '\0' || status.contains(QLatin1StringView(candidate.token));
    });
    return static_cast<quint8>(row - table.begin());
}

}  // namespace

void ReadBack::ReadAllFromUnit() {
    const PanelState former = panel_;
    ReadSweep();
    ReadModulation();
    ReadStatus();
    ReadLevel();
    ReadFrequency();
    // The values of queries that were cut short did not come from the instrument; to show them would switch its output.
    if (gate_.Abandoned()) {
        panel_ = former;
    }
}

// The number at the head of the reply, or of what stands in ReplyText if the query fails.
double ReadBack::Ask(const char* query) {
    link_.CommandText = QString::fromLatin1(query);
    transport_.QueryUnit();
    return ReadHeadNumber(link_.ReplyText);
}

// The fields as they stand now came from the instrument.
template <typename... Fields>
void ReadBack::Note(Fields... fields) {
    if (Answered()) {
        (link_.Reported.Note(fields, panel_), ...);
    }
}

// A number that the field can't hold leaves it as it is.
void ReadBack::AskMeasure(double PanelState::*field, const char* query) {
    const double number = Ask(query);
    if (std::isfinite(number)) {
        panel_.*field = number;
        Note(field);
    }
}

void ReadBack::ReadSweep() {
    if (link_.LinkUp == 0 || panel_.bmWobbel == kSweepOff) {
        return;
    }
    AskSweep();
}

void ReadBack::AskSweep() {
    AskMeasure(&PanelState::msWobbel, "stt?");
    AskMeasure(&PanelState::meWobbel, "stp?");
    AskMeasure(&PanelState::mtWobbel, "swt?");
}

void ReadBack::ReadModulation() {
    if (link_.LinkUp == 0) {
        return;
    }
    const double depth = NearestEven(Ask("amt?"));
    // A depth that the field can't hold leaves the field as it is.
    if (depth >= 0.0 && depth <= std::numeric_limits<quint8>::max()) {
        panel_.bmAmDepth = static_cast<quint8>(depth);
        Note(&PanelState::bmAmDepth);
    }
    AskMeasure(&PanelState::mcFreq, "fk0?");
    AskMeasure(&PanelState::mhFreq, "fk1?");
    AskMeasure(&PanelState::mPhasea, "ph0?");
    AskMeasure(&PanelState::mPhaseb, "ph1?");
}

void ReadBack::ReadStatus() {
    if (link_.LinkUp == 0) {
        return;
    }
    Ask("sta?");
    const QString status = link_.ReplyText.toUpper();
    panel_.tmOut = ToTruth(status.contains(u"OT1"));
    panel_.tmIntRef = ToTruth(status.contains(u"RFI"));
    panel_.bmWobbel = FindToken(kSweeps, status);
    panel_.bmSignal = FindToken(kSignals, status);
    panel_.bmAmpMod = FindToken(kAmplitudeModulations, status);
    panel_.bmFMod = FindToken(kShiftKeyings, status);
    panel_.bmMode = FindToken(kModes, status);
    panel_.tmVPP = ToTruth(status.contains(u"VPP"));
    Note(&PanelState::tmOut, &PanelState::tmIntRef, &PanelState::bmWobbel, &PanelState::bmSignal, &PanelState::bmAmpMod,
         &PanelState::bmFMod, &PanelState::bmMode, &PanelState::tmVPP);
}

void ReadBack::ReadLevel() {
    if (link_.LinkUp == 0) {
        return;
    }
    AskMeasure(&PanelState::mAmp, "amp?");
    // Of a level that was kept too: the range follows from level and unit.
    panel_.bmBereich = LevelRangeNumber(panel_.mAmp, panel_.tmVPP);
    const double reported = Ask("OFS?");
    // An offset too great for the field leaves the switch alone too: the panel shows no offset that was not reported.
    if (!std::isfinite(reported)) {
        return;
    }
    panel_.tmOffset = ToTruth(reported != 0.0);
    Note(&PanelState::tmOffset);
    if (panel_.tmOffset) {
        panel_.mOffset = reported / RangeOf(panel_.bmBereich).offsetReplyFactor;
        Note(&PanelState::mOffset);
    } else {
        link_.Reported.Forget(&PanelState::mOffset);
    }
}

void ReadBack::ReadFrequency() {
    if (link_.LinkUp != 0 && panel_.bmWobbel == kSweepOff) {
        AskMeasure(&PanelState::mFreq, "frq?");
    }
}

void ReadBack::ReadLeftOut(quint8 sweepBefore) {
    if (link_.LinkUp != 0 && sweepBefore == kSweepOff) {
        AskSweep();
    }
    if (link_.LinkUp != 0 && panel_.bmWobbel != kSweepOff) {
        AskMeasure(&PanelState::mFreq, "frq?");
    }
}
