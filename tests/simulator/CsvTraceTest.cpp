#include <gtest/gtest.h>

#include <cmath>

#include "simulator/CsvTrace.h"
#include "simulator/OptionKinds.h"
#include "simulator/Trace.h"
#include "simulator/TraceCommandLine.h"

namespace {

using Values = std::vector<double>;

TEST(CsvTrace, FindsTheTwoRecordingsOfAFile) {
    const std::tuple<const char*, std::vector<int>, Values, Values> cases[] = {
        {"Time,CH1,CH2\ns,V,V\n0,1,-5\n1,2,-4e-1\n2,.5,+3\n", {}, {1, 2, .5}, {-5, -.4, 3}},
        {"0;1,5;-2,5\r\n1;1,25;3\r\n2;1;0,5\r\n", {}, {1.5, 1.25, 1}, {-2.5, 3, .5}},
        {"time, in ms;volts, at 1:10;x\n0,1;4,5;0\n0,2;3,5;0", {}, {4.5, 3.5}, {0, 0}},
        {"\357\273\2775;6\n\n3;2\n  \n4;1\n", {}, {5, 3, 4}, {6, 2, 1}},
        {"\"CH1, V\",\"CH2, V\"\n\"0,5\",\"1\"\n \"0,25\" , 2 \n", {}, {.5, .25}, {1, 2}},
        {"1,5\n2,4\n3,3\n", {2, 1}, {5, 4, 3}, {1, 2, 3}},
        // Numbers of a header, beside and above the recording, and its increment behind it.
        {"Length,2500\nInterval,1e-9\nInfo,x\nSource,CH1\n0,4\n1,3\n2,4", {}, {4, 3, 4}, {4, 3, 4}},
        {"Length,5,,0,4\nInterval,1e-9,,1,3\n,,,2,2\n,,,3,1\n,,,4,2\n", {}, {4, 3, 2, 1, 2}, {4, 3, 2, 1, 2}},
        {"2024;11;05\nt;v\n0;1,5\n1;0,5\n", {}, {1.5, .5}, {1.5, .5}},
        // Rows that are cut short at the end, and closing remarks.
        {"0,1,5\n1,2,6\n2,1,7\n3,2,\n4,3", {}, {1, 2, 1}, {5, 6, 7}},
        {"4,1\n2,2\n4,1\n-- end --\n", {}, {4, 2, 4}, {1, 2, 1}},
        // A time of few digits, an index ahead of the time, times with words, and signals that rise.
        {"0,0.5,3\n1,0.6,4\n2,0.7,3\n", {}, {3, 4, 3}, {3, 4, 3}},
        {"0,1,3\n1,8,4\n2,9,3\n", {}, {1, 8, 9}, {3, 4, 3}},
        {"t;v\nMon 12:00;0,5\nTue 12:00;0,25\n", {}, {.5, .25}, {.5, .25}},
    };
    for (const auto& [text, columns, a, b] : cases) {
        std::array<sim::CsvColumn, 2> channels;
        std::string error;
        ASSERT_TRUE(sim::ReadCsv(text, columns, &channels, &error)) << text << error;
        EXPECT_EQ(channels[0].values, a) << text;
        EXPECT_EQ(channels[1].values, b) << text;
    }
}

TEST(CsvTrace, RefusesWhatIsNoRecording) {
    const std::tuple<std::string, std::vector<int>, const char*> cases[] = {
        {"", {}, "no numbers"},
        {"1,2\n", {}, "one number"},
        {"0,1\n1,2\n", {3}, "column 3 is not there"},
        {"2,1\n1,\n2,2\n", {}, "column 2 has no number in line 2"},
        {"2,1\n1,nan\n2,2\n", {}, "line 2"},
        {"2,1\n1,12V\n2,2\n", {}, "line 2"},
        {"2;1.5\n1;1,5\n2;2\n", {}, "decimal point"},
        {"1,5\n2,6\nPause,0\n1,7\n", {}, "line 3"},
        {"t;v\n0;1.000,5\n1;1.001,5\n", {}, "--columns"},
        {"Volt\n0,5\n1,5\n", {}, "decimal marks"},
        {std::string("1\0\n\0", 4), {}, "plain text"}};
    for (const auto& [text, columns, complaint] : cases) {
        std::array<sim::CsvColumn, 2> channels;
        std::string error;
        EXPECT_FALSE(sim::ReadCsv(text, columns, &channels, &error)) << text;
        EXPECT_NE(error.find(complaint), std::string::npos) << text << error;
    }
}

TEST(Trace, BringsARecordingToItsLengthAndScale) {
    const sim::Trace rise = sim::MakeTrace({-2.0, 0.0});
    EXPECT_TRUE(rise.front() == 0 && rise[1024] == 128 && rise.back() == 255);
    EXPECT_EQ(sim::MakeTrace({-1e308, 1e308}), rise);

    Values fast(100'000);  // a wave of 50 values, which a choice of single values would keep at full height
    for (std::size_t i = 0; i < fast.size(); ++i) {
        fast[i] = std::sin(static_cast<double>(i) / 50.0 * 6.283185307179586) + (i < 50'000 ? 0.0 : 100.0);
    }
    const sim::Trace mean = sim::MakeTrace(fast);
    EXPECT_TRUE(mean[1000] <= 3 && mean[1047] >= 252);

    EXPECT_EQ(sim::MakeTrace(Values(10'000, 0.1)), sim::Trace{});
    EXPECT_EQ(sim::MakeTrace({0.0, 0.0}), sim::Trace{});
}

TEST(TraceCommandLine, NamesWhatItCannotTake) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--csv", ""},
                                                      {"--columns", "1,x", "--csv", "x"},
                                                      {"--columns", "1,2"},
                                                      {"--shape-a", "circle"},
                                                      {"--csv", "x", "--shape-b=square"}}) {
        sim::TraceProgramOptions options;
        CLI::App app;
        sim::AddOptions(app, options);
        std::string error;
        try {
            app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        } catch (const CLI::ParseError& outcome) {
            error = outcome.what();
        }
        EXPECT_NE(error.find(arguments[0].substr(0, 5)), std::string::npos) << error;
    }
}

}  // namespace
