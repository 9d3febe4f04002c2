#include "LinkBench.h"

namespace {

struct Commands : LinkBench {
    Commands() { ConnectSilently(); }

    QString Sent(void (SettingCommands::*send)()) {
        line.wire.clear();
        (link.commands.*send)();
        return line.Lines().join(u' ');
    }
};

TEST_F(Commands, EveryValueOfAnEnumerationHasItsWord) {
    for (const char16_t* const word :
         {u"sin", u"sqr", u"tri", u"rmp", u"rmn", u"arb4", u"arb16", u"noise", u"pink", u"pink"}) {
        EXPECT_EQ(Sent(&SettingCommands::SendSignal), word);
        ++panel.bmSignal;
    }
    for (const char16_t* const word : {u"ctm", u"gtm+", u"gtm-", u"trm+", u"trm-", u"trm-"}) {
        EXPECT_EQ(Sent(&SettingCommands::SendMode), word);
        ++panel.bmMode;
    }
    link.commands.SetClock([] { return QDateTime(QDate(2026, 3, 7), QTime(9, 5)); });
    EXPECT_EQ(Sent(&SettingCommands::SendTimeDate), u"time:09,05 date:07,03,26");
}

TEST_F(Commands, ModulationSendsBothHalves) {
    const std::tuple<quint8, quint8, const char*> cases[] = {
        {0, 0, "am0 psk0 fsk0"},
        {1, 0, "psk0 fsk0 amx:50 amx psk0 fsk0"},
        {2, 0, "psk0 fsk0 ami:50 ami psk0 fsk0"},
        {0, 1, "am0 am0 fsk0 ph0:090.0 ph1:180.0 psk1"},
        {0, 2, "am0 am0 psk0 fk0:00001000.0000 fk1:00001100.0000 fsk1"}};
    for (const auto& [bmAmpMod, bmFMod, sent] : cases) {
        panel.bmAmpMod = bmAmpMod;
        panel.bmFMod = bmFMod;
        EXPECT_EQ(Sent(&SettingCommands::SendModulation), QLatin1StringView(sent));
    }
}

TEST_F(Commands, LevelGoesOutBehindTheFloorOfItsRange) {
    const std::tuple<double, Truth, const char*> cases[] = {
        {0.06, kTrue, "amp:0.02 ofs:0 vpp amp:0.1"},     {0.205, kTrue, "amp:2.01 ofs:0 vpp amp:0.2"},
        {1.0, kTrue, "amp:0.21 ofs:0 vpp amp:1.0"},      {12.0, kTrue, "amp:2.01 ofs:0 vpp amp:12.0"},
        {0.0071, kFalse, "amp:0.01 ofs:0 vrms amp:0.0"}, {0.7, kFalse, "amp:0.07 ofs:0 vrms amp:0.7"},
        {5.0, kFalse, "amp:0.71 ofs:0 vrms amp:5.0"}};
    program.numbers = UserNumbers(QLocale(QLocale::German, QLocale::Germany));
    for (const auto& [level, vpp, sent] : cases) {
        panel.mAmp = level;
        panel.tmVPP = vpp;
        EXPECT_EQ(Sent(&SettingCommands::SendLevel), QLatin1StringView(sent));
    }
    panel.tmOffset = kTrue;
    panel.mOffset = -0.25;
    EXPECT_EQ(Sent(&SettingCommands::SendLevel), u"amp:0.71 ofs:-0.2500 vrms amp:5.0");
}

TEST_F(Commands, SetCutsTheTriangularSignalAloneAndSendsNoiseNoFrequency) {
    for (const auto& [bmSignal, before, after, frequency] : {std::tuple(2, 2.0e6, 1.0e6, u"frq:01000000.0000"),
                                                             {2, 1.0e6, 1.0e6, u"frq:01000000.0000"},
                                                             {3, 5.0e6, 5.0e6, u"frq:05000000.0000"},
                                                             {6, 15.0e6, 15.0e6, u"frq:15000000.0000"},
                                                             {7, 2.0e6, 2.0e6, u""},
                                                             {8, 2.0e6, 2.0e6, u""}}) {
        panel.bmSignal = static_cast<quint8>(bmSignal);
        panel.mFreq = before;
        Sent(&SettingCommands::SendAllToUnit);
        EXPECT_EQ(line.Lines().filter(QStringLiteral("frq")).join(u' '), frequency);
        EXPECT_EQ(panel.mFreq, after);
    }
}

TEST_F(Commands, WithoutALinkOnlySweepOffGoesOut) {
    state.LinkUp = 0;
    panel.bmWobbel = 1;
    EXPECT_EQ(Sent(&SettingCommands::SendAllToUnit), u"SW0");
    EXPECT_EQ(Sent(&SettingCommands::SendTimeDate), QString());
}

}  // namespace
