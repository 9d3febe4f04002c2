#include "WholeBench.h"

namespace {

using WholeSettings = WholeBench;

const QString kDefaultSet = QStringLiteral(
    "sin\rctm\rSW0\rrfi\ram0\rpsk0\rfsk0\rfrq:00001000.0000\ramp:0.21\rofs:0\rvpp\ramp:1.0\rOT0\r"
    "amt?\rfk0?\rfk1?\rph0?\rph1?\rsta?\ramp?\rOFS?\rfrq?\r");

TEST_F(WholeSettings, ADefaultSetPutsExactlyThisOnTheWire) {
    auto& instrument = Connect();
    panel.Click("Command4");
    EXPECT_EQ(QString::fromStdString(instrument.ReceivedBytes()), kDefaultSet);
}

TEST_F(WholeSettings, ACommaLocalePutsTheSameOnTheWire) {
    auto& instrument = Connect({}, 19200, QLocale(QLocale::German, QLocale::Germany));
    panel.Click("Command4");
    EXPECT_EQ(QString::fromStdString(instrument.ReceivedBytes()), kDefaultSet);
    EXPECT_EQ(panel.Text("Text1"), u"1,0000000");
    instrument.ClearLog();
    panel.Click("Command7");
    ASSERT_TRUE(instrument.WaitForLines(2, std::chrono::seconds(10)));
    const QStringList lines = Lines(instrument);
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^time:\\d\\d,\\d\\d$")).match(lines.at(0)).hasMatch());
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^date:\\d\\d,\\d\\d,\\d\\d$")).match(lines.at(1)).hasMatch());
    instrument.With([](const sim::Kl5276& unit) { EXPECT_EQ(unit.state.ignoredTexts, 0U); });
}

TEST_F(WholeSettings, WhatIsTypedInEveryGroupReachesTheInstrument) {
    auto& instrument = Connect();
    panel.Click("opsignal_4");
    panel.Enter("Text1", "50");  // kHz
    panel.Enter("Text2", "5");
    panel.Enter("Text4", "-1.5");
    panel.Click("Check1");
    panel.ShowTab(1);
    panel.Click("opmod_2");
    panel.Enter("Text8", "12.5");
    panel.Enter("Text9", "270");
    panel.ShowTab(2);
    panel.Click("opmodes_3");
    panel.Click("opreference_1");
    panel.Click("Opoutput_0");
    panel.Click("Command4");
    instrument.With([](const sim::Kl5276& unit) {
        const sim::InstrumentState& state = unit.state;
        EXPECT_EQ(state.signal, sim::Signal::RampDown);
        EXPECT_DOUBLE_EQ(state.frequency, 50000.0);
        EXPECT_DOUBLE_EQ(state.level, 5.0);
        EXPECT_DOUBLE_EQ(state.offsetVolts, -1.5);
        EXPECT_TRUE(state.offsetOn);
        EXPECT_EQ(state.keying, sim::Keying::Phase);
        EXPECT_DOUBLE_EQ(state.phase0, 12.5);
        EXPECT_DOUBLE_EQ(state.phase1, 270.0);
        EXPECT_EQ(state.mode, sim::Mode::TriggerRising);
        EXPECT_FALSE(state.internalReference);
        EXPECT_TRUE(state.outputOn);
        EXPECT_EQ(state.ignoredTexts, 0U);
    });
    EXPECT_EQ(panel.Text("Text4"), u"-1.5000");
    EXPECT_TRUE(panel.Checked("opmod_2"));
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(WholeSettings, WhatTheInstrumentHoldsShowsInEveryControl) {
    auto& instrument = Connect();
    instrument.With([](sim::Kl5276& unit) {
        sim::InstrumentState& state = unit.state;
        state.signal = sim::Signal::PinkNoise;
        state.frequency = 2.5e6;
        state.levelUnit = sim::LevelUnit::Vrms;
        state.level = 0.5;
        state.offsetVolts = 0.125;
        state.offsetOn = true;
        state.keying = sim::Keying::Frequency;
        state.carrierFrequency = 777.0;
        state.hopFrequency = 3.0e6;
        state.mode = sim::Mode::GateLow;
        state.internalReference = false;
        state.outputOn = true;
    });
    panel.Click("Command3");
    for (const char* const option : {"opsignal_8", "unit_2", "opmod_1", "opmodes_2", "opreference_1", "Opoutput_0",
                                     "Check1", "ocFreq_0", "ohFreq_2"}) {
        EXPECT_TRUE(panel.Checked(option)) << option;
    }
    const std::pair<const char*, const char*> texts[] = {{"Text1", "2.5000000000"},
                                                         {"Text2", "0.50000"},
                                                         {"Text4", "0.1250"},
                                                         {"Text6", "777.0000"},
                                                         {"Text7", "3.0000000000"}};
    for (const auto& [field, text] : texts) {
        EXPECT_EQ(panel.Text(field), QLatin1StringView(text)) << field;
    }
    EXPECT_EQ(panel.Get<QLabel>("Label6")->text(), u"RMS");
    EXPECT_EQ(panel.Get<QLabel>("Label3")->text(), u"Output: On");

    // External AM and a sweep: the sweep's own values come with the next read.
    instrument.With([](sim::Kl5276& unit) {
        sim::InstrumentState& state = unit.state;
        state.keying = sim::Keying::Off;
        state.am = sim::AmSource::External;
        state.amDepth = 33;
        state.offsetOn = false;
        state.sweep = sim::Sweep::Logarithmic;
        state.sweepStart = 5.0e6;
        state.sweepTime = 12.5;
    });
    panel.Click("Command3");
    EXPECT_EQ(panel.Text("Text10"), u"1.0000000");
    panel.Click("Command3");
    EXPECT_EQ(panel.Text("Text10"), u"5.0000000000");
    EXPECT_EQ(panel.Text("Text12"), u"12.50");
    EXPECT_EQ(panel.Text("Text5"), u" 33");
    EXPECT_EQ(program.panel.bmAmpMod, 1);
    for (const char* const option : {"opmod_0", "opAmMod_1", "opwob_2"}) {
        EXPECT_TRUE(panel.Checked(option)) << option;
    }
    EXPECT_TRUE(panel.Get("Text10")->isEnabled());
    EXPECT_FALSE(panel.Get("Text6")->isEnabled());
}

}  // namespace
