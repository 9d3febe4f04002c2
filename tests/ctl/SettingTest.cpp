#include "CtlBench.h"
#include "ctl/Change.h"
#include "storage/SettingFile.h"

namespace {

using CtlSettings = CtlBench;

// The hands of a user on the panel (a field with its text, or a control to click), and what says the same in a shell.
// Each row goes on from the one before.
const std::pair<std::vector<std::pair<const char*, const char*>>, const char*> kRows[]{
    {{{"opsignal_1", ""}, {"unit_2", ""}, {"Text1", "2.5"}}, "set form=square frequency=2.5MHz"},
    {{{"Text2", "1.2"}, {"Text4", "-0.1"}, {"Check1", ""}}, "set level=1.2Vpp offset=-0,1"},
    {{{"Text2", "15"}, {"Text4", "4"}}, "set --clamp level=15 offset=4V"},
    {{{"Text2", "19"}}, "set level=19 --clamp"},
    {{{"Text2", "0.06"}}, "set level=60mVpp --clamp"},
    {{{"Text4", "0"}, {"Check1", ""}, {"Text2", "2.0"}}, "set level=2 offset=off"},
    {{{"Opoutput_0", ""}, {"opmodes_3", ""}, {"opreference_1", ""}},
     "set output=on mode=trigger-rising reference=external"},
    {{{"opwob_1", ""}, {"Text10", "2"}, {"Text11", "60"}, {"Text12", "12.5"}}, "sweep lin 2kHz 60kHz 12.5s"},
    {{{"opwob_2", ""}, {"Text12", "50"}}, "set sweep=log sweep-time=50s --clamp"},
    {{{"opwob_0", ""}}, "sweep off"},
    {{{"opmod_2", ""}, {"Text8", "12.5"}, {"Text9", "359.95"}}, "psk 12.5 359.95deg --clamp"},
    {{{"opmod_1", ""}, {"Text6", "1.5"}, {"Text7", "3"}}, "fsk 1.5kHz 3000"},
    {{{"Text2", "15"}}, "set level=15"},
    {{{"opmod_0", ""}, {"opAmMod_1", ""}, {"Text5", "33"}}, "am external 33% --clamp"},
    {{{"opmod_0", ""}}, "am internal"},
    {{{"opmod_3", ""}}, "modulation off"},
    {{{"opsignal_8", ""}, {"vunit_1", ""}, {"Text2", "0.5"}}, "set form=pink level=0.5Vrms"},
    {{{"opsignal_2", ""}, {"Text1", "2"}}, "set form=triangle frequency=2MHz --clamp"},
    {{{"opsignal_0", ""}, {"Text1", "20"}}, "set form=sine frequency=20MHz --clamp"},
};

// The lines of a Set with its read-back; the command reads first, and gives the instrument back.
TEST_F(CtlSettings, ThePanelAndTheCommandSendTheSameForTheSameState) {
    auto& far = Plug(1, {.rate = 19200});
    auto& instrument = Connect();
    clock.paces = false;
    for (const auto& [steps, shell] : kRows) {
        for (const auto& [control, text] : steps) {
            panel.ShowTab(QByteArray(control).startsWith("opmod_") || QByteArray(control).startsWith("opAm") ? 1 : 2);
            *text == '\0' ? panel.Click(control) : panel.Enter(control, text);
        }
        ASSERT_TRUE(Activate(&*panel.form));
        panel.Get("Text1")->setFocus();
        QTest::qWait(0);
        instrument.ClearLog();
        far.ClearLog();
        panel.Click("Command4");
        const Ended ended = Run(shell);
        EXPECT_EQ(ended.status, 0) << shell << ": " << ended.err.join(u'\n');
        QStringList lines = Lines(instrument) + QStringList(QStringLiteral("RM0"));
        if (lines.first() == u"OT1") {
            lines.removeFirst();  // of the click, which acts at once
        }
        EXPECT_TRUE(GivenBack(far));
        EXPECT_EQ(Lines(far).last(lines.size()), lines) << shell;
        EXPECT_EQ(ended.err.isEmpty(), !QByteArray(shell).contains("--clamp")) << shell;
    }
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(CtlSettings, WhatCannotBeSetAsItIsIsRefusedAndNothingIsSent) {
    auto& far = Plug(1, {.rate = 19200});
    far.With([](sim::Kl5276& unit) { unit.Take("ofs:0.4"); });
    const std::pair<const char*, const char*> rows[]{
        {"set frequency=20MHz form=square", "the panel holds it at 15MHz"},
        {"set level=25Vpp", "20Vpp"},
        {"set level=0.45Vpp", "level=450mVpp goes out as"},
        {"set offset=0.6", "offset=600mV does not go with the rest"},
        {"set level=1.5", "level=1.5Vpp does not go with the rest and becomes 1.2Vpp"},
        {"am internal", "cannot be superimposed to an AM signal"},
        {"set am-depth=50%", "it is sent while the modulation is am"},
        {"set sweep=lin frequency=1k", "frequency=1kHz is not sent now: it is sent while no sweep is on"},
        {"set frequency=0.00015", "frequency=150uHz goes out as"},
        {"set level-unit=Vrms", "goes out as"},
        {"set form=triangle frequency=2M", "frequency=2MHz goes out as 1MHz"}};
    for (const auto& [words, sentence] : rows) {
        const Ended ended = Run(words);
        EXPECT_EQ(ended.status, 2) << words;
        EXPECT_TRUE(ended.out.isEmpty()) << words;
        EXPECT_TRUE(ended.err.value(0).contains(QString::fromLatin1(sentence))) << ended.err.join(u'\n');
        EXPECT_TRUE(ended.err.value(0).endsWith(u"Nothing was set; --clamp sets it so")) << words;
        const QStringList sent = Sent(far);
        EXPECT_TRUE(sent.isEmpty() || sent == QStringList(QStringLiteral("RM0"))) << words << ": " << sent.join(u' ');
    }
    // The instrument makes 0.0071 of the 0.0 that stood on the line.
    const Ended differs = Run("set --clamp offset=off level=0.01Vrms");
    EXPECT_EQ(differs.status, 3);
    EXPECT_EQ(differs.err.last(), u"kl5276ctl: level=0Vrms was sent, the instrument reports 7.1mVrms");
}

// As a click on the panel's unit does: a level below the least one would go out in the range of the largest.
TEST(CtlPlans, AnotherUnitHoldsTheLevel) {
    PanelState panel;
    panel.tmVPP = kFalse;
    panel.mAmp = 0.0071;
    QString fault;
    const Plan plan = PlanChange(panel, *ReadAssignment(QStringLiteral("level-unit=Vpp"), fault));
    EXPECT_EQ(plan.state.mAmp, 0.02);
    EXPECT_TRUE(plan.remarks.value(0).contains(u"has to give way and becomes 20mVpp (Min. Level: 0.0200)"));
    PanelState sent = plan.state;
    EXPECT_TRUE(SettingLines(sent).contains(u"amp:0.02"));
}

// Sweep values that only the instrument knows stay, and so does the frequency behind a sweep.
TEST_F(CtlSettings, WhatIsNotNamedStaysAsTheInstrumentHasIt) {
    auto& far = Plug(1, {.rate = 9600});
    far.With([](sim::Kl5276& unit) {
        for (const char* const command : {"frq:5000", "stt:200", "log", "sw1", "fk1:3000", "vrms", "amp:0.5"}) {
            unit.Take(command);
        }
    });
    EXPECT_EQ(Run("get frequency sweep sweep-start fsk-hop level").out.join(u' '),
              u"frequency=5kHz sweep=log sweep-start=200Hz fsk-hop=3kHz level=500mVrms");
    EXPECT_EQ(Run("get level level-unit sweep --json").out.join(u' '),
              uR"({"level":0.5,"level-unit":"Vrms","sweep":"log"})");
    EXPECT_EQ(Run("set sweep=lin").status, 0);
    EXPECT_EQ(Run("output on").status, 0);
    EXPECT_EQ(Run("sweep off").status, 0);
    far.With([](sim::Kl5276& unit) {
        EXPECT_EQ(unit.Take("sta?"), "SIN CTM SW0 RFI AM0 SK0 RMS OT1");
        EXPECT_EQ(unit.Take("frq?"), "5000.0000");
        EXPECT_EQ(unit.Take("stt?"), "200.0000");
    });
    EXPECT_EQ(Run("id").out.first(3).join(u' '), u"model=KL5276-2 version=V1.20 Kx rate=9600");
    for (const auto& [command, word] : {std::pair("amx", "am-external"), {"ami", "am-internal"}, {"psk1", "psk"}}) {
        far.With([command = command](sim::Kl5276& unit) { unit.Take("am0"), unit.Take(command); });
        EXPECT_EQ(Run("get modulation").out.join(u' '), QString(u"modulation=" + QString::fromLatin1(word)));
    }
}

// Commands that start from the defaults of both sides, and one in a batch.
TEST_F(CtlSettings, ADryRunPrintsTheLinesThatWouldBeSent) {
    WriteTable("t.csv");
    const QStringList commands{
        QStringLiteral("get"), QStringLiteral("set form=arb4 sweep=lin offset=0.25"), QStringLiteral("output on"),
        QStringLiteral("id"),  QStringLiteral("memory send 4k ") + Path("t.csv"),     QStringLiteral("batch -")};
    for (const QString& words : commands) {
        const char* const input = "psk 1 2\nsweep lin 1k 2k 3s # and back\n\nsweep off\n";
        const Ended dry = Run(u"--dry-run " + words, input);
        auto& far = Plug(1, {});
        const Ended real = Run(words, input);
        EXPECT_EQ(dry.status, real.status) << words;
        EXPECT_TRUE(GivenBack(far));
        EXPECT_EQ(dry.out, Lines(far)) << words;
        far.Stop();
    }
    PanelState panelState;
    panelState.mFreq = 5000.0;
    ASSERT_TRUE(SaveSettingFile(CreateSettingFile(Path("p.set")), panelState, ArbMemories{}));
    const QStringList from = Run(u"--dry-run set level=2 --from " + Path("p.set")).out;
    EXPECT_EQ(from.filter(QStringLiteral(":")).join(u' '), u"frq:00005000.0000 amp:0.21 ofs:0 amp:2.0");
    ASSERT_EQ(Run(QStringLiteral("--dry-run wave --formula x -o ") + Path("w.set")).status, 0);
    EXPECT_FALSE(QFile::exists(Path("w.set")));
    EXPECT_EQ(Run(QStringLiteral("--dry-run memory read 4k ") + Path("w.csv")).out.mid(3, 4096).last(), u"arp4:4095=?");
    EXPECT_FALSE(QFile::exists(Path("w.csv")));
}

}  // namespace
