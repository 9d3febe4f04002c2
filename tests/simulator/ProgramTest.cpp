#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "PanelEnd.h"
#include "simulator/CommandLine.h"
#include "simulator/LogText.h"

namespace {

using namespace std::chrono_literals;
using sim_test::PanelEnd;
namespace fs = std::filesystem;

// kl5276-sim as a child process, with its standard output and error in one pipe.
class Program {
  public:
    explicit Program(std::vector<std::string> arguments) {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
        output_ = ends[0];
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
        arguments.insert(arguments.begin(), KL5276_SIM_PATH);
        std::vector<char*> pointers;
        pointers.reserve(arguments.size() + 1);
        for (std::string& argument : arguments) {
            pointers.push_back(argument.data());
        }
        pointers.push_back(nullptr);
        EXPECT_EQ(::posix_spawn(&child_, KL5276_SIM_PATH, &actions, nullptr, pointers.data(), environ), 0);
        ::posix_spawn_file_actions_destroy(&actions);
        ::close(ends[1]);
    }
    ~Program() {
        if (child_ > 0) {
            ::kill(child_, SIGKILL);
            ::waitpid(child_, nullptr, 0);
        }
        ::close(output_);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    void Signal(int signal) const { ::kill(child_, signal); }

    std::string ReadLine() const {
        std::string line;
        for (char value = 0; ::read(output_, &value, 1) == 1 && value != '\n';) {
            line += value;
        }
        return line;
    }

    std::string ReadRest() const {
        std::string text;
        for (char value = 0; ::read(output_, &value, 1) == 1;) {
            text += value;
        }
        return text;
    }

    // -1 if it was ended by a signal.
    int ExitStatus() {
        int status = 0;
        ::waitpid(std::exchange(child_, -1), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

  private:
    pid_t child_ = -1;
    int output_ = -1;
};

TEST(CommandLine, FillsInTheOptions) {
    sim::ProgramOptions options;
    std::string error;
    ASSERT_TRUE(sim::ParseCommandLine({"--link=/tmp/a=b", "--rate",    "38400",          "--silent-off-rate",
                                       "--real-time",     "--log",     "--model",        "KL5276",
                                       "--version-text",  "",          "--mute-after",   "3",
                                       "--byte-delay",    "2900",      "--cut-reply",    "0",
                                       "--endless",       "--lone-cr", "--lone-cr-on",   "ID?",
                                       "--silent-on",     "VER?",      "--silent-on",    "sta?",
                                       "--lower-status",  "--garble",  "--vanish-after", "7",
                                       "--stall",         "4000,500"},
                                      &options, &error))
        << error;
    const sim::Options& instrument = options.instrument;
    EXPECT_EQ(instrument.linkPath, "/tmp/a=b");
    EXPECT_EQ(instrument.rate, 38400);
    EXPECT_TRUE(instrument.silentOffRate && instrument.realTime && options.log && !options.help);
    EXPECT_EQ(instrument.model + instrument.versionText, "KL5276");
    const sim::Faults& faults = instrument.faults;
    EXPECT_EQ(faults.muteAfterQueries, 3U);
    EXPECT_EQ(faults.byteDelay, 2900ms);
    EXPECT_EQ(faults.cutReplyBytes, 0U);
    EXPECT_TRUE(faults.endlessReply && faults.loneCr && faults.lowerCaseStatus && faults.garbledNumbers);
    EXPECT_EQ(faults.loneCrOn, std::set<std::string>{"ID?"});
    EXPECT_EQ(faults.silentOn, (std::set<std::string>{"VER?", "sta?"}));
    EXPECT_EQ(faults.vanishAfterLines, 7U);
    EXPECT_EQ(faults.stall, 4000ms);
    EXPECT_EQ(faults.stallEvery, 500ms);
}

TEST(CommandLine, NamesTheOptionItCannotTake) {
    const std::vector<std::vector<std::string>> table{
        {"--rat", "9600"},
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
        {"--mute-after", "99999999999999999999"},
    };
    for (const auto& arguments : table) {
        sim::ProgramOptions options;
        std::string error;
        EXPECT_FALSE(sim::ParseCommandLine(arguments, &options, &error)) << testing::PrintToString(arguments);
        EXPECT_NE(error.find(arguments[0].substr(0, arguments[0].find('='))), std::string::npos) << error;
    }
}

TEST(LogText, IsReadableInOneLine) {
    const std::chrono::steady_clock::time_point start{5s};
    EXPECT_EQ(sim::LogText({start + 1234567us, true, true, "ID?\r"}, start), "     1.234567 rx ID?<CR>");
    EXPECT_EQ(sim::LogText({start + 20ms, true, false, "a\n\x01\xff\r"}, start),
              "     0.020000 rx a<LF><01><ff><CR>  (not understood)");
    EXPECT_EQ(sim::LogText({start, false, true, "KL5"}, start), "     0.000000 tx KL5");
}

TEST(Program, ServesLogsAndCleansUp) {
    const fs::path link = fs::temp_directory_path() / ("kl5276-sim-test-" + std::to_string(::getpid()));
    Program program({"--link", link, "--log", "--model", "KL5276"});
    const std::string device = program.ReadLine();
    ASSERT_EQ(device.substr(0, 5), "/dev/");
    EXPECT_EQ(program.ReadLine(), "link " + link.string());
    EXPECT_EQ(fs::read_symlink(link), device);
    const PanelEnd panel(link);
    EXPECT_EQ(panel.Ask("ID?"), "KL5276\r");
    EXPECT_NE(program.ReadLine().find(" rx ID?<CR>"), std::string::npos);
    EXPECT_NE(program.ReadLine().find(" tx KL5276<CR>"), std::string::npos);

    program.Signal(SIGUSR1);
    EXPECT_TRUE(panel.SeesHangUp());
    program.Signal(SIGUSR1);
    program.ReadLine();
    program.ReadLine();
    EXPECT_EQ(PanelEnd(link).Ask("ID?"), "KL5276\r");

    program.Signal(SIGTERM);
    EXPECT_EQ(program.ExitStatus(), 0);
    EXPECT_FALSE(fs::exists(fs::symlink_status(link)));
}

TEST(Program, ExitStatusTellsWhatWentWrong) {
    struct Row {
        std::vector<std::string> arguments;
        int status;
        std::string says;
    };
    const std::vector<Row> table{
        {{"--help"}, 0, "--vanish-after N"},
        {{"--bogus"}, 2, "--bogus"},
        {{"--stall", "x"}, 2, "--stall"},
        {{"--link", KL5276_SIM_PATH}, 1, KL5276_SIM_PATH},
    };
    for (const Row& row : table) {
        Program program(row.arguments);
        EXPECT_NE(program.ReadRest().find(row.says), std::string::npos) << row.says;
        EXPECT_EQ(program.ExitStatus(), row.status) << row.says;
    }
}

}  // namespace
