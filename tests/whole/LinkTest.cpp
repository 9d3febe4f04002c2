#include "WholeBench.h"

namespace {

using WholeLink = WholeBench;

TEST_F(WholeLink, TheSearchFindsTheRateThroughNoiseAndReadsAndGivesBack) {
    auto& instrument = Plug(2, {.rate = 38400, .versionText = " V7 "});
    instrument.With([](sim::Kl5276& unit) { unit.state.frequency = 12345.5; });
    Open();
    panel.Click("cRM");
    EXPECT_EQ(panel.form->windowTitle(), u"KL5276 - V1.02       Unit:V7");
    EXPECT_EQ(panel.Text("Text1"), u"12.3455000");
    EXPECT_EQ(program.preferences.ComBaudRate, 38400);
    EXPECT_EQ(Lines(instrument).join(u' '), u"ID? ID? VER? " + kReadBackQueries);  // understood at its own rate alone
    panel.Click("cRM");
    EXPECT_TRUE(GivenBack(instrument));
    EXPECT_EQ(panel.form->windowTitle(), u"KL5276 - V1.02       Offline");
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(WholeLink, AQueryBehindMuchOutputWaitsForTheLine) {
    auto& instrument = Connect({.realTime = true}, 4800);
    for (int i = 0; i < 2000; ++i) {  // 4.6 s on the line
        com.Output('\r');
    }
    panel.Click("Command3");
    EXPECT_TRUE(desktop.boxes.isEmpty());
    const std::string last(99, 'x');
    for (const char character : last + '\r') {
        com.Output(character);
    }
    QElapsedTimer elapsed;
    elapsed.start();
    com.SetPortOpen(false);  // sends what is in line, and gives it its time
    EXPECT_GE(elapsed.elapsed(), 100 * 11 * 1000 / 4800);
    EXPECT_TRUE(instrument.WaitForLine(last, std::chrono::seconds(20)));
}

TEST_F(WholeLink, AutosearchFindsTheInstrumentsPort) {
    auto& other = Plug(1, {.model = "DMM"});
    auto& instrument = Plug(3, {.rate = 9600});
    QFile::link(QStringLiteral("/dev/nothing"), folder.filePath(QStringLiteral("com2")));
    Open();
    panel.Get<QAction>("mnucom")->trigger();
    EXPECT_TRUE(panel.Get("port_2")->toolTip().endsWith(u"missing"));
    EXPECT_EQ(panel.Get("port_3")->toolTip(), QString::fromStdString(instrument.DevicePath()));
    panel.Click("Command1");
    EXPECT_EQ(desktop.boxes, QStringList({QStringLiteral("Serial - Error|Unit not found"),
                                          QStringLiteral("Serial - Error| Can not open com. port"),
                                          QStringLiteral("Autosearch|Unit found at port:  3   Baud:  9600")}));
    EXPECT_TRUE(panel.Checked("cRM"));
    EXPECT_EQ(Lines(other).count(QStringLiteral("ID?")), 6);  // at the port's rate, then at all five

    // The dialog confirmed while linked: given back, and connected again.
    instrument.ClearLog();
    panel.Get<QAction>("mnucom")->trigger();
    panel.Click("cbok");
    EXPECT_EQ(Lines(instrument).join(u' '), u"RM0 ID? ID? VER?");
}

TEST_F(WholeLink, At4800BaudInACommaLocaleASetAndTheLastWordArriveWhole) {
    auto& instrument = Connect({.realTime = true}, 4800, QLocale(QLocale::German));
    panel.ShowTab(2);
    panel.Click("opwob_2");
    panel.Enter("Text2", "7");
    panel.Click("Command4");
    panel.form->close();
    EXPECT_TRUE(GivenBack(instrument));
    EXPECT_EQ(QString::fromStdString(instrument.ReceivedBytes()).replace(u'\r', u' '),
              u"sin ctm stt:1000.0000 stp:50000.0000 swt:1.00 log sw1 rfi am0 psk0 fsk0 amp:2.01 ofs:0 vpp amp:7.0 OT0 "
              u"stt? stp? swt? amt? fk0? fk1? ph0? ph1? sta? amp? OFS? RM0 ");
    EXPECT_EQ(desktop.boxes.size(), 1);  // the question at the end
}

}  // namespace
