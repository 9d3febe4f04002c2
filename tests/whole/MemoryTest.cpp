#include <QProgressBar>
#include <random>

#include "WholeBench.h"

namespace {

struct WholeMemory : WholeBench {
    void Fill(std::span<qint16> samples) {
        for (qint16& sample : samples) {
            sample = static_cast<qint16>(std::uniform_int_distribution<int>(-2047, 2047)(random));
        }
    }

    void ExpectSame(sim::SimulatedInstrument& instrument) {
        instrument.With([this](const sim::Kl5276& unit) {
            const auto& [k4, k16] = std::tie(unit.state.memory4k, unit.state.memory16k);
            EXPECT_TRUE(std::equal(k4.begin(), k4.end(), program.memories.ArbMemory4.begin()));
            EXPECT_TRUE(std::equal(k16.begin(), k16.end(), program.memories.ArbMemory16.begin()));
        });
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
    panel.Get<QAction>("mnuStArb4")->trigger();
    panel.Get<QAction>("mnuStArb16")->trigger();
    EXPECT_TRUE(!panel.Get("status")->isVisible() && panel.Hint().isEmpty());
    EXPECT_TRUE(shown.contains(4050) && shown.contains(16300) && !shown.contains(16384));
    ASSERT_TRUE(instrument.WaitForLines(4098 + 16387, std::chrono::seconds(30)));
    ExpectSame(instrument);
    instrument.With([this](sim::Kl5276& unit) {
        Fill(unit.state.memory4k);
        Fill(unit.state.memory16k);
    });
    const qint16 beyond = memories.ArbMemory4[4096];
    panel.Get<QAction>("mnuRdArb4")->trigger();
    panel.Get<QAction>("mnuRdArb16")->trigger();
    ExpectSame(instrument);
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
    EXPECT_EQ(lines.at(201), QStringLiteral("arp16:200=%1").arg(program.memories.ArbMemory16[200]));
    instrument.With([](const sim::Kl5276& unit) { EXPECT_EQ(unit.state.ignoredTexts, 0U); });
}

}  // namespace
