#include "EditorBench.h"

namespace {

using MemoryPens = EditorBench;

TEST_F(MemoryPens, ALineReplacesTheSamplesBetweenItsClicks) {
    const std::tuple<QPointF, QPointF, const char*> cases[] = {
        {{1100, -100}, {1104, 300}, "1099=99 1100=-100 1101=0 1102=100 1103=200 1104=300 1105=105"},
        {{1114, 300}, {1110, -100}, "1109=109 1110=-100 1111=0 1112=100 1113=200 1114=300 1115=115"},
        {{1120, 777}, {1120.3, 900}, "1119=119 1120=777 1121=121"},  // one address: the left click's value
        {{1130.3, 900}, {1130, 555}, "1129=129 1130=555 1131=131"},
        {{1140, 2055}, {1142, 2055}, "1139=139 1140=2055 1141=2055 1142=2055 1143=143"},    // above the highest sample
        {{1998, 10}, {2003, -10}, "1998=10 1999=6 2000=2 2001=-2 2002=-6 2003=-10 2004=4"}  // into the shaded strip
    };
    for (const auto& [first, second, samples] : cases) {
        Detail().Press(first.x(), first.y());
        Detail().Move(second.x(), second.y());
        EXPECT_EQ(program.memories.ArbMemory4[static_cast<std::size_t>(first.x())], static_cast<int>(first.x()) % 1000);
        Detail().Press(second.x(), second.y());
        ExpectMemory(samples);
    }
    EXPECT_EQ(Count(set, "ARB4"), 4096);
}

TEST_F(MemoryPens, ALineKeepsTheGapsOfItsTable) {
    Run(set, "delete from ARB4 where Adr in (1102, 1103)");
    Detail().Press(1100, -100);
    Detail().Press(1104, 300);
    ExpectMemory("1099=99 1100=-100 1101=0 1104=300 1105=105");
    Detail().Press(1106, 500);
    Detail().Press(1102, 500);  // no sample at its left end
    EXPECT_FALSE(state.LineActive);
    ExpectMemory("1099=99 1100=-100 1101=0 1104=300 1105=105 1106=106");
}

TEST_F(MemoryPens, ALineEndsAtTheLastSampleOf16K) {
    Choose("mnu16ksig");
    Zoom(16300, 16384);
    Detail().Press(16380, 0);
    Detail().Press(16383.8, 400);
    ExpectMemory("16379=379 16380=0 16381=100 16382=200 16383=300");
    EXPECT_EQ(Count(set, "ARB16"), 16384);
}

TEST_F(MemoryPens, ARightClickInTheViewAbandonsALine) {
    Detail().Press(1100, -100);
    Detail().Press(1150, 0, Qt::RightButton);
    Detail().Press(1200, 500);
    Detail().Press(1300, 500, Qt::MiddleButton);  // no pen's work
    EXPECT_TRUE(state.LineActive);
    EXPECT_EQ(state.ViewLeft, 1000);
    ExpectMemory("1100=100 1101=101");
    ExpectMemory("1200=200");
}

TEST_F(MemoryPens, DeleteZeroesOneSampleButNeitherEnd) {
    EnterPoint("0", "7");
    EnterPoint("1", "7");
    Click("opPenmode_1");
    Detail().Press(1500.4, 2000);
    ExpectMemory("1499=499 1500=0 1501=501");
    Zoom(0, 40);
    Detail().Press(0.4, 0);
    Detail().Press(1, 0);
    ExpectMemory("0=7 1=0 2=2");
    Zoom(4055, 4095);
    Detail().Press(4094, 0);
    Detail().Press(4095, 0);
    ExpectMemory("4093=93 4094=0 4095=95");
}

struct CopyAndPaste : EditorBench {
    void Copy(double from, double to) {
        Click("opPenmode_2");
        Detail().Drag(from, to);
        Tick();
    }
    void Paste(double at) {
        Click("opPenmode_3");
        Detail().Drag(at - 10, at);
        Tick();
    }
};

TEST_F(CopyAndPaste, GoesForwardsMirroredOrWithAnOldContent) {
    Copy(1100, 1104);
    Paste(1500);
    ExpectMemory("1499=499 1500=100 1501=101 1502=102 1503=103 1504=104 1505=505");
    Copy(1104, 1100);
    Paste(1510);
    ExpectMemory("1509=509 1510=104 1511=103 1512=102 1513=101 1514=100 1515=515");
    Copy(1200, 1202);  // too short to be taken
    Paste(1520);
    ExpectMemory("1519=519 1520=104 1521=103 1522=102 1523=523");
}

TEST_F(CopyAndPaste, DropsWhatLiesBeyondTheEndOfTheAxis) {
    Copy(1100, 1120);
    Zoom(4000, 4095);
    Paste(4094);
    ExpectMemory("4093=93 4094=100 4095=101");
    EXPECT_EQ(Count(set, "ARB4"), 4096);
    Choose("mnu16ksig");
    Zoom(16300, 16384);
    Paste(16383);
    ExpectMemory("16382=382 16383=100 16384=101");
    EXPECT_EQ(Count(set, "ARB16"), 16385);
}

TEST_F(CopyAndPaste, EverySampleBecomesOnePointOfASignal) {
    Copy(1100, 1103);
    EditSignal();
    Paste(1500);
    Paste(1502);
    EXPECT_EQ(Points(), "0=0 1500=100 1501=101 1502=100 1503=101 1504=102 1505=103 4095=0");
    ExpectMemory("1499=499");
}

TEST_F(CopyAndPaste, AnEmptyBufferOffersCopyInstead) {
    Click("opPenmode_3");
    EXPECT_TRUE(Checked("opPenmode_2"));
    EditSignal();
    Click("opPenmode_3");
    Detail().Drag(1200, 1300);  // a signal has no samples to take
    EXPECT_EQ(state.CopyStart, 0);
    EXPECT_EQ(Points(), "0=0 4095=0");
}

TEST_F(CopyAndPaste, ARedrawOrAnotherButtonEndsADrag) {
    Copy(1100, 1104);
    const auto former = state.CopyBuffer;
    Click("opPenmode_2");
    Detail().Move(1200, 0, Qt::LeftButton);
    Detail().Move(1210, 0, Qt::LeftButton);
    Redraw();
    Detail().Move(1210, 0);
    EXPECT_EQ(state.CopyBuffer, former);
    Click("opPenmode_3");
    Detail().Move(1600, 0, Qt::LeftButton);
    Redraw();
    Detail().Move(1600, 0);
    ExpectMemory("1599=599 1600=600 1601=601");
    Detail().Move(1600, 0, Qt::LeftButton);
    Detail().Move(1650, 0, Qt::LeftButton | Qt::RightButton);
    Detail().Move(1700, 0);
    Tick();
    ExpectMemory("1599=599 1600=100 1601=101");
    ExpectMemory("1650=650");
}

}  // namespace
