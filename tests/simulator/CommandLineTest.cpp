#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/CommandLine.h"

namespace {

TEST(CommandLine, NamesTheOptionItCannotTake) {
    const std::vector<std::vector<std::string>> table{{"--rat", "9600"},
                                                      {"stray"},
                                                      {"--rate"},
                                                      {"--rate", "9601"},
                                                      {"--rate", "9600x"},
                                                      {"--rate", ""},
                                                      {"--link", ""},
                                                      {"--log=yes"},
                                                      {"--byte-delay", "-1"},
                                                      {"--byte-delay", "1.5"},
                                                      {"--cut-reply", "abc"},
                                                      {"--stall", "4000"},
                                                      {"--stall", "1,2,3"},
                                                      {"--stall", ",5"},
                                                      {"--mute-after", "99999999999999999999"}};
    for (const auto& arguments : table) {
        sim::ProgramOptions options;
        std::string error;
        EXPECT_FALSE(sim::ParseCommandLine(arguments, &options, &error)) << testing::PrintToString(arguments);
        EXPECT_NE(error.find(arguments[0].substr(0, arguments[0].find('='))), std::string::npos) << error;
    }
}

}  // namespace
