#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "simulator/CommandLine.h"
#include "simulator/TraceCommandLine.h"

namespace {

// The first of the arguments, separated by blanks, is the one that the program names.
template <typename Options>
void ExpectNamed(std::initializer_list<std::string> table) {
    for (const std::string& arguments : table) {
        std::istringstream rest(arguments);
        const std::vector<std::string> words{std::istream_iterator<std::string>(rest), {}};
        std::vector<const char*> argv{"sim"};
        for (const std::string& word : words) {
            argv.push_back(word == "EMPTY" ? "" : word.c_str());
        }
        const std::size_t head = arguments.find_first_not_of('-');
        const std::string name = arguments.substr(head, arguments.find_first_of(" =") - head);
        Options options;
        testing::internal::CaptureStderr();
        EXPECT_EQ(sim::ReadCommandLine(static_cast<int>(argv.size()), argv.data(), &options), 2) << arguments;
        const std::string told = testing::internal::GetCapturedStderr();
        EXPECT_NE(told.find(name), std::string::npos) << arguments << ": " << told;
    }
}

TEST(CommandLine, NamesTheOptionItCannotTake) {
    ExpectNamed<sim::ProgramOptions>({"--rat 9600", "stray", "--rate", "--rate 9601", "--rate 9600x", "--link EMPTY",
                                      "--log=yes", "--byte-delay -1", "--cut-reply abc", "--stall 4000",
                                      "--stall 1,2,3", "--mute-after 99999999999999999999"});
    ExpectNamed<sim::TraceProgramOptions>({"--csv EMPTY", "--columns 1,2", "--columns EMPTY --csv x",
                                           "--block 0 --csv x", "--separator ; --csv x", "--decimal , --csv x",
                                           "--shape-a circle", "--csv x --shape-b=square"});
}

}  // namespace
