#include "waveform/FormulaShapes.h"

#include <array>

namespace {

// The numbers that a user would change are written out, so that each is changed at one place. A decimal stands only
// beside an argument: a lone decimal comma could be a separator.
constexpr std::array kShapes{
    FormulaShape{"Sine, 5 periods", "sin(2*pi*5*x)"},
    FormulaShape{"Sine, half-wave rectified", "max(0, sin(2*pi*5*x))"},
    FormulaShape{"Sine, full-wave rectified", "abs(sin(2*pi*5*x))"},
    FormulaShape{"Sine, damped", "exp(-5*x)*sin(2*pi*10*x)"},
    FormulaShape{"Square, 50 % duty", "2*pulse(x, 0.5) - 1"},
    FormulaShape{"Square, 50 % duty, edges of 5 %", "2*max(0, min(1, (0.5/2 - abs(x - 0.5))/0.05 + 0.5)) - 1"},
    FormulaShape{"Pulse, 20 % duty", "pulse(x, 0.2)"},
    FormulaShape{"Pulse, 20 % duty, edges of 5 %", "max(0, min(1, (0.2/2 - abs(x - 0.5))/0.05 + 0.5))"},
    FormulaShape{"Ramp", "saw(x)"},
    FormulaShape{"Triangle", "tri(x)"},
    FormulaShape{"Staircase, 8 steps", "2*floor(8*x)/(8 - 1) - 1"},
    FormulaShape{"Sinc, 20 zeros", "sinc(20*(x - 1/2))"},
    FormulaShape{"Gaussian", "gauss(x, 0.5, 0.1)"},
    FormulaShape{"Exponential rise", "1 - exp(-5*x)"},
    FormulaShape{"Exponential decay", "exp(-5*x)"},
    FormulaShape{"Chirp, linear, 1 to 20 periods", "sin(2*pi*(1*x + (20 - 1)*x^2/2))"},
    FormulaShape{"Chirp, logarithmic, 1 to 20 periods", "sin(2*pi*1*((20/1)^x - 1)/ln(20/1))"},
    FormulaShape{"AM burst", "pulse(x, 0.5)*sin(2*pi*40*x)*(1 + 0.8*sin(2*pi*4*x))/1.8"},
    FormulaShape{"White noise", "noise(1)"},
};

}  // namespace

std::span<const FormulaShape> FormulaShapes() { return kShapes; }

QString FormulaOf(const FormulaShape& shape, const UserNumbers& numbers) {
    QString formula = QString::fromLatin1(shape.formula);
    if (numbers.DecimalSeparator == u',' && formula.contains(u',')) {
        formula.replace(u',', u';').replace(u'.', u',');
    }
    return formula;
}
