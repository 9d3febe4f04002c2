#include "overview/OverviewText.h"
#include "support/PrintQt.h"

namespace {

const PanelState kHertz{.bmFMod = 2, .mcFreq = 500, .mhFreq = 2e6};
const PanelState kMegahertz{.bmFMod = 2, .mcFreq = 2e6, .mhFreq = 500};

TEST(OverviewText, TellsTheWholeSettingInFourBlocks) {
    const QString noSweep = QStringLiteral("Sweep: Off||");
    const QString noAm = QStringLiteral("Amplitude modulation: Off||");
    const QString noKeying = QStringLiteral("FSK/PSK modulation: Off||");
    const QString end = QStringLiteral("Reference frequency: Internal|Mode: Free running");
    const QString sweep = QStringLiteral("|Sweep start freq: 1000.0000|Sweep stop freq: 50000.0000|Sweep time: 1.00||");
    const QString fsk = noSweep + noAm + u"FSK modulation: On|Carrier frequency: %1|Hop frequency: %2||" + end;
    const std::tuple<QString, PanelState, const char*> cases[]{
        {noSweep + noAm + noKeying + end, {}, "C"},
        {u"Sweep: Linear" + sweep + noAm + noKeying + end, {.bmWobbel = 1}, "C"},
        {u"Sweep: Logarithmic" + sweep + noAm + noKeying + end, {.bmWobbel = 7}, "C"},
        {noSweep + u"Amplitude modulation: External|Modulation depth: 50.0||" + noKeying + end, {.bmAmpMod = 1}, "C"},
        {noSweep + u"Amplitude modulation: Internal|Modulation depth: 50,0||" +
             u"PSK modulation: On|Phase0 : 90,0|Phase1 : 180,0||" + end,
         {.bmAmpMod = 2, .bmFMod = 1},
         "de"},
        {fsk.arg(u"1.0000000kHz", u"1.1000000kHz"), {.bmFMod = 2}, "C"},
        {fsk.arg(u"500.0000Hz", u"2000000.0000Hz"), kHertz, "C"},
        {fsk.arg(u"2.0000000000MHz", u"0.0005000000MHz"), kMegahertz, "C"}};
    for (const auto& [expected, panel, locale] : cases) {
        const UserNumbers numbers(QLocale(QString::fromLatin1(locale)));
        EXPECT_EQ(OverviewText(panel, numbers).replace(QStringLiteral("\r\n"), QStringLiteral("|")), expected);
    }
}

TEST(OverviewText, EndsWithReferenceAndMode) {
    PanelState panel{.tmIntRef = kFalse};
    for (const char* const mode : {"Free running", "Gated 1", "Gated 0", "Triggered positive slope",
                                   "Triggered negative slope", "Triggered negative slope"}) {
        EXPECT_EQ(OverviewText(panel, UserNumbers(QLocale::c())).section(QStringLiteral("\r\n"), -2),
                  u"Reference frequency: External\r\nMode: " + QString::fromLatin1(mode));
        ++panel.bmMode;
    }
}

}  // namespace
