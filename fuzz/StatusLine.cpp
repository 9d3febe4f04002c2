#include <cmath>
#include <initializer_list>

#include "AnsweringLink.h"
#include "core/LevelRange.h"

namespace {

// The place in the list of the first token that is found, or its length.
int Found(const QString& status, std::initializer_list<const char*> tokens) {
    int place = 0;
    for (const char* const token : tokens) {
        if (status.contains(QLatin1StringView(token))) {
            return place;
        }
        ++place;
    }
    return place;
}

Truth Holds(const QString& status, const char* token) { return Found(status, {token}) == 0 ? kTrue : kFalse; }

void RequireRanges(const PanelState& panel) {
    for (const double measure : {panel.mFreq, panel.mAmp, panel.mOffset, panel.mcFreq, panel.mhFreq, panel.mPhasea,
                                 panel.mPhaseb, panel.msWobbel, panel.meWobbel, panel.mtWobbel}) {
        Require(std::isfinite(measure), "measures are finite");
    }
    Require(panel.bmBereich >= 1 && panel.bmBereich <= 3, "the range is 1 to 3");
    Require(panel.bmSignal <= 8 && panel.bmWobbel <= 2 && panel.bmMode <= 4, "enumerations hold their values");
    Require(panel.bmAmpMod <= 2 && panel.bmFMod <= 2, "modulations hold their values");
}

void RequireStatus(const PanelState& panel, const QString& status) {
    Require(panel.tmOut == Holds(status, "OT1") && panel.tmIntRef == Holds(status, "RFI") &&
                panel.tmVPP == Holds(status, "VPP"),
            "truth values follow their tokens");
    Require(panel.bmSignal == Found(status, {"SIN", "SQR", "TRI", "RMP", "RMN", "AR4", "A16", "WNS"}), "signal");
    Require(panel.bmWobbel == Found(status, {"SW0", "SL1"}), "sweep");
    Require(panel.bmMode == Found(status, {"CTM", "GT+", "GT-", "TR+"}), "mode");
    Require(panel.bmAmpMod == Found(status, {"AM0", "AMX"}), "amplitude modulation");
    Require(panel.bmFMod == Found(status, {"SK0", "PS1"}), "shift keying");
}

void RequireLevel(const PanelState& before, const PanelState& panel, double amplitude, double offset) {
    Require(panel.mAmp == amplitude, "level");
    Require(panel.bmBereich == LevelRangeNumber(amplitude, panel.tmVPP), "the range follows from the level");
    if (std::isinf(offset)) {
        Require(panel.tmOffset == before.tmOffset && panel.mOffset == before.mOffset,
                "an offset too great is passed over");
        return;
    }
    Require(panel.tmOffset == (offset != 0.0 ? kTrue : kFalse), "an offset other than 0 is on");
    const double divisor = panel.bmBereich == 1 ? 100.0 : panel.bmBereich == 2 ? 10.0 : 1.0;
    Require(panel.mOffset == (panel.tmOffset ? offset / divisor : before.mOffset), "an offset of 0 keeps the value");
}

// After a read-back without a fault.
void RequireAsAnswered(const PanelState& before, const PanelState& panel, const AnsweringLink& far, qsizetype first) {
    QHash<QString, QString> answers;
    for (const AnsweringLink::Exchange& exchange : far.exchanges.sliced(first)) {
        answers.insert(exchange.query, exchange.answer);
    }
    const auto number = [&answers](const char* query, double unasked = NAN) {
        const auto answer = answers.constFind(QString::fromLatin1(query));
        return answer == answers.cend() ? unasked : ReadHeadNumber(*answer);
    };
    // What a field holds that keeps its value if the answer is too great.
    const auto measure = [&number](const char* query, double kept, double unasked = NAN) {
        const double value = number(query, unasked);
        return std::isinf(value) ? kept : value;
    };
    RequireStatus(panel, answers.value(QStringLiteral("sta?")).toUpper());
    RequireLevel(before, panel, measure("amp?", before.mAmp), number("OFS?"));
    Require(panel.mcFreq == measure("fk0?", before.mcFreq) && panel.mhFreq == measure("fk1?", before.mhFreq), "FSK");
    Require(panel.mPhasea == measure("ph0?", before.mPhasea) && panel.mPhaseb == measure("ph1?", before.mPhaseb),
            "PSK");
    const double depth = NearestEven(number("amt?"));
    Require(panel.bmAmDepth == (depth >= 0.0 && depth <= 255.0 ? depth : before.bmAmDepth), "a depth is a byte");
    Require(panel.msWobbel == measure("stt?", before.msWobbel, before.msWobbel) &&
                panel.meWobbel == measure("stp?", before.meWobbel, before.meWobbel) &&
                panel.mtWobbel == measure("swt?", before.mtWobbel, before.mtWobbel),
            "sweep values are kept or answered");
    Require(answers.contains(QStringLiteral("stt?")) == (before.bmWobbel > 0), "a sweep known before is asked for");
    Require(panel.mFreq == measure("frq?", before.mFreq, before.mFreq), "the frequency is kept or answered");
    Require(answers.contains(QStringLiteral("frq?")) == (panel.bmWobbel == 0), "no frequency is asked of a sweep");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    AnsweringLink far(BytesOf(data, size));
    const PanelState& panel = far.program.panel;
    for (int reading = 0; reading < 2; ++reading) {
        const PanelState before = panel;
        const qsizetype first = far.exchanges.size();
        const int asked = far.queries;
        const bool linked = far.program.link.LinkUp == 1;
        far.link.readBack.ReadAllFromUnit();
        far.RequireOneFaultAtMost();
        RequireRanges(panel);
        if (far.program.link.LinkUp == 1) {
            RequireAsAnswered(before, panel, far, first);
        }
        Require(linked || far.queries == asked, "without a link nothing is asked");
    }
    return 0;
}
