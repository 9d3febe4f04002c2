#include "ctl/Fields.h"

#include <algorithm>
#include <array>

#include "core/Enumerations.h"
#include "rules/FrequencyRules.h"
#include "rules/LevelCoupling.h"
#include "rules/LevelRules.h"
#include "rules/ModulationRules.h"
#include "rules/SweepRules.h"

namespace {

using Words = std::span<const char* const>;

constexpr std::array kForms{"sine", "square", "triangle", "ramp-up", "ramp-down", "arb4", "arb16", "white", "pink"};
constexpr std::array kSwitch{"off", "on"};
constexpr std::array kModeWords{"free", "gate-high", "gate-low", "trigger-rising", "trigger-falling"};
constexpr std::array kReferences{"internal", "external"};
constexpr std::array kSweepWords{"off", "lin", "log"};
constexpr std::array kModulations{"off", "am-internal", "am-external", "fsk", "psk"};
constexpr std::array kLevelUnits{"Vpp", "Vrms"};

struct ModulationBytes {
    quint8 bmAmpMod;
    quint8 bmFMod;
};
constexpr std::array<ModulationBytes, 5> kModulationBytes{{{kAmOff, kShiftKeyingOff},
                                                           {kAmInternal, kShiftKeyingOff},
                                                           {kAmExternal, kShiftKeyingOff},
                                                           {kAmOff, kFsk},
                                                           {kAmOff, kPsk}}};

// AM comes first if both are on. A file may hold bytes beyond the table, which mean what the link makes of them.
double GetModulation(const PanelState& panel) {
    if (AmOn(panel)) {
        return panel.bmAmpMod == kAmExternal ? 2.0 : 1.0;
    }
    return panel.bmFMod == kShiftKeyingOff ? 0.0 : panel.bmFMod == kPsk ? 4.0 : 3.0;
}

void PutModulation(PanelState& panel, double value) {
    const ModulationBytes& bytes = kModulationBytes.at(static_cast<std::size_t>(value));
    panel.bmAmpMod = bytes.bmAmpMod;
    panel.bmFMod = bytes.bmFMod;
}

void PutLevelUnit(PanelState& panel, double value) {
    const bool toVpp = value == 0.0;
    if (toVpp != (panel.tmVPP != kFalse)) {
        panel.tmVPP = ToTruth(toVpp);
        panel.mAmp = ConvertLevel(panel.mAmp, toVpp);
    }
}

Held HoldHertz(const PanelState&, double entry) { return HoldFrequency(entry, 0, PlainNumbers()); }
Held HoldPhaseEntry(const PanelState&, double entry) { return HoldPhase(entry); }

template <auto member>
double Get(const PanelState& panel) {
    return panel.*member;
}
template <auto member>
void Put(PanelState& panel, double value) {
    panel.*member = static_cast<std::remove_reference_t<decltype(panel.*member)>>(value);
}
template <auto member, bool first>
double GetTruth(const PanelState& panel) {
    return (panel.*member != kFalse) == first ? 0.0 : 1.0;
}
template <auto member, bool first>
void PutTruth(PanelState& panel, double value) {
    panel.*member = ToTruth((value == 0.0) == first);
}

constexpr Field Choice(const char* name, const char* about, Words words, double (*get)(const PanelState&),
                       void (*put)(PanelState&, double)) {
    return {name, "", about, words, Quantity::Frequency, get, put, nullptr, {}, ""};
}

constexpr std::array kFrequencyCommands{"frq:"};
constexpr std::array kStartCommands{"stt:"};
constexpr std::array kStopCommands{"stp:"};
constexpr std::array kTimeCommands{"swt:"};
constexpr std::array kDepthCommands{"amx:", "ami:"};
constexpr std::array kCarrierCommands{"fk0:"};
constexpr std::array kHopCommands{"fk1:"};
constexpr std::array kPhase0Commands{"ph0:"};
constexpr std::array kPhase1Commands{"ph1:"};
constexpr std::array kLevelCommands{"amp:"};
constexpr std::array kOffsetCommands{"ofs:"};

constexpr char kHertzLimits[] = "0.0001Hz to 15MHz";
constexpr char kPhaseLimits[] = "0deg to 359.9deg";
constexpr char kInSweep[] = "a sweep is on";
constexpr char kInFsk[] = "the modulation is fsk";
constexpr char kInPsk[] = "the modulation is psk";

using S = PanelState;
constexpr auto kFields = std::to_array<Field>({
    Choice("form", "signal form", kForms, Get<&S::bmSignal>, Put<&S::bmSignal>),
    Choice("output", "output of the signal", kSwitch, GetTruth<&S::tmOut, false>, PutTruth<&S::tmOut, false>),
    Choice("mode", "operating mode", kModeWords, Get<&S::bmMode>, Put<&S::bmMode>),
    Choice("reference", "reference frequency", kReferences, GetTruth<&S::tmIntRef, true>, PutTruth<&S::tmIntRef, true>),
    Choice("sweep", "sweep of the frequency", kSweepWords, Get<&S::bmWobbel>, Put<&S::bmWobbel>),
    Choice("modulation", "modulation", kModulations, GetModulation, PutModulation),
    Choice("level-unit", "unit of the level", kLevelUnits, GetTruth<&S::tmVPP, true>, PutLevelUnit),
    {"frequency",
     kHertzLimits,
     "output frequency",
     {},
     Quantity::Frequency,
     Get<&S::mFreq>,
     Put<&S::mFreq>,
     HoldHertz,
     kFrequencyCommands,
     "no sweep is on and the form is no noise"},
    {"level",
     "0.02Vpp to 20Vpp, 0.0071Vrms to 7.07Vrms; one decimal",
     "output level",
     {},
     Quantity::Level,
     Get<&S::mAmp>,
     Put<&S::mAmp>,
     [](const S& panel, double entry) { return HoldLevel(entry, panel.tmVPP, AmOn(panel), PlainNumbers()); },
     kLevelCommands,
     "always"},
    {"offset",
     "-5V to 5V, less at low levels; 0 is off",
     "offset voltage",
     {},
     Quantity::Voltage,
     [](const S& panel) { return panel.tmOffset ? panel.mOffset : 0.0; },
     [](S& panel, double value) {
         panel.mOffset = value;
         panel.tmOffset = ToTruth(value != 0.0);
     },
     [](const S&, double entry) {
         return Held{entry, {}};
     },
     kOffsetCommands,
     "always"},
    {"sweep-start",
     kHertzLimits,
     "start of the sweep",
     {},
     Quantity::Frequency,
     Get<&S::msWobbel>,
     Put<&S::msWobbel>,
     HoldHertz,
     kStartCommands,
     kInSweep},
    {"sweep-stop",
     kHertzLimits,
     "stop of the sweep",
     {},
     Quantity::Frequency,
     Get<&S::meWobbel>,
     Put<&S::meWobbel>,
     HoldHertz,
     kStopCommands,
     kInSweep},
    {"sweep-time",
     "10ms to 40s",
     "time of the sweep",
     {},
     Quantity::Time,
     Get<&S::mtWobbel>,
     Put<&S::mtWobbel>,
     [](const S&, double entry) { return HoldSweepTime(entry, PlainNumbers()); },
     kTimeCommands,
     kInSweep},
    {"am-depth",
     "0% to 100% in whole percent",
     "depth of the amplitude modulation",
     {},
     Quantity::Depth,
     Get<&S::bmAmDepth>,
     Put<&S::bmAmDepth>,
     [](const S&, double entry) { return HoldDepth(entry); },
     kDepthCommands,
     "the modulation is am-internal or am-external"},
    {"fsk-carrier",
     kHertzLimits,
     "carrier of the frequency shift keying",
     {},
     Quantity::Frequency,
     Get<&S::mcFreq>,
     Put<&S::mcFreq>,
     HoldHertz,
     kCarrierCommands,
     kInFsk},
    {"fsk-hop",
     kHertzLimits,
     "hop frequency of the frequency shift keying",
     {},
     Quantity::Frequency,
     Get<&S::mhFreq>,
     Put<&S::mhFreq>,
     HoldHertz,
     kHopCommands,
     kInFsk},
    {"psk-phase0",
     kPhaseLimits,
     "phase 0 of the phase shift keying",
     {},
     Quantity::Phase,
     Get<&S::mPhasea>,
     Put<&S::mPhasea>,
     HoldPhaseEntry,
     kPhase0Commands,
     kInPsk},
    {"psk-phase1",
     kPhaseLimits,
     "phase 1 of the phase shift keying",
     {},
     Quantity::Phase,
     Get<&S::mPhaseb>,
     Put<&S::mPhaseb>,
     HoldPhaseEntry,
     kPhase1Commands,
     kInPsk},
});

QString JoinedWords(const Field& field) {
    QStringList words;
    for (const char* const word : field.words) {
        words += QString::fromLatin1(word);
    }
    return words.join(u", ");
}

std::optional<QList<Assignment>> ReadChoice(const Field& field, const QString& text, QString& fault) {
    for (std::size_t value = 0; value < field.words.size(); ++value) {
        if (text.compare(QLatin1StringView(field.words[value]), Qt::CaseInsensitive) == 0) {
            return QList<Assignment>{{&field, static_cast<double>(value)}};
        }
    }
    fault = QStringLiteral("%1 has no \"%2\": choose one of %3")
                .arg(QLatin1StringView(field.name), text, JoinedWords(field));
    return std::nullopt;
}

}  // namespace

