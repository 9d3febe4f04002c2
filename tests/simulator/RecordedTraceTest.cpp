#include <gtest/gtest.h>

#include <QTemporaryFile>
#include <array>
#include <numeric>

#include "simulator/TraceCommandLine.h"

namespace {

using Values = std::vector<double>;

// The traces of a file with this text, or the sentence why there are none.
std::optional<sim::RecordedTraces> Load(const char* text, sim::RecordingChoice choice, std::string* error) {
    QTemporaryFile file;
    EXPECT_TRUE(file.open() && file.write(text) >= 0 && file.flush());
    choice.path = file.fileName().toStdString();
    return sim::LoadTraces(choice, error);
}

TEST(RecordedTrace, ServesTwoColumnsAndTellsWhatTheyAre) {
    const char* const scope = "Time (us),CH1 (V),CH2 (mV),REF\n0,,5,1\n2,1,6,1\n4,3,7,1\n6,2,5,1\n";
    const char* const blocks = "Source;CH1\nt;v\n0;1\n1;2\n2;1\n\nSource;CH2\nt;i\n0;5\n1;5\n2;5\n\nt;w\n0;1\n1;2\n";
    const std::tuple<const char*, sim::RecordingChoice, const char*, const char*> cases[] = {
        {scope,
         {},
         "CH1 (V), column 2: 3 rows of lines 3 to 5, every 2 \302\265s, 6 \302\265s in all, 1 rows left out",
         "CH2 (mV), column 3: 3 rows of lines 2 to 5, every 2 \302\265s, 6 \302\265s in all, 1 rows left out"},
        {scope, {.columns = "ch2"}, "CH2 (mV), column 3: 4 rows", "CH2 (mV), column 3: 4 rows"},
        {scope, {.columns = "4,ch2 (mv)"}, "every 2 \u00b5s, 8 \u00b5s in all, flat", "CH2 (mV), column 3"},
        // One block for each channel.
        {blocks, {}, "v, column 2, block 1 of 3: 3 rows of lines 3 to 5, every 1 s", "i, column 2, block 2 of 3"},
        {blocks, {.block = 3}, "w, column 2, block 3 of 3: 2 rows of lines 14 to 15", "w, column 2, block 3 of 3"},
        {"Volt\n0,5\n1,25\n", {.decimal = "comma"}, "Volt, column 1: 2 rows of lines 2 to 3, interval unknown", "Volt"},
        {"Volt\n0,5\n1,25\n", {.separator = "comma"}, "Volt, column 1: 2 rows", "column 2: 2 rows"},
        {"t,v\n0,1\n1,2\n9,1\n", {}, "v, column 2: 3 rows of lines 2 to 4, in uneven steps, 9 s in all", "v"}};
    for (const auto& [text, choice, a, b] : cases) {
        std::string error;
        const auto traces = Load(text, choice, &error);
        ASSERT_TRUE(traces) << text << error;
        EXPECT_NE(traces->origins[0].find(a), std::string::npos) << traces->origins[0];
        EXPECT_NE(traces->origins[1].find(b), std::string::npos) << traces->origins[1];
    }
    std::string error;
    const auto traces = Load(scope, {}, &error);
    EXPECT_EQ(traces->channels[0].front(), 1);
    EXPECT_EQ(traces->channels[0][1024], 32767);
    EXPECT_NEAR(traces->channels[1].front(), 16384, 16);
    EXPECT_EQ(traces->channels[1].back(), 1);
}

TEST(RecordedTrace, SaysWhatIsWrongWithAFile) {
    const std::tuple<const char*, sim::RecordingChoice, const char*> cases[] = {
        {"t,v,w\n0,1,2\n1,1,\n2,3,3\n", {.columns = "2,w"}, "in column 3 \"w\""},
        {"t,v\n0,1\n1,2\n", {.columns = "1,2,1"}, "two channels"},
        {"t,v\n0,1\n1,2\n", {.block = 2}, "1 blocks of numbers and no block 2"},
        {"Time\n0\n1\n", {}, "No column looks like a channel. Choose one by its number."},
        {"v,w,x\n1,1,\n2,2,\n3,,3\n4,,4\n", {.columns = "w,x"}, "share no two rows"},
        {"address,value\n0,5\n", {}, "one row of numbers"}};
    for (const auto& [text, choice, complaint] : cases) {
        std::string error;
        EXPECT_FALSE(Load(text, choice, &error)) << text;
        EXPECT_NE(error.find(complaint), std::string::npos) << text << error;
    }
    std::string error;
    EXPECT_FALSE(sim::LoadTraces({.path = "/nowhere.csv"}, &error));
    EXPECT_EQ(error, "/nowhere.csv: No such file or directory");
}

TEST(Trace, HasTheFullScaleAndEndsOnItsLastSample) {
    const sim::Trace rise = sim::MakeTrace(Values{-2.0, 0.0});
    EXPECT_EQ((std::array<int, 3>{rise.front(), rise[1024], rise.back()}), (std::array{1, 16392, 32767}));
    EXPECT_EQ(sim::MakeTrace(Values{1.0, 0.0}).back(), 1);

    Values ripple(2048);  // of 12 bits, beside a pulse that fills the scale
    std::iota(ripple.begin(), ripple.end(), 4000.0);
    ripple[5] = 0.0;
    const sim::Trace trace = sim::MakeTrace(ripple);
    EXPECT_EQ(std::set<int>(trace.begin(), trace.end()).size(), ripple.size());

    EXPECT_EQ(sim::MakeTrace(Values(10'000, 0.1)), sim::Trace{});
}

}  // namespace
