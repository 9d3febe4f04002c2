#include "waveform/Formula.h"

#include <cmath>

#include "Fuzz.h"

namespace {

constexpr int kSamples = 32;

bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

// Where a comma stands between two digits with no other mark in the formula to tell what it is; -1 if nowhere.
qsizetype DoubtfulComma(const QString& formula) {
    if (formula.contains(u';') || formula.contains(u'.')) {
        return -1;
    }
    qsizetype at = formula.indexOf(u',');
    while (at >= 0 && (at == 0 || at + 1 == formula.size() || !IsDigit(formula[at - 1]) || !IsDigit(formula[at + 1]))) {
        at = formula.indexOf(u',', at + 1);
    }
    return at;
}

bool Same(const QString& one, const QString& other) {
    const UserNumbers numbers(QLocale::c());
    return EvaluateFormula(one, kSamples, numbers).values == EvaluateFormula(other, kSamples, numbers).values;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const QString formula = QString::fromUtf8(BytesOf(data, size));
    const FormulaValues result = EvaluateFormula(formula, kSamples, UserNumbers(QLocale::c()));
    if (result.fault) {
        const auto& [text, at, length] = *result.fault;
        Require(result.values.empty() && text.endsWith(u'.'), "a fault is a sentence, and gives no values");
        Require(at >= -1 && length >= 0 && at + length <= formula.size(), "a fault has its place in the formula");
        return 0;
    }
    Require(DoubtfulComma(formula) < 0, "a comma that may be either is refused");
    Require(result.values.size() == kSamples, "a value for each sample");
    for (const double value : result.values) {
        Require(std::isfinite(value), "values are finite");
    }
    for (const std::vector<double>& values : {result.values, ScaledToFullRange(result.values)}) {
        for (const qint16 sample : SamplesOf(values)) {
            Require(sample >= -2047 && sample <= 2047, "samples are held to their range");
        }
    }
    Require(CountCut(ScaledToFullRange(result.values)) == 0, "what is scaled is not cut");
    Require(Same(formula, formula), "the same formula gives the same values");
    if (formula.size() + 2 <= kLongestFormula) {
        Require(Same(formula, u'(' + formula + u')'), "brackets around it change nothing");
    }
    return 0;
}
