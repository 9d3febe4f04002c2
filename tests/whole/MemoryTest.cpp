#include <random>

#include "WholeBench.h"

namespace {

struct WholeMemory : WholeBench {
    void Fill(std::span<qint16> samples) {
        for (qint16& sample : samples) {
            sample = static_cast<qint16>(std::uniform_int_distribution<int>(-2047, 2047)(random));
        }
    }

    std::mt19937 random{5276};
};

TEST_F(WholeMemory, EveryPointOfBothMemoriesArrivesEitherWay) {
    auto& instrument = Connect({});
    clock.paces = false;
    ArbMemories& memories = program.memories;
    for (const MemorySize* const size : kMemorySizes) {
        Fill(size->samples(memories));
    }
    QSet<int> shown;
    QObject::connect(panel.Get<QProgressBar>("status"), &QProgressBar::valueChanged,
                     [&](int value) { shown += panel.Get("status")->isVisible() ? value : -1; });
    for (const char* const item : {"mnuStArb4", "mnuStArb16"}) {
        panel.Get<QAction>(item)->trigger();
    }
    EXPECT_FALSE(panel.Get("status")->isVisible());
    EXPECT_EQ(panel.Hint(), QString());
    EXPECT_TRUE(shown.contains(4050) && shown.contains(16300) && !shown.contains(16384));
    ASSERT_TRUE(instrument.WaitForLines(4098 + 16387, std::chrono::seconds(30)));
    instrument.With([&](sim::Kl5276& unit) {
        const auto& k4 = unit.state.memory4k;
        const auto& k16 = unit.state.memory16k;
        EXPECT_TRUE(std::equal(k4.begin(), k4.end(), memories.ArbMemory4.begin()));
        EXPECT_TRUE(std::equal(k16.begin(), k16.end(), memories.ArbMemory16.begin()));
        Fill(unit.state.memory4k);
        Fill(unit.state.memory16k);
    });
    const qint16 beyond = memories.ArbMemory4[4096];
    for (const char* const item : {"mnuRdArb4", "mnuRdArb16"}) {
        panel.Get<QAction>(item)->trigger();
    }
    instrument.With([&](const sim::Kl5276& unit) {
        const auto& k4 = unit.state.memory4k;
        const auto& k16 = unit.state.memory16k;
        EXPECT_TRUE(std::equal(k4.begin(), k4.end(), memories.ArbMemory4.begin()));
        EXPECT_TRUE(std::equal(k16.begin(), k16.end(), memories.ArbMemory16.begin()));
    });
    EXPECT_EQ(memories.ArbMemory4[4096], beyond);
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(WholeMemory, ClosedInTheMiddleOfASlowTransferItEndsInOrder) {
    auto& instrument =
        Connect({.realTime = true,
                 .faults = {.stall = std::chrono::milliseconds(300), .stallEvery = std::chrono::milliseconds(900)}},
                4800);
    Fill(program.memories.ArbMemory16);
    bool closed = false;
    QObject::connect(panel.Get<QProgressBar>("status"), &QProgressBar::valueChanged, [&](int value) {
        if (value == 200) {
            closed = !panel.form->close();
        }
    });
    panel.Get<QAction>("mnuStArb16")->trigger();
    EXPECT_TRUE(closed);
    QCoreApplication::processEvents();
    EXPECT_FALSE(panel.form->isVisible());
    ASSERT_TRUE(GivenBack(instrument));
    const QStringList lines = Lines(instrument);
    ASSERT_EQ(lines.size(), 204);  // arc16, points 0 to 200, are, RM0
    for (int address = 0; address <= 200; ++address) {
        const qint16 sample = program.memories.ArbMemory16[static_cast<std::size_t>(address)];
        EXPECT_EQ(lines.at(address + 1), QStringLiteral("arp16:%1=%2").arg(address).arg(sample));
    }
    instrument.With([](const sim::Kl5276& unit) { EXPECT_EQ(unit.state.ignoredTexts, 0U); });
}

TEST_F(WholeMemory, WithoutALinkNothingMoves) {
    Open();
    program.memories.ArbMemory4.fill(7);
    for (const char* const item : {"mnuRdArb4", "mnuStArb4", "mnuRdArb16", "mnuStArb16"}) {
        panel.Get<QLabel>("Label8")->clear();
        panel.Get<QAction>(item)->trigger();
        EXPECT_EQ(panel.Hint(), u"Not connected - RM ist off");
    }
    EXPECT_EQ(program.memories.ArbMemory4[0], 7);
    EXPECT_FALSE(panel.Get("status")->isVisible());
}

}  // namespace
