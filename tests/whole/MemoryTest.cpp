#include <QProgressBar>
#include <random>

#include "WholeBench.h"
#include "core/Enumerations.h"

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
    program.link.ReplyTimeoutMs = 60'000;  // thousands of queries, one of which a busy machine may answer late
    clock.paces = false;
    ArbMemories& memories = program.memories;
    for (const MemorySize* const size : kMemorySizes) {
        Fill(size->samples(memories));
    }
    auto* const status = panel.Get<QProgressBar>("status");
    QStringList shown;  // the last of each transfer
    QObject::connect(status, &QProgressBar::valueChanged, [&](int value) {
        shown += QStringLiteral("%1 %2 of %3").arg(panel.Hint()).arg(value).arg(status->maximum());
    });
    const auto transfer = [&](const char* item) {
        panel.Get<QAction>(item)->trigger();
        EXPECT_FALSE(status->isVisible());
        EXPECT_EQ(panel.Hint(), QString());
        return shown.constLast();
    };
    EXPECT_EQ(transfer("mnuStArb4"), u"Please wait. Send 4095 Values 4050 of 4095");
    EXPECT_EQ(transfer("mnuStArb16"), u"Please wait. Send 16384 Values 16300 of 16384");
    ASSERT_TRUE(instrument.WaitForLines(4098 + 16387, std::chrono::seconds(30)));
    ExpectSame(instrument);
    instrument.With([this](sim::Kl5276& unit) {
        Fill(unit.state.memory4k);
        Fill(unit.state.memory16k);
    });
    const qint16 beyond = memories.ArbMemory4[4096];
    EXPECT_EQ(transfer("mnuRdArb4"), u"Please wait. Read 4096 Values 4050 of 4095");
    EXPECT_EQ(transfer("mnuRdArb16"), u"Please wait. Read 16384 Values 16300 of 16384");
    ExpectSame(instrument);
    EXPECT_EQ(memories.ArbMemory4[4096], beyond);
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(WholeMemory, ClosedInTheMiddleOfASlowTransferItEndsInOrder) {
    auto& instrument =
        Connect({.realTime = true,
                 .faults = {.stall = std::chrono::milliseconds(300), .stallEvery = std::chrono::milliseconds(900)}},
                38400);
    Fill(program.memories.ArbMemory16);
    bool closed = false;
    QObject::connect(panel.Get<QProgressBar>("status"), &QProgressBar::valueChanged, [&](int value) {
        if (value == 1900) {            // more than fits between, so that some have arrived
            panel.Click("opsignal_1");  // nobody changes what is on its way
            closed = !panel.form->close();
        }
    });
    panel.Get<QAction>("mnuStArb16")->trigger();
    EXPECT_TRUE(closed);
    EXPECT_EQ(desktop.beeps, 1);
    EXPECT_EQ(program.panel.bmSignal, kSignalSine);
    QCoreApplication::processEvents();
    EXPECT_FALSE(panel.form->isVisible());
    EXPECT_FALSE(com.PortOpen());
    ASSERT_TRUE(GivenBack(instrument));
    // The points that were on their way are dropped, the one that is cut by that is ended, and the rest is in order.
    const QStringList lines = Lines(instrument);
    ASSERT_GT(lines.size(), 100);
    EXPECT_EQ(lines.first(), u"arc16");
    EXPECT_EQ(lines.last(2).join(u' '), u"are RM0");
    EXPECT_LT(lines.size(), 1904);
    for (int i = 1; i < lines.size() - 3; ++i) {  // but for the one that may be cut
        ASSERT_EQ(lines.at(i), QStringLiteral("arp16:%1=%2").arg(i - 1).arg(program.memories.ArbMemory16[i - 1]));
    }
}

// What the port holds by then goes out whole, the last point too, and nothing is verified.
TEST_F(WholeMemory, ASendStoppedOnASlowLineEndsInOrderAndTheLinkGoesOn) {
    auto& memory = program.memories.ArbMemory16;
    Fill(memory);
    clock.paces = false;
    auto& instrument = Connect({.realTime = true}, 115200);
    QObject::connect(panel.Get<QProgressBar>("status"), &QProgressBar::valueChanged, [&](int value) {
        if (value == 1000) {
            panel.Key(Qt::Key_Escape);
            panel.Key(Qt::Key_X);  // everything else only beeps
            EXPECT_EQ(desktop.beeps, 1);
            EXPECT_EQ(panel.Hint(), u"Stopping: what is on its way goes out first");
        }
    });
    panel.Get<QAction>("mnuverify")->setChecked(true);
    panel.Get<QAction>("mnuStArb16")->trigger();
    EXPECT_EQ(panel.Hint(), u"Stopped: 1001 of 16385 points sent");
    panel.Click("Command3");
    EXPECT_EQ(program.link.LinkUp, 1);
    const QStringList lines = Lines(instrument);
    EXPECT_EQ(lines.first(2).join(u' '), QStringLiteral("arc16 arp16:0=%1").arg(memory[0]));
    EXPECT_EQ(lines.sliced(1001, 3).join(u' '), QStringLiteral("arp16:1000=%1 are amt?").arg(memory[1000]));
}

}  // namespace
