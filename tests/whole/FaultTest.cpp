#include "WholeBench.h"

namespace {

using WholeFaults = WholeBench;

// The button or menu item, the lines that are still served, and what fails.
TEST_F(WholeFaults, AnAdapterPulledInTheMiddleGivesOneBoxAndAnotherTryStartsAfresh) {
    auto& instrument = Connect();
    for (const auto& [control, served, error] : {std::tuple("Command4", 5U, u"read error ( amt?\r )"),
                                                 {"Command3", 3U, u"read error ( ph0?\r )"},
                                                 {"mnuStArb4", 300U, u"send error ( are )"}}) {
        desktop.boxes.clear();
        instrument.ClearLog();
        instrument.SetFaults({.vanishAfterLines = served});
        if (auto* const item = panel.form->findChild<QAction*>(QString::fromLatin1(control))) {
            item->trigger();
        } else {
            panel.Click(control);
        }
        EXPECT_EQ(desktop.boxes, QStringList(QStringLiteral("Serial - Error| Data %1").arg(error)));
        EXPECT_EQ(Lines(instrument).size(), served);
        EXPECT_FALSE(panel.Checked("cRM"));
        EXPECT_EQ(program.link.LinkUp, 0);
        panel.Enter("Text1", "5");  // the panel stays usable
        EXPECT_EQ(program.panel.mFreq, 5000.0);
        instrument.SetFaults({});
        Replug(instrument);
        panel.Click("cRM");
        panel.Click("Command3");
        EXPECT_EQ(program.link.LinkUp, 1);
        EXPECT_EQ(desktop.boxes.size(), 1);
    }
}

TEST_F(WholeFaults, AnEndlessReplyAndAPullWhileIdleLeaveTheSwitchUsable) {
    auto& instrument = Connect();
    instrument.SetFaults({.garbledNumbers = true});
    panel.Click("Command3");
    EXPECT_EQ(program.panel.mFreq, 0.0);
    instrument.SetFaults({.endlessReply = true});
    panel.Click("Command3");
    EXPECT_EQ(desktop.boxes, QStringList(QStringLiteral("Serial - Error| Data read error ( amt?\r )")));
    instrument.SetFaults({});
    panel.Click("cRM");
    EXPECT_EQ(program.link.LinkUp, 1);
    instrument.Vanish();
    ASSERT_TRUE(QTest::qWaitFor([this] { return com.LineLost(); }));
    panel.Click("cRM");  // off: nothing to give back, no box
    EXPECT_EQ(desktop.boxes.size(), 1);
    EXPECT_EQ(program.link.LinkUp, 0);
    EXPECT_FALSE(com.PortOpen());
    for (const char* const control : {"Opoutput_1", "Command7"}) {  // no query would tell that it did not arrive
        Replug(instrument);
        panel.Click("cRM");
        desktop.boxes.clear();
        instrument.Vanish();
        ASSERT_TRUE(QTest::qWaitFor([this] { return com.LineLost(); }));
        panel.Click(control);
        EXPECT_EQ(desktop.boxes.size(), 1) << control;
        EXPECT_EQ(program.link.LinkUp, 0);
    }
}

}  // namespace
