#include <QTest>

#include "platform/EventClock.h"
#include "platform/SerialControl.h"
#include "simulator/SimulatedInstrument.h"
#include "support/PrintQt.h"

namespace {

using State = Com::OutputState;

struct SerialControls : ::testing::Test {
    SerialControls() { Plug(); }
    void Plug() {
        std::string error;
        ASSERT_TRUE(instrument.Start(&error)) << error;
        ASSERT_TRUE(com.SetSettings(QStringLiteral("115200,N,8,2")) && com.SetPortOpen(true));
    }
    State Send(const std::string& text) {
        for (const char character : text) {
            com.Output(character);
        }
        return com.FlushOutput();
    }

    const std::string much = std::string(100'000, 'x');  // more than any buffer between holds
    sim::SimulatedInstrument instrument{sim::Options{}};
    SerialControl com{[this](int) { return QString::fromStdString(instrument.DevicePath()); }};
};

TEST_F(SerialControls, AStalledLineKeepsNobodyWaitingAndTheNextSendDropsWhatItDidNotTake) {
    for (const bool closes : {true, false}) {
        instrument.SetFaults({.stall = std::chrono::minutes(5)});
        EXPECT_EQ(Send(much), State::Waiting);
        com.ClearOutBuffer();  // drops nothing before the line has stalled
        while (com.FlushOutput() == State::Waiting) {
        }
        QElapsedTimer elapsed;
        elapsed.start();
        EXPECT_EQ(com.FlushOutput(), State::Stalled);
        com.SetPortOpen(!closes);
        EXPECT_LT(elapsed.elapsed(), 2900);
        EXPECT_TRUE(com.SetPortOpen(true));
        com.ClearOutBuffer();
        instrument.SetFaults({});
        EXPECT_EQ(Send("\rID?\r"), State::Taken);
        EXPECT_TRUE(instrument.WaitForLine("ID?", std::chrono::seconds(20)));
        EXPECT_LT(instrument.ReceivedBytes().size(), much.size() / 2);
        instrument.ClearLog();
    }
}

TEST_F(SerialControls, APulledAdapterIsNoticedByWhateverIsUnderWay) {
    const std::function<void()> ways[] = {[this] { com.InBufferCount(); }, [this] { Send(much); },
                                          [this] { EXPECT_TRUE(QTest::qWaitFor([this] { return com.LineLost(); })); }};
    for (const auto& way : ways) {
        EXPECT_FALSE(com.LineLost());
        instrument.Vanish();
        way();
        EXPECT_TRUE(com.LineLost()) << &way - ways;
        EXPECT_EQ(Send("RM0\r"), State::Taken);  // nothing to wait for
        com.SetPortOpen(false);
        instrument.Stop();
        Plug();
    }
}

TEST(EventClock, WaitsItsTimeAndServesEventsButNoWaitWithinTheWait) {
    EventClock clock;
    qint32 nested = 10'000'000;
    QTimer::singleShot(5, [&] { clock.WaitMs(nested); });
    for (qint32 ms : {30, 10}) {
        const qint64 before = clock.NowMs();
        clock.WaitMs(ms);
        EXPECT_EQ(nested, 10'000);
        EXPECT_GE(clock.NowMs() - before, ms);
        EXPECT_LT(clock.NowMs() - before, 10'000);
    }
}

}  // namespace
