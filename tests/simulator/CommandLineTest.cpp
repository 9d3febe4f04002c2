#include <gtest/gtest.h>

#include "simulator/CommandLine.h"
#include "simulator/OptionKinds.h"
#include "simulator/TraceCommandLine.h"

namespace {

// The first of the arguments is the one that the program names.
template <typename Options>
void ExpectNamed(std::initializer_list<std::string> table) {
    for (const std::string& arguments : table) {
        CLI::App app;
        Options options;
        sim::AddOptions(app, options);
        const std::size_t head = arguments.find_first_not_of('-');
        const std::string name = arguments.substr(head, arguments.find_first_of(" =") - head);
        try {
            app.parse(arguments);
            ADD_FAILURE() << arguments << " was taken";
        } catch (const CLI::ParseError& outcome) {
            EXPECT_NE(std::string(outcome.what()).find(name), std::string::npos) << arguments << ": " << outcome.what();
        }
    }
}

TEST(CommandLine, NamesTheOptionItCannotTake) {
    ExpectNamed<sim::ProgramOptions>({"--rat 9600", "stray", "--rate", "--rate 9601", "--rate 9600x", "--link ''",
                                      "--log=yes", "--byte-delay -1", "--cut-reply abc", "--stall 4000",
                                      "--stall 1,2,3", "--mute-after 99999999999999999999"});
    ExpectNamed<sim::TraceProgramOptions>({"--csv ''", "--columns 1,2", "--columns '' --csv x", "--block 0 --csv x",
                                           "--separator ';' --csv x", "--decimal ',' --csv x", "--shape-a circle",
                                           "--csv x --shape-b=square"});
}

}  // namespace
