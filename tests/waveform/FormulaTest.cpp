#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <locale>
#include <numbers>

#include "support/PrintQt.h"
#include "waveform/Formula.h"
#include "waveform/FormulaShapes.h"

namespace {

const UserNumbers kPoint(QLocale::c());
const UserNumbers kComma(QLocale(QLocale::German));

// The value at each k of n.
std::vector<double> Values(const char* formula, int n) {
    const FormulaValues result = EvaluateFormula(QString::fromUtf8(formula), n, kPoint);
    EXPECT_FALSE(result.fault) << formula << ": " << result.fault->text.toStdString();
    return result.values;
}

double ValueAt(const char* formula, int k, int n) {
    const std::vector<double> values = Values(formula, n);
    return values.size() == static_cast<std::size_t>(n) ? values[static_cast<std::size_t>(k)] : NAN;
}

TEST(Formula, KnowsItsPlaceItsNamesAndItsFunctions) {
    constexpr double pi = std::numbers::pi;
    const std::tuple<const char*, int, int, double> cases[] = {
        {"x", 3, 8, 0.375},
        {"i", 3, 8, 3.0},
        {"n", 3, 8, 8.0},
        {"cos(2*pi*x) + e", 4, 8, std::numbers::e - 1.0},
        {"-x^2", 4, 8, -0.25},
        {"x >= 0.5 && i != 3 ? 7 : 8", 4, 8, 7.0},
        {"sinc(3*x)", 0, 8, 1.0},
        {"sinc(3*x)", 4, 8, std::sin(1.5 * pi) / (1.5 * pi)},
        {"square(2*x)", 1, 8, 1.0},
        {"square(2*x)", 2, 8, -1.0},
        {"square(2*x - 3)", 4, 8, 1.0},
        {"pulse(x, 0.25)", 1, 8, 1.0},
        {"pulse(x, 0.25)", 2, 8, 0.0},
        {"pulse(x - 1, 0.25)", 1, 8, 1.0},
        {"tri(x)", 0, 8, 0.0},
        {"tri(x)", 1, 8, 0.5},
        {"tri(x)", 2, 8, 1.0},
        {"tri(x)", 5, 8, -0.5},
        {"saw(2*x)", 0, 8, -1.0},
        {"saw(2*x)", 3, 8, 0.5},
        {"gauss(x, 0.5, 0.125)", 4, 8, 1.0},
        {"gauss(x, 0.5, 0.125)", 3, 8, std::exp(-0.5)},
        {"step(x - 0.5)", 3, 8, 0.0},
        {"step(x - 0.5)", 4, 8, 1.0},
        {"floor(-1.5*x)", 4, 8, -1.0},
        // the published numbers of SplitMix64 from 1234567: 6457827717110365317, 3203168211198807973
        {"noise(1234567)", 0, 8, 6457827717110365317.0 / 9223372036854775808.0 - 1.0},
        {"noise(1234567)", 1, 8, 3203168211198807973.0 / 9223372036854775808.0 - 1.0},
        // signs as a book writes them
        {"2×3 − 8÷4·2", 0, 1, 2.0}};
    for (const auto& [formula, k, n, expected] : cases) {
        EXPECT_NEAR(ValueAt(formula, k, n), expected, 1e-12) << formula << " at " << k;
    }
    EXPECT_EQ(Values("noise(5)", 4096), Values("noise(5)", 4096));
    EXPECT_NE(Values("noise(5)", 4096), Values("noise(6)", 4096));
}

// A desktop whose decimals have a comma, also where no such locale is installed.
struct CommaDesktop {
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    CommaDesktop() { std::setlocale(LC_ALL, "de_DE.UTF-8"); }
    ~CommaDesktop() {
        std::locale::global(former);
        std::setlocale(LC_ALL, "C");
    }
    Q_DISABLE_COPY_MOVE(CommaDesktop)
    const std::locale former = std::locale::global(std::locale(std::locale::classic(), new Comma));
};

TEST(Formula, ReadsNumbersAsTheUserWritesThem) {
    const std::pair<const char*, double> cases[] = {{"max(0.5, 0.25)", 0.5}, {"max(0.5; 0.25)", 0.5},
                                                    {"max(0,5; 0,25)", 0.5}, {"max(1,5;0.25)", 1.5},
                                                    {"max(1,5, 0.25)", 5.0},  // a point: every comma separates
                                                    {"max(1, 5)", 5.0},      {"0.5", 0.5},
                                                    {"1e-3*1000", 1.0}};
    for (const bool commaDesktop : {false, true}) {
        const auto desktop = commaDesktop ? std::make_unique<CommaDesktop>() : nullptr;
        for (const auto& [formula, expected] : cases) {
            EXPECT_EQ(ValueAt(formula, 0, 1), expected) << formula;
        }
    }
}

TEST(Formula, TellsAFaultAtItsPlace) {
    const std::tuple<const char*, int, int, const char*> cases[] = {
        {"", -1, 0, "Type a formula, or choose a ready shape."},
        {" ", -1, 0, "Type a formula, or choose a ready shape."},
        {"max(x; 2*y)", 9, 1, "There is no \"y\"."},
        {"2 − sine(x)", 4, 4, "There is no \"sine\"."},
        {"sin x", 0, 3, "\"sin\" needs its arguments in ( )."},
        {"x + 1e999", 4, 5, "\"1e999\" is not a number that can be used."},
        {"x & 1", 2, 1, "\"&\" can't stand here."},
        {"sin(2*pi", 8, 0, "A \")\" is missing."},
        {"sin(x))", 6, 1, "There is no \"(\" for this \")\"."},
        {"pulse(x; )", 9, 1, "Something is missing before \")\"."},
        {"x + ", 4, 0, "The formula is not finished."},
        {"2pi", 1, 2, "An operator such as \"*\" is missing before \"pi\"."},
        {"max(x; 2 0,5)", 9, 3, "An operator such as \"*\" is missing before \"0,5\"."},
        {"x (2)", 2, 1, "An operator such as \"*\" is missing before \"(\"."},
        {"pulse(x)", 7, 1, "\"pulse\" needs more arguments."},
        {"sin(x; 2)", 8, 1, "\"sin\" takes fewer arguments."},
        {"max(;1)", 4, 1, "\";\" can't stand here."},
        {"sin(x); 2", 6, 1, "Only a function takes several arguments."},
        {"2*(x; 2)", 7, 1, "Only a function takes several arguments."},
        {"x > 0 ? 1", 6, 1, "There is no \":\" for this \"?\"."},
        {"x : 2", 2, 1, "There is no \"?\" for this \":\"."},
        {"(x > 0 ? 1) : 2", -1, 0, "This is not a formula."},
        {"x = 2", 2, 1, "To compare, write \"==\"."},
        {"x + √2", 4, 1, "\"√\" has no meaning in a formula."},
        {"x + 𝑥", 4, 2, "\"𝑥\" has no meaning in a formula."},
        {"max(x,1) + 10,25", 11, 5,
         "\"10,25\" may be the number 10.25 or the two arguments 10; 25. Write \"10.25\" or \"10; 25\"."},
        {"1/(x - 0.25)", -1, 0, "At x = 0.25 the result is not a finite number."},
        {"sqrt(0.5 - x)", -1, 0, "At x = 0.75 the result is not a finite number."},
        {"noise(1/0)", -1, 0, "At x = 0 the result is not a finite number."}};
    for (const auto& [formula, at, length, text] : cases) {
        const FormulaValues result = EvaluateFormula(QString::fromUtf8(formula), 4, kPoint);
        ASSERT_TRUE(result.fault && result.values.empty()) << formula;
        EXPECT_EQ(result.fault->text, QString::fromUtf8(text)) << formula;
        EXPECT_EQ(result.fault->at, at) << formula;
        EXPECT_EQ(result.fault->length, length) << formula;
    }
    EXPECT_EQ(EvaluateFormula(QStringLiteral("1/(x - 0.25)"), 4, kComma).fault->text,
              u"At x = 0,25 the result is not a finite number.");
    const QString longest(kLongestFormula - 1, u' ');
    EXPECT_FALSE(EvaluateFormula(longest + u'1', 4, kPoint).fault);
    EXPECT_EQ(EvaluateFormula(longest + u"11", 4, kPoint).fault->at, kLongestFormula);
}

TEST(Formula, BecomesSamplesRoundedHalfToEvenAndHeld) {
    const std::vector<double> values{0.5 / 2047, 1.5 / 2047, -2.5 / 2047, 1.0, 1.0002, -1.0003, 1e300, -1e300};
    EXPECT_EQ(SamplesOf(values), (std::vector<qint16>{0, 2, -2, 2047, 2047, -2047, 2047, -2047}));
    EXPECT_EQ(CountCut(values), 3);
    EXPECT_EQ(ScaledToFullRange({0.25, -0.5, 0.0}), (std::vector{0.5, -1.0, 0.0}));
    EXPECT_EQ(ScaledToFullRange({-4.0}), std::vector{-1.0});
    EXPECT_EQ(ScaledToFullRange({0.0, 0.0}), (std::vector{0.0, 0.0}));
}

TEST(Formula, EveryReadyShapeIsOneInBothFormsOfNumbers) {
    for (const FormulaShape& shape : FormulaShapes()) {
        const QString point = FormulaOf(shape, kPoint);
        const QString comma = FormulaOf(shape, kComma);
        EXPECT_FALSE(comma.contains(u',') && !comma.contains(u';')) << shape.name;
        const FormulaValues values = EvaluateFormula(point, 4096, kPoint);
        EXPECT_FALSE(values.fault) << shape.name << ": " << values.fault->text.toStdString();
        EXPECT_EQ(values.values, EvaluateFormula(comma, 4096, kComma).values) << shape.name;
        EXPECT_EQ(CountCut(values.values), 0) << shape.name;
        const auto [low, high] = std::ranges::minmax(SamplesOf(values.values));
        EXPECT_GT(high - low, 1500) << shape.name;
    }
}

}  // namespace
