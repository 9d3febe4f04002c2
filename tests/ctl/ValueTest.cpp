#include <QRegularExpression>
#include <set>

#include "CtlBench.h"
#include "ctl/BatchLine.h"
#include "ctl/Fields.h"
#include "ctl/Values.h"
#include "ctl/WatchedPort.h"

namespace {

TEST(CtlValues, AreEngineeringNotationWithPointOrCommaAndNothingElse) {
    using enum Quantity;
    // what is typed, of what it is, and the number, NAN where it is refused
    const std::tuple<const char*, Quantity, double> rows[]{
        {"2.5MHz", Frequency, 2.5e6},  {"2,5 kHz", Frequency, 2500.0},
        {"2.3k", Frequency, 2300.0},   {"1e3mHz", Frequency, 1.0},
        {"100uHz", Frequency, 0.0001}, {".5", Frequency, 0.5},
        {"15e6", Frequency, 15e6},     {"-100mV", Voltage, -0.1},
        {"+0.1", Voltage, 0.1},        {"500ms", Time, 0.5},
        {"12.5°", Phase, 12.5},        {"90deg", Phase, 90.0},
        {"33%", Depth, 33.0},          {"500mvpp", Level, 0.5},
        {"0.5Vrms", Level, 0.5},       {"2.5mhz", Frequency, NAN},  // milli or mega
        {"1.000,5", Frequency, NAN},   {"1k2", Frequency, NAN},
        {"5V", Frequency, NAN},        {"1V", Level, NAN},  // Vpp or Vrms
        {"50m", Depth, NAN},           {"2min", Time, NAN},
        {"1e999", Frequency, NAN},     {"nan", Frequency, NAN},
        {"inf", Frequency, NAN},       {"0x10", Frequency, NAN},
        {"", Frequency, NAN},          {"--1", Voltage, NAN}};
    for (const auto& [text, quantity, number] : rows) {
        QString fault;
        const auto value = ReadValue(QString::fromUtf8(text), quantity, fault);
        EXPECT_EQ(value.has_value(), !std::isnan(number)) << text;
        EXPECT_EQ(fault.isEmpty(), value.has_value()) << text;
        if (value && !std::isnan(number)) {
            EXPECT_EQ(value->number, number) << text;
            const auto again = ReadValue(ValueText(number, quantity, value->vpp.value_or(true)), quantity, fault);
            ASSERT_TRUE(again) << text;
            EXPECT_EQ(again->number, number) << text;
            EXPECT_EQ(again->vpp, value->vpp) << text;
        }
    }
}

// Both ends of what the shell names as the limits of a number are held as they are, and what is beyond them is not.
TEST(CtlValues, TheLimitsThatAreNamedAreThoseOfTheRules) {
    static const QRegularExpression kRange(QStringLiteral("(\\S+) to ([^ ,;]+)"));
    std::set<const char*> held;
    for (const Field& field : Fields()) {
        for (const QRegularExpressionMatch& range : kRange.globalMatch(QString::fromLatin1(field.limits))) {
            for (int end = 1; end <= 2 && field.quantity != Quantity::Voltage; ++end) {  // that of the offset depends
                PanelState panel;
                QString fault;
                const auto named = ReadAssignment(QLatin1StringView(field.name) + u'=' + range.captured(end), fault);
                ASSERT_TRUE(named) << fault;
                std::ranges::for_each(*named, [&](const Assignment& a) { a.field->put(panel, a.value); });
                const double bound = field.Of(panel);
                const double beyond = end == 1 ? bound - 1e-5 : bound * 1.002;
                EXPECT_EQ(field.hold(panel, bound).value, bound) << field.name;
                EXPECT_NE(field.hold(panel, beyond).value, beyond) << field.name;
                held.insert(field.name);
            }
        }
    }
    EXPECT_EQ(held.size(), 10U);
}

TEST(CtlValues, ABatchLineIsSplitAsAShellDoes) {
    const std::pair<const char*, const char*> rows[]{{"set  form=sine\t# why", "set|form=sine"},
                                                     {"a '' \"b 'c\"d#e", "a||b 'cd#e"},
                                                     {R"(load C:\x "my file.set")", R"(load|C:\x|my file.set)"},
                                                     {" # only", ""},
                                                     {"an 'open", nullptr}};
    for (const auto& [line, words] : rows) {
        QString fault;
        const auto split = WordsOf(QString::fromLatin1(line), fault);
        EXPECT_EQ(split ? split->join(u'|') : QStringLiteral("?"), QString::fromLatin1(words == nullptr ? "?" : words))
            << line;
        EXPECT_EQ(fault.isEmpty(), split.has_value()) << line;
    }
}

TEST(CtlValues, AnAnswerIsNoneIfTheLinkCannotTakeItsNumber) {
    const auto isOne = [](const char* row) {  // the query, and what answers it
        const QStringList words = QString::fromLatin1(row).split(u'|');
        return IsAnswer(words[0], words[1]);
    };
    for (const char* const row :
         {"frq?| 5.0 Hz", "amt?|255", "sta?|sin", "ID?|", "arp4:1=?|arp4:1=-2047", "arp4:1=?|7"}) {
        EXPECT_TRUE(isOne(row)) << row;
    }
    for (const char* const row :
         {"frq?|Hz 5", "frq?|1e999", "amt?|-1", "amt?|256", "sta?|", "arp4:1=?|arp4:1=40000", "arp4:1=?|arp4:1="}) {
        EXPECT_FALSE(isOne(row)) << row;
    }
}

}  // namespace
