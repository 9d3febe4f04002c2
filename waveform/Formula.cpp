#include "waveform/Formula.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "waveform/FormulaFaults.h"
#include "waveform/FormulaFunctions.h"
#include "waveform/Samples.h"

namespace {

constexpr double kFullScale = kHighestSample;

struct Place {
    int k = 0;
    double i = 0.0;
    double x = 0.0;
};

void Prepare(mu::Parser& parser, Place& place, int n) {
    parser.ResetLocale();  // the marks of a plain formula, whatever the desktop's are
    parser.ClearConst();
    parser.DefineConst("pi", std::numbers::pi);
    parser.DefineConst("e", std::numbers::e);
    parser.DefineConst("n", n);
    parser.DefineVar("i", &place.i);
    parser.DefineVar("x", &place.x);
    DefineFormulaFunctions(parser, &place.k);
}

FormulaValues Evaluate(const mu::Parser& parser, Place& place, int n, const UserNumbers& numbers) {
    FormulaValues result;
    result.values.reserve(static_cast<std::size_t>(n));
    for (int k = 0; k < n; ++k) {
        place = {k, static_cast<double>(k), static_cast<double>(k) / n};
        const double value = parser.Eval();
        if (!std::isfinite(value)) {
            return {{}, FormulaFault{u"At x = " + numbers.Plain(place.x) + u" the result is not a finite number."}};
        }
        result.values.push_back(value);
    }
    return result;
}

}  // namespace

FormulaValues EvaluateFormula(const QString& typed, int n, const UserNumbers& numbers) {
    const PlainFormula plain = ToPlainFormula(typed);
    if (plain.fault) {
        return {{}, plain.fault};
    }
    Place place;
    mu::Parser parser;
    try {
        Prepare(parser, place, n);
        parser.SetExpr(plain.text);
        parser.Eval();
        if (parser.GetNumResults() > 1) {
            return {{}, SeveralResults(typed, plain.text)};
        }
        return Evaluate(parser, place, n, numbers);
    } catch (const mu::ParserError& error) {
        return {{}, FaultOf(error, parser, typed, plain.text)};
    }
}

std::vector<double> ScaledToFullRange(std::vector<double> values) {
    double largest = 0.0;
    for (const double value : values) {
        largest = std::max(largest, std::fabs(value));
    }
    for (double& value : values) {
        value = largest > 0.0 ? value / largest : 0.0;
    }
    return values;
}

int CountCut(std::span<const double> values) {
    return static_cast<int>(std::ranges::count_if(
        values, [](double value) { return std::fabs(NearestEven(value * kFullScale)) > kFullScale; }));
}

std::vector<qint16> SamplesOf(std::span<const double> values) {
    std::vector<qint16> samples;
    samples.reserve(values.size());
    std::ranges::transform(values, std::back_inserter(samples),
                           [](double value) { return HeldSample(value * kFullScale); });
    return samples;
}
