#pragma once

#include <muParser.h>

// Gives the parser the functions of a formula beside its own. What repeats has the period 1.
//   sinc(x)              sin(pi x) / (pi x), 1 at 0: the normalised sinc function
//   square(x)            1 in the first half of each period, -1 in the second
//   pulse(x, duty)       1 in the first part `duty` of each period, else 0
//   tri(x)               triangle in step with the sine: 0, up to 1 at 1/4, down to -1 at 3/4
//   saw(x)               rises from -1 to 1 in each period
//   gauss(x, mid, width) exp(-((x - mid) / width)^2 / 2): the Gaussian bell with the standard deviation `width`
//   step(x)              0 below 0, else 1: the unit step
//   noise(seed)          white noise: evenly spread from -1 to 1, the k-th number of SplitMix64 from this seed
//   floor(x)             the next whole number below
// A seed is a whole number up to 2^53. `k` tells noise which sample is being computed, counted from 0; it is read at
// each evaluation.
void DefineFormulaFunctions(mu::Parser& parser, int* k);
