#include <locale>

#include "support/PrintQt.h"
#include "waveform/Formula.h"
#include "waveform/FormulaShapes.h"

namespace {

const UserNumbers kPoint{QLocale::c()};
const UserNumbers kComma{QLocale(QLocale::German)};

// The value at each k of n.
std::vector<double> Values(const char* formula, int n) {
    const FormulaValues result = EvaluateFormula(QString::fromUtf8(formula), n, kPoint);
    EXPECT_FALSE(result.fault) << formula << ": " << result.fault->text.toStdString();
    return result.fault ? std::vector<double>(static_cast<std::size_t>(n)) : result.values;
}

TEST(Formula, KnowsItsPlaceItsNamesAndItsFunctions) {
    EXPECT_EQ(Values("x", 4), (std::vector{0.0, 0.25, 0.5, 0.75}));
    EXPECT_EQ(Values("10*i + n", 4), (std::vector{4.0, 14.0, 24.0, 34.0}));
    for (const char* const truth :
         {"cos(pi) + e == e - 1 && -3^2 == -9 && (2 >= 2 && 2 != 3 ? 7 : 8) == 7", "2×3 − 8÷4·2 == 2",
          "sinc(0) == 1 && sinc(1.5) == -1/(1.5*pi)", "square(4) == 1 && square(4.5) == -1 && square(-0.9) == 1",
          "pulse(3.2, 0.25) == 1 && pulse(3.25, 0.25) == 0 && pulse(-0.8, 0.25) == 1",
          "tri(2) == 0 && tri(1/8) == 0.5 && tri(1/4) == 1 && tri(-3/8) == -0.5", "saw(3) == -1 && saw(-1/4) == 0.5",
          "gauss(4, 4, 2) == 1 && gauss(6, 4, 2) == exp(-0.5)", "step(-0.1) == 0 && step(0) == 1",
          "floor(-1.5) == -2"}) {
        EXPECT_EQ(Values(truth, 1)[0], 1.0) << truth;
    }
    // The published numbers of SplitMix64 from this seed.
    const std::vector<double> noise = Values("noise(1234567)", 4096);
    EXPECT_NEAR(noise[0], 6457827717110365317.0 / 9223372036854775808.0 - 1.0, 1e-15);
    EXPECT_NEAR(noise[1], 3203168211198807973.0 / 9223372036854775808.0 - 1.0, 1e-15);
    EXPECT_EQ(Values("noise(1234567)", 4096), noise);
    EXPECT_NE(Values("noise(1234568)", 4096), noise);
}

// Of a desktop whose decimals have a comma, also where no such locale is installed.
struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
};

TEST(Formula, ReadsNumbersAsTheUserWritesThem) {
    const std::locale former = std::locale::global(std::locale(std::locale::classic(), new Comma));
    for (const char* const truth : {"max(0.5, 0.25) == 0.5", "max(0,5; 0,25) == 0.5", "max(1,5;0.25) == 1.5",
                                    "max(1,5, 0.25) == 5", "max(1, 5) == 5", "1e-3*1000 == 1"}) {
        EXPECT_EQ(Values(truth, 1)[0], 1.0) << truth;
    }
    std::locale::global(former);
}

