#include "EditorBench.h"
#include "waveform/Spline.h"

namespace {

struct Signal : EditorBench {
    // The look of the mode that works on this file.
    void ExpectMode(const QString& file) {
        EXPECT_EQ(form->windowTitle(), u"Arbitrary Editor    " + file);
        EXPECT_EQ(Checked("opEditmode_0"), file == set);
        EXPECT_EQ(Get("opPenmode_2")->isEnabled(), file == set);
        EXPECT_EQ(Get("Opintmode_1")->isEnabled(), file != set);
        EXPECT_TRUE(Checked("opPenmode_0"));
    }
};

TEST_F(Signal, SwitchingTheModeChangesNeitherFile) {
    const QString memory = Rows(set, "ARB4");
    Click("opPenmode_1");
    EditSignal("(0, 5), (2000, -900), (4095, 0)");
    ExpectMode(con);
    EXPECT_EQ(program.memories.ArbMemory4[2000], -900);  // as the picture shows it
    Click("opEditmode_0");
    Tick();
    ExpectMemory("1999=999 2000=0 2001=1");
    Open();
    ExpectMode(set);
    desktop.boxes.clear();
    Click("opEditmode_1");  // without a question: the name holds to the end of the program
    ExpectMode(con);
    form->FollowSettingFile();
    ExpectMode(set);
    EXPECT_EQ(Rows(set, "ARB4"), memory);
    EXPECT_EQ(Points(), u"0=5 2000=-900 4095=0");
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(Signal, AChoiceThatFailsGoesBackToTheMemory) {
    // a new signal, the file chosen, the box behind the question
    const QString wrong = QStringLiteral("Arbitrary Editor|This is not a construction file:\n");
    const std::tuple<bool, QString, QString> cases[] = {
        {true, {}, {}},
        {false, {}, {}},
        {false, Letter(), wrong},
        {false, set, wrong},
        {false, QStringLiteral("none.con"), QStringLiteral("Arbitrary Editor|The file can't be opened:\n")},
        {true, set,
         QStringLiteral("New construction data|The editor works on this file. Please choose another name:\n")}};
    for (const auto& [makeNew, chosen, complaint] : cases) {
        desktop.boxes.clear();
        desktop.answer = makeNew;
        desktop.chosen = chosen;
        Click("opEditmode_1");
        ExpectMode(set);
        EXPECT_EQ(program.ConstructionFileName.Name(), QString());
        EXPECT_FALSE(desktop.busy);
        EXPECT_EQ(desktop.boxes.takeFirst(), u"Arbitrary Editor|Do you want to create a new Signal?");
        EXPECT_EQ(desktop.boxes.join(u' '), complaint.isEmpty() ? complaint : complaint + chosen);
    }
    EXPECT_EQ(desktop.dialogs.first(2).join(u'\n'),
              u"save|New construction data|Settings (*.con) |*.con|*.con|con\n"
              "open|Select construction data|Settings (*.con) |*.con|*.con|CON");
    ExpectMemory("0=0 4095=95");
    EditSignal();
    desktop.chosen = Letter();
    Choose("mnulcon");
    ExpectMode(set);
    EXPECT_EQ(program.ConstructionFileName.Name(), con);
}

TEST_F(Signal, TheMenuNamesAnotherFile) {
    const QString other = folder.filePath(QStringLiteral("b.con"));
    desktop.chosen = other;
    for (int time = 0; time < 2; ++time) {  // and in place of itself
        Choose("mnuncon");
        ExpectMode(other);
        EXPECT_EQ(Rows(other, "ARB4") + u' ' + Rows(other, "ARB16"), u"0=0 4095=0 0=0 16384=0");
        Detail().Press(1500, 70);
        EXPECT_EQ(Rows(other, "ARB4"), u"0=0 1500=70 4095=0");
    }
    Click("opEditmode_0");
    program.editor.EditorRedrawPending = false;
    Choose("mnulcon");
    ExpectMode(other);
    EXPECT_TRUE(program.editor.EditorRedrawPending);
}

TEST_F(Signal, GenerationMakesTheMemoryOfTheInterpolationSelected) {
    EditSignal("(0, 0), (2000, 2000), (4095, -95)");
    Choose("mnulinint");
    ExpectMode(set);
    ExpectMemory("0=0 1=1 2=2 1999=1999 2000=2000 2001=1999 4094=-94 4095=-95");
    EditSignal("(0, 0), (2000, 2000), (4095, -95)");
    Click("Opintmode_1");
    EXPECT_EQ(program.memories.ArbMemory4[1000], 1000);  // the former line: a spline shows in the picture alone
    Choose("mnulinint");
    auto spline = program.memories.ArbMemory4;
    ComputeSpline(std::vector<Record>{{0, 0, 0}, {0, 2000, 2000}, {0, 4095, -95}}, std::span(spline).first(4096));
    EXPECT_EQ(program.memories.ArbMemory4, spline);
    EditSignal("(0, 7), (4095, 7)");
    Choose("mnulinint");  // two points are drawn as a line, which leaves the former spline in force
    EXPECT_EQ(program.memories.ArbMemory4, spline);
}

TEST_F(Signal, TheCommandsWorkOnTheCurrentSizeAlone) {
    Choose("mnu16ksig");
    EditSignal();
    EnterPoint("16384", "0");  // takes the point away
    EnterPoint("16384", "1024");
    for (const char* const item : {"mnulinint", "mnulinint"}) {  // from the points, and the memory as its own points
        Choose(item);
        ExpectMemory("8191=512 8192=512 8193=512 16383=1024");
        EXPECT_EQ(Rows(set, "ARB16 where Adr > 16383"), u"");
        EXPECT_EQ(program.memories.ArbMemory16[16384], 1024);
    }
    Choose("mnudelete", false);
    ExpectMemory("8191=512 16383=1024");
    Choose("mnudelete");
    ExpectMemory("0=0 8191=0 16383=0");
    EXPECT_EQ(desktop.boxes.constLast(), u"Arbitrary Editor|Are you sure to set all Values to zero?");
    EditSignal();
    Choose("mnudelete");
    EXPECT_EQ(Points(), u"0=0 16384=0");
    Choose("mnu4ksig");
    Click("opEditmode_0");
    ExpectMemory("1499=499 1500=500");
}

}  // namespace
