
#include "CtlBench.h"
#include "ctl/Commands.h"
#include "storage/SettingFile.h"

namespace {

using CtlCommands = CtlBench;

// The commands themselves, without the 5 ms of pacing after each of thousands of queries.
struct CtlMemories : CtlBench {
    Ended Move(Transfer transfer, const MemorySize& size, const char* file) {
        ::testing::internal::CaptureStdout();
        Session session({.port = Path("com1"), .timeoutMs = 60'000, .quiet = true});
        session.program.link.PaceDelayMs = 0;
        const int status = MoveMemory(session, transfer, size, Path(file));
        return {status, {QString::fromStdString(::testing::internal::GetCapturedStdout()).trimmed()}, {}};
    }
};

TEST_F(CtlMemories, GoToTheInstrumentAndComeBackFromIt) {
    auto& far = Plug(1, {});
    WriteTable("t.csv");
    EXPECT_EQ(Move(Transfer::Send, kMemory4k, "t.csv").status, 0);
    far.With([](sim::Kl5276& unit) {
        unit.Take("frq:1234");
        unit.state.memory4k[100] = 77;
    });
    const Ended differ = Move(Transfer::Compare, kMemory4k, "t.csv");
    EXPECT_EQ(differ.status, 3);
    EXPECT_EQ(differ.out.join(u' '),
              u"1 of 4096 points differ, the first at address 100: -1947 in the PC, 77 in the instrument");
    EXPECT_EQ(Move(Transfer::Read, kMemory4k, "m.set").status, 0);
    PanelState settings;
    ArbMemories memories;
    LoadSettingFile(Path("m.set"), settings, memories);
    EXPECT_EQ(settings.mFreq, 1234.0);
    EXPECT_EQ(memories.ArbMemory4[100], 77);
    EXPECT_EQ(memories.ArbMemory4[4095], -2047);
    // No setting file holds the last address of the large memory.
    const Ended compare = Run(u"--dry-run memory compare 16k " + Path("m.set"));
    EXPECT_EQ(compare.status, 0);
    EXPECT_EQ(compare.out.sliced(3, 2).join(u' '), u"arp16:16384=? arp16:0=?");
    EXPECT_EQ(Run(u"--dry-run memory compare 4k " + Path("t.csv")).status, 0);
    far.SetFaults({.garbledNumbers = true});
    EXPECT_EQ(Move(Transfer::Read, kMemory4k, "bad.csv").status, 1);
    EXPECT_FALSE(QFile::exists(Path("bad.csv")));
    // That takes minutes, so the file is looked at ahead of it.
    far.SetFaults({});
    far.ClearLog();
    for (const char* const words : {"memory read 16k /nowhere/x.csv", "save --memories /nowhere/x.set"}) {
        EXPECT_TRUE(Run(words).err.value(0).contains(u"/nowhere/x")) << words;
    }
    EXPECT_TRUE(Lines(far).isEmpty());
}

TEST_F(CtlCommands, SettingFilesAreThoseOfThePanel) {
    auto& far = Plug(1, {});
    auto& other = Plug(2, {});
    PanelState panelState;
    panelState.bmSignal = 1;
    panelState.mFreq = 2.5e6;
    ArbMemories memories;
    memories.ArbMemory4[7] = 700;
    memories.ArbMemory16[7] = 7;
    ASSERT_TRUE(SaveSettingFile(CreateSettingFile(Path("p.set")), panelState, memories));
    far.With([](sim::Kl5276& unit) { unit.Take("rfx"); });
    EXPECT_EQ(Run(u"load " + Path("p.set")).status, 0);
    far.With([](sim::Kl5276& unit) {
        EXPECT_EQ(unit.Take("sta?"), "SQR CTM SW0 RFX AM0 SK0 VPP OT0");
        EXPECT_EQ(unit.state.memory4k[7], 0);
        unit.Take("frq:1234");
    });
    EXPECT_EQ(Run(u"save " + Path("p.set")).status, 0);
    PanelState saved;
    ArbMemories kept;
    ASSERT_EQ(LoadSettingFile(Path("p.set"), saved, kept), LoadOutcome::Loaded);
    EXPECT_EQ(saved.mFreq, 1234.0);
    EXPECT_EQ(kept, memories);
    // A new one has zeros, whatever went through the same batch before.
    WriteTable("t.csv");
    const QString batch = u"memory send 4k " + Path("t.csv") + u"\nsave " + Path("new.set");
    EXPECT_EQ(Run("batch -", batch.toUtf8().constData()).status, 0);
    ASSERT_EQ(LoadSettingFile(Path("new.set"), saved, kept), LoadOutcome::Loaded);
    EXPECT_EQ(kept, ArbMemories{});
    EXPECT_EQ(Run(u"--port " + Path("com2") + u" load --memories " + Path("p.set")).status, 0);
    other.With([](sim::Kl5276& unit) { EXPECT_EQ(unit.state.memory4k[7] + unit.state.memory16k[7], 707); });
    panelState.mAmp = 0.25;
    ASSERT_TRUE(SaveSettingFile(CreateSettingFile(Path("p.set")), panelState, memories));
    far.ClearLog();
    EXPECT_EQ(Run(u"load --memories " + Path("p.set")).status, 2);
    EXPECT_EQ(Sent(far).join(u' '), u"RM0");
}

TEST_F(CtlCommands, WavesAreMadeByFormulaAndOfRecordings) {
    Write("scope.csv", "t (s);CH1 (V);CH2 (V)\n0;1,5;0\n0,001;-0,5;1\n0,002;1,5;4\n");
    EXPECT_EQ(Run(u"wave --formula 3*x-1 --size 16k -o " + Path("w.set")).err.size(), 1);  // some are cut
    PanelState settings;
    ArbMemories memories;
    ASSERT_EQ(LoadSettingFile(Path("w.set"), settings, memories), LoadOutcome::Loaded);
    EXPECT_EQ(memories.ArbMemory16[0], -2047);
    EXPECT_EQ(memories.ArbMemory16[8192], 1024);
    EXPECT_TRUE(Run(u"wave --formula 3*x-1 --full-range -o " + Path("w.set")).err.isEmpty());
    const Ended wave = Run(u"wave --recording " + Path("scope.csv") + u" --channel CH1 -o " + Path("w.set"));
    EXPECT_TRUE(wave.out.value(0).startsWith(u"frequency=499.8779"));
    EXPECT_EQ(wave.out.sliced(1).join(u' '), u"level=1.9995Vpp offset=500.2mV");
    ASSERT_EQ(LoadSettingFile(Path("w.set"), settings, memories), LoadOutcome::Loaded);
    EXPECT_EQ(memories.ArbMemory4[0], 2047);
    EXPECT_EQ(memories.ArbMemory16[8192], 1024);  // the other one stays
    EXPECT_EQ(Run(u"wave --recording " + Path("scope.csv") + u" --channel 3 --scale zero -o " + Path("w.csv")).status,
              0);
    EXPECT_TRUE(Content(Path("w.csv")).startsWith("address,value\n0,0\n"));
}

// A command line, and what its sentence says.
const std::pair<const char*, const char*> kWrong[]{
    {"", "subcommand"},
    {"bogus", "no command \"bogus\""},
    {"set", "ASSIGNMENT"},
    {"set frequency", "\"frequency\" sets nothing"},
    {"set level=1Vpp level-unit=Vrms", "contradicts"},
    {"set form=round", "choose one of sine, square"},
    {"set frequency=fast", "2.5kHz"},
    {"get colour", "no field \"colour\""},
    {"--rate 300 get", "--rate"},
    {"--timeout soon get", "10ms to 3600s"},
    {"--from x get", "--dry-run"},
    {"--dry-run --from /nowhere.set get", "/nowhere.set"},
    {"output maybe", "maybe"},
    {"sweep off 1k 2k 3s 4", "4"},
    {"sweep off 1k", "it is sent while a sweep is on"},
    {"memory send 8k x.csv", "8k"},
    {"memory send 4k %1/nowhere.set", "No such file"},
    {"memory send 4k %1/short.csv", "no sample for the address 4095"},
    {"memory send 16k %1/not.set", "neither a setting file nor a table"},
    {"memory read 4k %1/x.txt", ".set or .csv"},
    {"memory read 4k %1/not.set", "not a setting file"},
    {"load %1/nowhere.set", "no such file"},
    {"save %1/not.set", "not a setting file"},
    {"wave --formula sin( -o %1/w.csv", "the formula"},
    {"wave --formula x --recording y -o %1/w.csv", "recording"},
    {"wave --formula x -o %1/not.set", "not a setting file"},
    {"wave --recording %1/short.csv --channel CH9 -o %1/w.csv", "CH9"},
    {"wave --recording %1/two.csv -o %1/w.csv", "with --channel: column 2"},
    {"wave --recording %1/nowhere.csv -o %1/w.csv", "No such file"},
    {"batch %1/nowhere", "can't be read"},
    {"batch %1", "can't be read"},
    {"batch -", "line 2: a quote"}};

TEST_F(CtlCommands, WrongUsageEndsWithOneSentenceAndSendsNothing) {
    auto& far = Plug(1, {});
    WriteTable("short.csv", 4095);
    Write("not.set", "words");
    Write("two.csv", "t (s);CH1 (V);CH2 (V)\n0;1,5;0\n0,001;-0,5;1\n0,002;1,5;4\n");
    for (const auto& [words, sentence] : kWrong) {
        locale = locale == u"C" ? QStringLiteral("de_DE.UTF-8") : QStringLiteral("C");
        const Ended ended =
            Run(QString::fromLatin1(words).replace(QStringLiteral("%1"), folder.path()), "fields\nget 'form\n");
        EXPECT_EQ(ended.status, 2) << words;
        EXPECT_EQ(ended.err.size(), 1) << words << ended.err.join(u'\n');
        EXPECT_TRUE(ended.err.value(0).contains(QString::fromLatin1(sentence))) << words << ": " << ended.err.value(0);
        EXPECT_TRUE(Lines(far).filter(QStringLiteral(":")).isEmpty()) << words;
    }
    EXPECT_EQ(Content(Path("not.set")), "words");
}

TEST_F(CtlCommands, PortAndRateAreThoseOfThePanel) {
    Plug(3, {.rate = 9600, .silentOffRate = true});
    Preferences preferences;
    preferences.ComPortNumber = 3;
    preferences.ComBaudRate = 9600;
    Write("5276.def", EncodePreferences(preferences));
    ASSERT_TRUE(QFile::copy(Program(), Path("kl5276ctl")));
    const QString device = QFile::symLinkTarget(Path("com3"));
    QProcess process;
    process.start(Path("kl5276ctl"), {QStringLiteral("id")});
    EXPECT_EQ(End(process).out.sliced(2).join(u' '), QString(u"rate=9600 device=" + device));
    process.start(Path("kl5276ctl"), {QStringLiteral("ports")});
    EXPECT_EQ(End(process).out.filter(QStringLiteral("Com3")).join(u' '), QString(u"Com3  " + device + u"  ok"));
}

TEST_F(CtlCommands, ABatchIsOneConnectionAndEndsAtTheFirstFailure) {
    auto& far = Plug(1, {});
    const Ended ended =
        Run("--log batch -", "set frequency=1.5k\nget frequency\n# remark\nclock\nget --json form\nset form=x\nget\n");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.out.join(u' '), uR"(frequency=1.5kHz {"form":"sine"})");
    EXPECT_EQ(ended.err.filter(QStringLiteral("kl5276ctl: line 6: form has no \"x\"")).size(), 1);
    EXPECT_EQ(ended.err.filter(QStringLiteral(" > VER?")).size(), 1);
    EXPECT_EQ(ended.err.filter(QStringLiteral(" < V1.20 Kx")).size(), 1);
    EXPECT_TRUE(GivenBack(far));
    EXPECT_EQ(Lines(far).filter(QStringLiteral("RM0")).size(), 1);
    EXPECT_EQ(Lines(far).filter(QStringLiteral("date:")).size(), 1);
}

}  // namespace