std::span<const Field> Fields() { return kFields; }

const Field* FindField(const QString& name) {
    const auto* const found =
        std::ranges::find_if(kFields, [&](const Field& field) { return name == QLatin1StringView(field.name); });
    return found == kFields.end() ? nullptr : found;
}

QString TextOf(const Field& field, double value, const PanelState& panel) {
    return field.IsNumber() ? ValueText(value, field.quantity, panel.tmVPP != kFalse)
                            : QString::fromLatin1(field.words[static_cast<std::size_t>(value)]);
}

std::optional<QList<Assignment>> ReadAssignment(const QString& text, QString& fault) {
    const qsizetype equals = text.indexOf(u'=');
    const Field* const field = FindField(text.first(std::max<qsizetype>(equals, 0)));
    if (field == nullptr) {
        fault = QStringLiteral("\"%1\" sets nothing: write FIELD=VALUE; \"kl5276ctl fields\" lists them").arg(text);
        return std::nullopt;
    }
    const QString value = text.sliced(equals + 1);
    if (!field->IsNumber()) {
        return ReadChoice(*field, value, fault);
    }
    if (field->quantity == Quantity::Voltage && value.compare(u"off", Qt::CaseInsensitive) == 0) {
        return QList<Assignment>{{field, 0.0}};
    }
    const auto read = ReadValue(value, field->quantity, fault);
    if (!read) {
        fault = QLatin1StringView(field->name) + u": " + fault;
        return std::nullopt;
    }
    QList<Assignment> assignments{{field, read->number}};
    if (read->vpp) {
        assignments.prepend({FindField(QStringLiteral("level-unit")), *read->vpp ? 0.0 : 1.0});
    }
    return assignments;
}
