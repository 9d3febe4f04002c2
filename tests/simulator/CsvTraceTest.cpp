#include <gtest/gtest.h>

#include <cmath>

#include "simulator/CsvTrace.h"
#include "simulator/Trace.h"
#include "simulator/TraceCommandLine.h"

namespace {

using Values = std::vector<double>;

TEST(CsvTrace, FindsTheTwoRecordingsOfAFile) {
    struct Case {
        const char* text;
        std::vector<int> columns;
        Values a, b;
    };
    const Case cases[] = {
        {"Time,CH1,CH2\ns,V,V\n0,1,-5\n1,2,-4e-1\n2,.5,+3\n", {}, {1, 2, .5}, {-5, -.4, 3}},
        {"0;1,5;-2,5\r\n1;1,25;3\r\n2;1;0,5\r\n", {}, {1.5, 1.25, 1}, {-2.5, 3, .5}},
        {"0\t1.5\t7\n0\t2.5\t8\n", {2, 3}, {1.5, 2.5}, {7, 8}},
        {"time, in ms;volts, at 1:10;x\n0,1;4,5;0\n0,2;3,5;0", {}, {4.5, 3.5}, {0, 0}},
        {"\xEF\xBB\xBF"
         "5;6\n\n3;2\n  \n4;1\n",
         {},
         {5, 3, 4},
         {6, 2, 1}},
        {"\"CH1, V\",\"CH2, V\"\n\"0,5\",\"1\"\n \"0,25\" , 2 \n", {}, {.5, .25}, {1, 2}},
        {"5\n3\n4\n", {}, {5, 3, 4}, {5, 3, 4}},
        {"1\n2\n3\n", {}, {1, 2, 3}, {1, 2, 3}},
        {"1,5\n2,4\n3,3\n", {}, {5, 4, 3}, {5, 4, 3}},
        {"1,5\n2,4\n3,3\n", {1}, {1, 2, 3}, {1, 2, 3}},
        {"1,5\n2,4\n3,3\n", {2, 1}, {5, 4, 3}, {1, 2, 3}},
        {"1\r2\r1", {}, {1, 2, 1}, {1, 2, 1}},
        // Numbers of a header, beside and above the recording, and its increment behind it.
        {"Length,2500\nInterval,1e-9\nInfo,x\nSource,CH1\n0,4\n1,3\n2,4", {}, {4, 3, 4}, {4, 3, 4}},
        {"Length,5,,0,4\nInterval,1e-9,,1,3\n,,,2,2\n,,,3,1\n,,,4,2\n", {}, {4, 3, 2, 1, 2}, {4, 3, 2, 1, 2}},
        {"X,CH1,CH2,Start,Step\nSeq,V,V,0,1e-6\n0,5,6,,\n1,4,7,,\n2,5,6,,\n", {}, {5, 4, 5}, {6, 7, 6}},
        {"x-axis,1,2\n0.0,5,4\n0.1,3,6\n0.2,5,4\n", {}, {5, 3, 5}, {4, 6, 4}},
        {"2024;11;05\nt;v\n0;1,5\n1;0,5\n", {}, {1.5, .5}, {1.5, .5}},
        // Rows that are cut short at the end, and closing remarks.
        {"0,1,5\n1,2,6\n2,1,7\n3,2,\n4,3", {}, {1, 2, 1}, {5, 6, 7}},
        {"4,1\n2,2\n4,1\n-- end --\n", {}, {4, 2, 4}, {1, 2, 1}},
        {"t,v\n0,1\n1,3\n2,1\n\nMaximum,55.0\n", {}, {1, 3, 1}, {1, 3, 1}},
        // A time of few digits, an index ahead of the time, times with words, and signals that rise.
        {"0.1,1,5\n0.1,2,6\n0.2,1,7\n", {}, {1, 2, 1}, {5, 6, 7}},
        {"0,0.5,3\n1,0.6,4\n2,0.7,3\n", {}, {3, 4, 3}, {3, 4, 3}},
        {"0,1,3\n1,8,4\n2,9,3\n", {}, {1, 8, 9}, {3, 4, 3}},
        {"t;v\nMon 12:00;0,5\nTue 12:00;0,25\n", {}, {.5, .25}, {.5, .25}},
        {"t,v\n0,1.5\t\n1,0.5\t\n", {}, {1.5, .5}, {1.5, .5}},
    };
    for (const Case& c : cases) {
        std::array<sim::CsvColumn, 2> channels;
        std::string error;
        ASSERT_TRUE(sim::ReadCsv(c.text, c.columns, &channels, &error)) << c.text << error;
        EXPECT_EQ(channels[0].values, c.a) << c.text;
        EXPECT_EQ(channels[1].values, c.b) << c.text;
    }
}

TEST(CsvTrace, RefusesWhatIsNoRecording) {
    struct Case {
        std::string text;
        std::vector<int> columns;
        const char* error;
    };
    const Case cases[] = {{"", {}, "no numbers"},
                          {"just a text\nand more\n", {}, "no numbers"},
                          {"1,2\n", {}, "one number"},
                          {"0,1\n1,2\n", {3}, "column 3 is not there"},
                          {"a,1\nb,2\n", {1}, "column 1 holds no numbers"},
                          {"2,1\n1,\n2,2\n", {}, "column 2 has no number in line 2"},
                          {"2,1\n1,nan\n2,2\n", {}, "line 2"},
                          {"NaN\n2\nNaN\n3\n", {}, "line 3"},
                          {"2,1\n1,1e999\n2,2\n", {}, "line 2"},
                          {"2,1\n1,12V\n2,2\n", {}, "line 2"},
                          {"2;1\n1;1.234,5\n2;2\n", {}, "line 2"},
                          {"2;1.5\n1;1,5\n2;2\n", {}, "decimal point"},
                          {"t,a,b\n0,1,\n1,2,5\n2,1,6\n", {}, "column 3 has no number in line 2"},
                          {"1,5\n2,6\nPause,0\n1,7\n", {}, "line 3"},
                          {"t;v\n0;1.000,5\n1;1.001,5\n", {}, "--columns"},
                          {"Volt\n0,5\n1,5\n", {}, "decimal marks"},
                          {std::string("1\0\n\0", 4), {}, "plain text"}};
    for (const Case& c : cases) {
        std::array<sim::CsvColumn, 2> channels;
        std::string error;
        EXPECT_FALSE(sim::ReadCsv(c.text, c.columns, &channels, &error)) << c.text;
        EXPECT_NE(error.find(c.error), std::string::npos) << c.text << error;
    }
}

TEST(Trace, BringsARecordingToItsLengthAndScale) {
    const sim::Trace rise = sim::MakeTrace({-2.0, 0.0});
    EXPECT_EQ(rise.front(), 0);
    EXPECT_EQ(rise[1024], 128);
    EXPECT_EQ(rise.back(), 255);
    EXPECT_EQ(sim::MakeTrace({-1e308, 1e308}), rise);

    Values steps(sim::kTraceSamples);
    for (std::size_t i = 0; i < steps.size(); ++i) {
        steps[i] = static_cast<double>(i % 256);
    }
    EXPECT_EQ(sim::MakeTrace(steps)[255 + 256], 255);
    EXPECT_EQ(sim::MakeTrace(steps)[256], 0);

    Values fast(100'000);  // a wave of 50 values, which a choice of single values would keep at full height
    for (std::size_t i = 0; i < fast.size(); ++i) {
        fast[i] = std::sin(static_cast<double>(i) / 50.0 * 6.283185307179586) + (i < 50'000 ? 0.0 : 100.0);
    }
    const sim::Trace mean = sim::MakeTrace(fast);
    EXPECT_LE(mean[1000], 3);
    EXPECT_GE(mean[1047], 252);

    EXPECT_EQ(sim::MakeTrace(Values(10'000, 0.1)), sim::Trace{});
    EXPECT_EQ(sim::MakeTrace({0.0, 0.0}), sim::Trace{});
}

TEST(TraceCommandLine, NamesWhatItCannotTake) {
    const std::vector<std::vector<std::string>> table{
        {"--csv", ""},           {"--columns", "0", "--csv", "x"},   {"--columns", "1,", "--csv", "x"},
        {"--columns", "1,2"},    {"--columns", "1,2,3", "--csv=x"},  {"--shape-a", "circle"},
        {"--silent-on", "data"}, {"--csv", "x", "--shape-b=square"}, {"--short", "-1"}};
    for (const auto& arguments : table) {
        sim::TraceProgramOptions options;
        std::string error;
        EXPECT_FALSE(sim::ParseTraceCommandLine(arguments, &options, &error)) << testing::PrintToString(arguments);
        EXPECT_NE(error.find(arguments[0].substr(0, 5)), std::string::npos) << error;
    }
    sim::TraceProgramOptions options;
    std::array<std::string, 2> origins;
    std::string error;
    ASSERT_TRUE(sim::ParseTraceCommandLine({"--csv", "/no/such.csv"}, &options, &error)) << error;
    EXPECT_FALSE(sim::LoadChannels(&options, &origins, &error));
    EXPECT_NE(error.find("/no/such.csv: No such file"), std::string::npos) << error;
}

}  // namespace
