#pragma once

#include <span>
#include <vector>

#include "core/Numbers.h"
#include "waveform/FormulaNotation.h"

// Samples by a formula. For the k-th of n samples, k from 0, it knows x = k/n, i = k, n, pi, e, the functions of
// muParser and those of DefineFormulaFunctions. As x stops short of 1, a function with the period 1 closes without a
// seam.

struct FormulaValues {
    std::vector<double> values;  // finite; 1 is full scale. Empty with a fault
    std::optional<FormulaFault> fault;
};

// n is at least 1. A result that is no finite number is a fault that tells the first x, in the user's form. What
// `typed` may hold: ToPlainFormula.
FormulaValues EvaluateFormula(const QString& typed, int n, const UserNumbers& numbers);

// The values, so that the largest magnitude is full scale; values that are all 0 stay so.
std::vector<double> ScaledToFullRange(std::vector<double> values);

// How many of the values lie beyond full scale, and would be cut.
int CountCut(std::span<const double> values);

// The values as samples, rounded half to even and held to the range of a sample.
std::vector<qint16> SamplesOf(std::span<const double> values);