const std::pair<const char*, const char*> kFaults[] = {
    // its place stands in [ ], which no formula has
    {" ", "Type a formula, or choose a ready shape."},
    {"2 − [sine](x)", "There is no \"sine\"."},
    {"[sin] x", "\"sin\" needs its arguments in ( )."},
    {"[abs] x", "\"abs\" needs its arguments in ( )."},
    {"x + [1e999]", "\"1e999\" is not a number that can be used."},
    {"x [&] 1", "\"&\" can't stand here."},
    {"sin(2*pi[]", "A \")\" is missing."},
    {"sin(x)[)]", "There is no \"(\" for this \")\"."},
    {"pulse(x; [)]", "Something is missing before \")\"."},
    {"x + []", "The formula is not finished."},
    {"max(x; 2 [0,5])", "An operator such as \"*\" is missing before \"0,5\"."},
    {"x [(]2)", "An operator such as \"*\" is missing before \"(\"."},
    {"pulse(x[)]", "\"pulse\" needs more arguments."},
    {"sin(x; 2[)]", "\"sin\" takes fewer arguments."},
    {"max([;]1)", "\";\" can't stand here."},
    {"sin(max(x; 1))[;] 2", "Only a function takes several arguments."},
    {"2*(x; 2[)]", "Only a function takes several arguments."},
    {"x > 0 [?] 1", "There is no \":\" for this \"?\"."},
    {"x [:] 2", "There is no \"?\" for this \":\"."},
    {"(x > 0 ? 1) : 2", "This is not a formula."},
    {"x [=] 2", "To compare, write \"==\"."},
    {"2[§]3", "\"§\" has no meaning in a formula."},
    {"x + [𝑥]", "\"𝑥\" has no meaning in a formula."},
    {"max(x,1) + [10,25]",
     "\"10,25\" may be the number 10.25 or the two arguments 10; 25. "
     "Write \"10.25\" or \"10; 25\"."},
    {"1/(x - 0.25)", "At x = 0,25 the result is not a finite number."},
    {"noise(1/0)", "At x = 0 the result is not a finite number."}};

TEST(Formula, TellsAFaultAtItsPlace) {
    for (const auto& [marked, text] : kFaults) {
        QString formula = QString::fromUtf8(marked);
        const qsizetype at = formula.indexOf(u'[');
        const qsizetype length =
            at < 0 ? 0 : (formula.contains(u']') ? formula.indexOf(u']') : formula.size()) - at - 1;
        formula.remove(u'[').remove(u']');
        const FormulaValues result = EvaluateFormula(formula, 4, kComma);
        ASSERT_TRUE(result.fault) << marked;
        EXPECT_TRUE(result.values.empty()) << marked;
        EXPECT_EQ(result.fault->text, QString::fromUtf8(text)) << marked;
        EXPECT_EQ(std::pair(result.fault->at, result.fault->length), std::pair(at, length)) << marked;
    }
    const QString longest(kLongestFormula - 1, u' ');
    EXPECT_FALSE(EvaluateFormula(longest + u'1', 4, kPoint).fault);
    EXPECT_EQ(EvaluateFormula(longest + u"11", 4, kPoint).fault->at, kLongestFormula);
}

TEST(Formula, BecomesSamplesRoundedHalfToEvenAndHeld) {
    const std::vector<double> values{0.5 / 2047, 1.5 / 2047, -2.5 / 2047, 1.0, 1.0002, -1.0003, 1e300, -1e300};
    EXPECT_EQ(SamplesOf(values), (std::vector<qint16>{0, 2, -2, 2047, 2047, -2047, 2047, -2047}));
    EXPECT_EQ(CountCut(values), 3);
    EXPECT_EQ(ScaledToFullRange({0.25, -0.5, 0.0}), (std::vector{0.5, -1.0, 0.0}));
    EXPECT_EQ(ScaledToFullRange({0.0, 0.0}), (std::vector{0.0, 0.0}));
}

TEST(Formula, EveryReadyShapeIsOneInBothFormsOfNumbers) {
    for (const FormulaShape& shape : FormulaShapes()) {
        const FormulaValues values = EvaluateFormula(FormulaOf(shape, kPoint), 4096, kPoint);
        ASSERT_FALSE(values.fault) << shape.name << ": " << values.fault->text.toStdString();
        EXPECT_EQ(EvaluateFormula(FormulaOf(shape, kComma), 4096, kComma).values, values.values) << shape.name;
        const auto [low, high] = std::ranges::minmax(SamplesOf(values.values));
        EXPECT_EQ(CountCut(values.values), 0) << shape.name;
        EXPECT_GT(high - low, 1500) << shape.name;
    }
}

}  // namespace
