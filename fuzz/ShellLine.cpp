#include <cmath>

#include "Fuzz.h"
#include "core/LevelRange.h"
#include "ctl/BatchLine.h"
#include "ctl/Change.h"
#include "ctl/CommandLine.h"

namespace {

// The number at the head of a text by another road: the C library's.
double NumberAtHead(const QString& text) {
    QByteArray plain = text.trimmed().toLatin1().replace(',', '.');
    const qsizetype x = plain.toLower().indexOf('x');  // "0x10" is 0 behind which something stands
    return std::strtod(plain.left(x < 0 ? plain.size() : x).constData(), nullptr);
}

void RequireValue(const QString& text, Quantity quantity) {
    QString fault;
    const auto value = ReadValue(text, quantity, fault);
    Require(fault.isEmpty() == value.has_value(), "a text is a value, or there is a sentence why not");
    if (!value) {
        return;
    }
    Require(std::isfinite(value->number), "values are finite");
    const double head = NumberAtHead(text);
    const double exponent = head == 0.0 ? 0.0 : std::log10(value->number / head);
    Require(
        std::isnan(exponent) || std::isinf(exponent) || std::fabs(exponent - 3.0 * std::round(exponent / 3.0)) < 1e-6,
        "a value is its number and a prefix");
    const bool vpp = value->vpp.value_or(true);
    const auto again = ReadValue(ValueText(value->number, quantity, vpp), quantity, fault);
    Require(again.has_value(), "a value that is printed is read again");
    Require(std::fabs(again->number - value->number) <= 1e-11 * std::fabs(value->number), "with its 12 digits");
    Require(quantity != Quantity::Level || again->vpp == vpp, "with its unit");
}

void RequireHeld(const PanelState& panel) {
    const auto within = [](double value, double low, double high) { return value >= low && value <= high; };
    for (const double hertz : {panel.mFreq, panel.msWobbel, panel.meWobbel, panel.mcFreq, panel.mhFreq}) {
        Require(within(hertz, 0.0001, 15e6), "frequencies are within their limits");
    }
    Require(within(panel.mtWobbel, 0.01, 40.0) && panel.bmAmDepth <= 100, "sweep time and depth are too");
    Require(within(panel.mPhasea, 0.0, 359.9) && within(panel.mPhaseb, 0.0, 359.9), "phases are too");
    Require(panel.bmSignal <= 8 && panel.bmWobbel <= 2 && panel.bmMode <= 4, "choices are of their lists");
    const LevelRange& range = RangeOf(panel.bmBereich);
    Require(std::fabs(panel.mOffset) <= range.largestOffset, "the offset is within the range of the level");
    Require(panel.tmOffset == kFalse || panel.bmAmpMod == 0, "no offset stands beside amplitude modulation");
}

// What is sent when nothing was remarked is what was asked for.
void RequirePlan(const QList<Assignment>& assignments) {
    const Plan plan = PlanChange(PanelState{}, assignments);
    RequireHeld(plan.state);
    Require(plan.sent.size() == Fields().size(), "each field is sent or not");
    if (!plan.remarks.isEmpty()) {
        return;
    }
    for (qsizetype i = 0; i < assignments.size(); ++i) {
        const auto& [field, value] = assignments[i];
        const bool last = std::none_of(assignments.begin() + i + 1, assignments.end(),
                                       [field = field](const Assignment& other) { return other.field == field; });
        const double sent = plan.sent[static_cast<std::size_t>(field - Fields().data())].value_or(NAN);
        Require(!last || std::fabs(sent - value) <= 1e-9 * std::fabs(value),
                "without a remark a value goes out as it is");
    }
    Require(Differences(plan, plan.state).isEmpty(), "what is reported as it was sent is no difference");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const QString line = QString::fromUtf8(BytesOf(data, size));
    for (const Quantity quantity :
         {Quantity::Frequency, Quantity::Level, Quantity::Voltage, Quantity::Depth, Quantity::Phase, Quantity::Time}) {
        RequireValue(line, quantity);
    }
    QString fault;
    const auto words = WordsOf(line, fault);
    Require(fault.isEmpty() == words.has_value(), "a line has words, or there is a sentence why not");
    if (!words) {
        return 0;
    }
    fault.clear();
    const bool isCommand = static_cast<bool>(ReadBatchCommand(*words, fault));
    Require(fault.isEmpty() == isCommand, "words are a command, or there is a sentence why not");
    QList<Assignment> assignments;
    for (const QString& word : *words) {
        fault.clear();
        const auto read = ReadAssignment(word, fault);
        Require(fault.isEmpty() == read.has_value(), "a word sets something, or there is a sentence why not");
        assignments += read.value_or(QList<Assignment>());
    }
    RequirePlan(assignments);
    return 0;
}
