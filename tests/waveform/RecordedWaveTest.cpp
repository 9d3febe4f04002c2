#include <cmath>

#include "WaveformBench.h"
#include "waveform/RecordedWave.h"

namespace {

using recording::AddressedSample;

constexpr auto kFull = RecordedScale::FullRange;
constexpr auto kTrace = RecordedScale::Trace;
constexpr auto kZero = RecordedScale::Zero;

// What is set, as "frequency level offset" with 6 digits, "-" where it is unknown, and how many remarks there are.
QString Describe(const Reproduction& reproduction) {
    const auto text = [](const std::optional<double>& value) {
        return value ? QString::number(*value, 'g', 6) : QStringLiteral("-");
    };
    return QStringLiteral("%1 %2 %3 (%4)")
        .arg(text(reproduction.frequency), text(reproduction.level), text(reproduction.offset))
        .arg(reproduction.remarks.size());
}

recording::Column ColumnOf(const std::vector<double>& values, const recording::Timing& timing) {
    recording::Column column;
    column.values = values;
    column.timing = timing;
    return column;
}

const std::vector<double> kQuarter(1024, 1.0);
// what it is, values, interval, addresses, scale, unit; the first samples, and what is set
using Row = std::tuple<const char*, std::vector<double>, std::optional<double>, std::size_t, RecordedScale, const char*,
                       std::vector<int>, const char*>;
const Row kRows[] = {
    // A memory of 4096 addresses; the part as long as it takes them 1, 4 or 1/2 times.
    {"4095 steps in 1 ms, the memory 4096", {0, 1}, 1e-3, 4096, kFull, "V", {-2047, -2046}, "999.756 1 0.5 (0)"},
    {"as many rows as addresses", kQuarter, 1e-6, 1024, kZero, "V", {2047, 2047}, "244.141 2 0 (0)"},
    {"means last as long as the rows", {0, 2, 4, 6}, 1e-6, 2, kFull, "V", {-2047, 2047}, "122.07 4 3 (0)"},
    {"a trace is 73 % of full scale", {-1, 1}, 1e-3, 2, kTrace, "V", {-1500, 1500}, "0.244141 2.7293 0 (0)"},
    {"0 V stays 0", {-0.5, 1}, 1e-3, 2, kZero, "V", {-1024, 2047}, "0.244141 2 0 (0)"},
    {"millivolts", {-500, 500}, 1e-3, 2, kFull, "mV", {-2047, 2047}, "0.244141 1 0 (0)"},
    {"no unit counts as volts, and says so", {-1, 1}, 1e-3, 2, kFull, "", {-2047, 2047}, "0.244141 2 0 (1)"},
    {"no voltage", {-1, 1}, 1e-3, 2, kFull, "A", {-2047, 2047}, "0.244141 - - (1)"},
    {"no time", {-1, 1}, {}, 2, kFull, "V", {-2047, 2047}, "- 2 0 (1)"},
    {"flat", {3, 3}, 1e-3, 2, kFull, "V", {0, 0}, "0.244141 - 3 (1)"},
    {"flat, by volts", {3, 3}, 1e-3, 2, kZero, "V", {2047, 2047}, "0.244141 6 0 (0)"},
    {"flat at zero, by volts", {0, 0}, 1e-3, 2, kZero, "V", {0, 0}, "0.244141 - 0 (1)"},
    {"too fast for the instrument", {-1, 1}, 1e-12, 4096, kFull, "V", {-2047}, "9.99756e+11 2 0 (1)"},
    {"as fast as the instrument", {-1, 1}, 2.44140625e-11, 2, kFull, "V", {-2047}, "1e+07 2 0 (0)"},
    {"too slow", {-1, 1}, 1e6, 4096, kFull, "V", {-2047}, "9.99756e-07 2 0 (1)"},
    {"as slow as it", {-1, 1}, 2.44140625, 2, kFull, "V", {-2047}, "0.0001 2 0 (0)"},
    {"as small as it", {-0.01, 0.01}, 1e-3, 2, kFull, "V", {-2047}, "0.244141 0.02 0 (0)"},
    {"too small", {-0.005, 0.005}, 1e-3, 2, kFull, "V", {-2047}, "0.244141 0.01 0 (1)"},
    {"too great", {-11, 11}, 1e-3, 2, kFull, "V", {-2047}, "0.244141 22 0 (1)"},
    {"as great as it", {-10, 10}, 1e-3, 2, kFull, "V", {-2047}, "0.244141 20 0 (0)"},
    {"more offset than the range has", {3.3, 3.4}, 1e-3, 2, kFull, "V", {-2047}, "0.244141 0.1 3.35 (1)"},
    {"level and offset as the range allows", {0, 10}, 1e-3, 2, kFull, "V", {-2047}, "0.244141 10 5 (0)"},
    {"level and offset beyond their sum", {-3, 9}, 1e-3, 2, kFull, "V", {-2047}, "0.244141 12 3 (0)"},
    {"level and offset just beyond it", {-4.9, 13.1}, 1e-3, 2, kFull, "V", {-2047}, "0.244141 18 4.1 (1)"},
    {"beyond all numbers", {-1.7e308, 1.7e308}, 1e-3, 2, kFull, "V", {-2047, 2047}, "0.244141 inf 0 (1)"},
};

TEST(RecordedWaves, AreScaledAndToldHowTheyArePlayedAsTheyWere) {
    for (const auto& [what, values, interval, addresses, scale, unit, samples, set] : kRows) {
        const recording::Column column = ColumnOf(values, {.interval = interval, .duration = {}, .times = {}});
        const RecordedWave wave = MakeWave(PartOf(column, 0, values.size() - 1), addresses, scale);
        ASSERT_EQ(wave.samples.size(), addresses);
        for (std::size_t i = 0; i < samples.size(); ++i) {
            EXPECT_EQ(wave.samples[i], samples[i]) << what << i;
        }
        const QString volts = QString::fromLatin1(unit);
        EXPECT_EQ(Describe(ReproductionOf(wave, volts, kMemory4k)), QString::fromLatin1(set)) << what;
    }
}

// Whoever sets what is told gets every value back at its time.
TEST(RecordedWaves, PlayedAsToldAreTheRecording) {
    std::vector<double> values;
    std::vector<double> times;
    for (int i = 0; i < 1000; ++i) {
        values.push_back(2.0 + 3.0 * std::sin(i * 0.01));
        times.push_back(5.0 + i * 1e-4);
    }
    const recording::Column even = ColumnOf(values, {.interval = 1e-4, .duration = 0.1, .times = {}});
    const recording::Column uneven = ColumnOf(values, {.interval = {}, .duration = 0.0999, .times = times});
    for (const MemorySize* const size : kMemorySizes) {
        for (const auto& [column, first, last] :
             {std::tuple(&even, 0U, 999U), {&even, 250U, 749U}, {&uneven, 0U, 999U}, {&uneven, 250U, 749U}}) {
            for (const RecordedScale scale : {kFull, kTrace, kZero}) {
                const auto addresses = static_cast<std::size_t>(size->lastTableAddress) + 1;
                const RecordedWave wave = MakeWave(PartOf(*column, first, last), addresses, scale);
                const Reproduction set = ReproductionOf(wave, QStringLiteral("V"), *size);
                const double address = 1.0 / *set.frequency / static_cast<double>(addresses);
                for (std::size_t i = 0; i < addresses; i += 100) {
                    const double time = static_cast<double>(i) * address;
                    const double played = *set.offset + wave.samples[i] / 2047.0 * *set.level / 2.0;
                    EXPECT_NEAR(played, 2.0 + 3.0 * std::sin((first + time / 1e-4) * 0.01), 3e-3);
                }
            }
        }
    }
}

TEST_F(WaveformBench, TablesOfAFileAreRefusedByTheFirstThatIsWrong) {
    using Use = RecordingUse;
    using Samples = std::vector<AddressedSample>;
    // a table, its use, the size of the memory, and the begin of the refusal
    const std::tuple<Samples, Use, const MemorySize&, const char*> cases[] = {
        {{{0, 5, 2}, {4095, -32768, 3}}, Use::Memory, kMemory4k, ""},
        {{{0, 5, 2}, {4096, 5, 3}, {9000, 5, 4}}, Use::Memory, kMemory4k, "Line 3 has the address 4096,"},
        {{{-1, 5, 2}}, Use::Memory, kMemory4k, "Line 2 has the address -1,"},
        {{{16384, 5, 2}}, Use::Memory, kMemory16k, "Line 2 has the address 16384,"},
        {{{16384, 5, 2}}, Use::Signal, kMemory16k, ""},
        {{{0, 32768, 7}}, Use::Memory, kMemory4k, "Line 7 has the value 32768,"},
        {{{10, 1, 2}, {11, 2, 3}}, Use::Paste, kMemory4k, ""},
        {{{10, 1, 2}, {11, 2, 3}, {11, 2, 5}}, Use::Paste, kMemory4k, "In line 5 the address"},
        {{{10, 1, 2}}, Use::Paste, kMemory4k, "One sample alone"},
    };
    for (const auto& [samples, use, size, refusal] : cases) {
        const QString said = RefuseAddressed(samples, use, size);
        const QString begin = QString::fromLatin1(refusal);
        EXPECT_EQ(begin.isEmpty() ? said : said.left(begin.size()), begin) << said;
    }
}

}  // namespace
