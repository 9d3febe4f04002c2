#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "PanelEnd.h"
#include "simulator/SimulatedInstrument.h"

namespace {

using namespace std::chrono_literals;
using sim::Options;
using sim::SimulatedInstrument;
using sim_test::kPatience;
using sim_test::PanelEnd;
namespace fs = std::filesystem;

constexpr std::chrono::milliseconds kShort{200};

std::unique_ptr<SimulatedInstrument> Started(const Options& options) {
    auto instrument = std::make_unique<SimulatedInstrument>(options);
    std::string error;
    EXPECT_TRUE(instrument->Start(&error)) << error;
    return instrument;
}

class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = (fs::temp_directory_path() / "kl5276-XXXXXX").string();
        path_ = ::mkdtemp(name.data());
    }
    ~TemporaryFolder() { fs::remove_all(path_); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    fs::path operator/(const char* name) const { return path_ / name; }

  private:
    fs::path path_;
};

TEST(SimulatedInstrument, ServesOnePanelAfterAnother) {
    const auto instrument = Started({.rate = 19200});
    for (int round = 0; round < 3; ++round) {
        const PanelEnd panel(instrument->DevicePath());
        EXPECT_EQ(panel.Ask("ID?"), "KL5276-2\r");
        panel.Write("frq:2000\rRM0\r");
    }
    ASSERT_TRUE(instrument->WaitForLines(9, kPatience));
    EXPECT_EQ(instrument->ReceivedBytes(), "ID?\rfrq:2000\rRM0\rID?\rfrq:2000\rRM0\rID?\rfrq:2000\rRM0\r");
    EXPECT_EQ(instrument->SentBytes(), "KL5276-2\rKL5276-2\rKL5276-2\r");
    instrument->ClearLog();
    EXPECT_FALSE(instrument->WaitForLine("RM0", 0ms));
    EXPECT_EQ(instrument->SentBytes() + instrument->ReceivedBytes(), "");
    instrument->With([](sim::Kl5276& unit) {
        EXPECT_EQ(unit.state.frequency, 2000.0);
        unit.state.frequency = 3000.0;
    });
    EXPECT_EQ(PanelEnd(instrument->DevicePath()).Ask("frq?"), "3000.0000\r");
}

TEST(SimulatedInstrument, UnderstandsItsOwnLineSettingsOnly) {
    struct Row {
        speed_t speed;
        tcflag_t stopBits;
        bool understood;
    };
    constexpr std::array kTable{Row{B4800, CSTOPB, false}, Row{B9600, CSTOPB, true}, Row{B19200, CSTOPB, false},
                                Row{B115200, CSTOPB, false}, Row{B9600, 0, false}};
    for (const bool silent : {false, true}) {
        const auto instrument = Started({.rate = 9600, .silentOffRate = silent});
        const PanelEnd panel(instrument->DevicePath());
        for (const Row& row : kTable) {
            panel.SetLine(row.speed, row.stopBits);
            panel.Write("frq:5\rID?\r");
            if (row.understood) {
                EXPECT_EQ(panel.Read(), "KL5276-2\r");
            } else if (silent) {
                EXPECT_EQ(panel.Read(kShort), "");
            } else {
                for (int line = 0; line < 2; ++line) {
                    const std::string noise = panel.Read();
                    EXPECT_GT(noise.size(), 1U);
                    EXPECT_NE(noise[0], 'K');
                }
            }
        }
        EXPECT_EQ(instrument->ReceivedLines(), (std::vector<std::string>{"frq:5", "ID?"}));
        EXPECT_EQ(instrument->ReceivedBytes().size(), kTable.size() * 10);
    }
}

TEST(SimulatedInstrument, AStalledLineHoldsThePanelBackAndLosesNothing) {
    const auto instrument = Started({.faults = {.stall = 600s}});
    const PanelEnd panel(instrument->DevicePath());
    const std::string block(4096, 'x');
    std::size_t taken = 0;
    for (ssize_t count = 1; count > 0; taken += static_cast<std::size_t>(std::max<ssize_t>(count, 0))) {
        count = ::write(panel.Descriptor(), block.data(), block.size());
        ASSERT_LT(taken, 1'000'000U) << "the line takes everything";
    }
    EXPECT_EQ(instrument->ReceivedBytes(), "");
    instrument->SetFaults({});
    panel.Write("\r");
    EXPECT_EQ(panel.Ask("ID?"), "KL5276-2\r");
    EXPECT_EQ(instrument->ReceivedBytes().size(), taken + 5);
}

TEST(SimulatedInstrument, VanishesAndComesBack) {
    const TemporaryFolder folder;
    const fs::path link = folder / "com1";
    const auto instrument = Started({.linkPath = link});
    const PanelEnd first(link);
    EXPECT_EQ(first.Ask("ID?"), "KL5276-2\r");
    instrument->Vanish();
    EXPECT_TRUE(first.SeesHangUp());
    EXPECT_FALSE(instrument->IsThere());
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_LT(::open(link.c_str(), O_RDWR | O_NOCTTY), 0);
    instrument->Stop();

    std::string error;
    ASSERT_TRUE(instrument->Start(&error)) << error;
    instrument->SetFaults({.vanishAfterLines = 1});
    const PanelEnd second(link);
    EXPECT_EQ(second.Ask("ID?"), "KL5276-2\r");
    second.Write("ID?\r");
    EXPECT_TRUE(second.SeesHangUp());
    EXPECT_EQ(instrument->ReceivedLines(), (std::vector<std::string>{"ID?", "ID?"}));
}

TEST(SimulatedInstrument, LinkReplacesAStaleLinkAndNothingElse) {
    const TemporaryFolder folder;
    const fs::path link = folder / "com1";
    fs::create_symlink("/nowhere/at/all", link);
    const auto instrument = Started({.linkPath = link});
    EXPECT_EQ(fs::read_symlink(link), instrument->DevicePath());
    const auto successor = Started({.linkPath = link});
    instrument->Stop();
    EXPECT_EQ(fs::read_symlink(link), successor->DevicePath()) << "removed the link of another instrument";
    successor->Stop();
    EXPECT_FALSE(fs::exists(fs::symlink_status(link)));

    const fs::path file = folder / "file";
    std::ofstream(file) << "kept";
    fs::create_symlink(file, link);
    for (const fs::path& path : {file, link, folder / "missing/com1"}) {
        SimulatedInstrument refused({.linkPath = path});
        std::string error;
        EXPECT_FALSE(refused.Start(&error));
        EXPECT_NE(error.find(path.string()), std::string::npos) << error;
    }
    EXPECT_EQ(fs::file_size(file), 4U);
    EXPECT_EQ(fs::read_symlink(link), file);
}

}  // namespace
