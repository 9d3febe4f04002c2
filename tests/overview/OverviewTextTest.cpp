#include <gtest/gtest.h>

#include <string>

#include "overview/OverviewText.h"

namespace {

const std::string kNoSweep = "Sweep: Off\r\n\r\n";
const std::string kNoAm = "Amplitude modulation: Off\r\n\r\n";
const std::string kNoKeying = "FSK/PSK modulation: Off\r\n\r\n";
const std::string kEnd = "Reference frequency: Internal\r\nMode: Free running";
const std::string kSweep = "\r\nSweep start freq: 1000.0000\r\nSweep stop freq: 50000.0000\r\nSweep time: 1.00\r\n\r\n";

TEST(OverviewText, TellsTheWholeSetting) {
    const std::tuple<std::string, quint8, quint8, quint8, const char*> cases[]{
        {kNoSweep + kNoAm + kNoKeying + kEnd, 0, 0, 0, "C"},
        {"Sweep: Linear" + kSweep + kNoAm + kNoKeying + kEnd, 1, 0, 0, "C"},
        {"Sweep: Logarithmic" + kSweep + kNoAm + kNoKeying + kEnd, 7, 0, 0, "C"},
        {kNoSweep + "Amplitude modulation: External\r\nModulation depth: 50.0\r\n\r\n" + kNoKeying + kEnd, 0, 1, 0,
         "C"},
        {kNoSweep + "Amplitude modulation: Internal\r\nModulation depth: 50,0\r\n\r\n" +
             "PSK modulation: On\r\nPhase0 : 90,0\r\nPhase1 : 180,0\r\n\r\n" + kEnd,
         0, 2, 1, "de"}};
    for (const auto& [expected, bmWobbel, bmAmpMod, bmFMod, locale] : cases) {
        const PanelState panel{.bmWobbel = bmWobbel, .bmAmpMod = bmAmpMod, .bmFMod = bmFMod};
        const UserNumbers numbers(QLocale(QString::fromLatin1(locale)));
        EXPECT_EQ(OverviewText(panel, numbers).toStdString(), expected);
    }
}

TEST(OverviewText, HopFollowsTheCarriersUnit) {
    const std::tuple<double, double, const char*, const char*> cases[]{
        {1000, 1100, "1.0000000kHz", "1.1000000kHz"},
        {500, 2e6, "500.0000Hz", "2000000.0000Hz"},
        {2e6, 500, "2.0000000000MHz", "0.0005000000MHz"}};
    for (const auto& [mcFreq, mhFreq, carrier, hop] : cases) {
        const PanelState panel{.bmFMod = 2, .mcFreq = mcFreq, .mhFreq = mhFreq};
        const QString lines = QStringLiteral("FSK modulation: On\r\nCarrier frequency: %1\r\nHop frequency: %2\r\n\r\n")
                                  .arg(QLatin1String(carrier), QLatin1String(hop));
        EXPECT_TRUE(OverviewText(panel, UserNumbers(QLocale::c())).contains(lines)) << carrier;
    }
}

TEST(OverviewText, TellsReferenceAndMode) {
    PanelState panel;
    panel.tmIntRef = kFalse;
    for (const char* const mode : {"Free running", "Gated 1", "Gated 0", "Triggered positive slope",
                                   "Triggered negative slope", "Triggered negative slope"}) {
        const QString end = QStringLiteral("Off\r\n\r\nReference frequency: External\r\nMode: ") + QLatin1String(mode);
        EXPECT_TRUE(OverviewText(panel, UserNumbers(QLocale::c())).endsWith(end)) << mode;
        ++panel.bmMode;
    }
}

}  // namespace
