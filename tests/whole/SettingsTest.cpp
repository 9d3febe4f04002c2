#include "WholeBench.h"

namespace {

using WholeSettings = WholeBench;

// What is typed reaches the instrument, and what the instrument holds shows in every control.
TEST_F(WholeSettings, EveryGroupGoesOutAndComesBack) {
    auto& instrument = Connect();
    panel.Click("opsignal_8");
    panel.Enter("Text1", "50");  // kHz
    panel.Click("vunit_1");
    panel.Enter("Text2", "0.5");
    panel.Enter("Text4", "-0.125");
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
    panel.Click("Command7");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Lines(instrument).filter(QStringLiteral("date:")).size() == 1; }));
    instrument.With([](sim::Kl5276& unit) {
        EXPECT_EQ(unit.Take("sta?"), "PNK TR+ SW0 RFX AM0 PS1 RMS OT1");
        EXPECT_EQ(unit.state.ignoredTexts, 0U);
        unit.Take("frq:2500000");  // noise is sent without a frequency
    });
    program.panel = PanelState{};
    panel.form->RefreshPanel();
    panel.ExpectChecked({"opmodes_0", "opreference_0", "Opoutput_1"});
    ASSERT_TRUE(instrument.WaitForLine("OT0", std::chrono::seconds(20)));
    instrument.With([](sim::Kl5276& unit) { unit.Take("OT1"); });
    panel.Click("Command3");
    panel.ExpectChecked({"opsignal_8", "unit_2", "opmod_2", "opmodes_3", "opreference_1", "Opoutput_0", "Check1"});
    EXPECT_EQ(panel.Texts({"Text1", "Text2", "Text4", "Text8", "Text9"}), u"2.5000000000 0.50000 -0.1250 12.5 270.0");
    EXPECT_EQ(panel.Get<QLabel>("Label6")->text(), u"RMS");
    EXPECT_EQ(panel.Get<QLabel>("Label3")->text(), u"Output: On");
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(WholeSettings, ASweepsOwnValuesComeWithTheSecondRead) {
    Connect().With([](sim::Kl5276& unit) {
        for (const char* const command : {"fk1:3000000", "amx:33", "amx", "log", "sw1", "stt:5000000", "swt:12.5"}) {
            unit.Take(command);
        }
    });
    panel.Click("Command3");
    EXPECT_EQ(panel.Text("Text10"), u"1.0000000");
    panel.Click("Command3");
    EXPECT_EQ(panel.Texts({"Text10", "Text12", "Text5"}), u"5.0000000000 12.50  33");
    panel.ExpectChecked({"opmod_0", "opAmMod_1", "opwob_2"});
    EXPECT_EQ(program.panel.mhFreq, 3.0e6);
    EXPECT_FALSE(panel.Get("Text8")->isEnabled());
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

}  // namespace
