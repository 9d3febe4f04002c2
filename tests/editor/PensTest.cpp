#include "EditorBench.h"

namespace {

using PenWork = EditorBench;
using Entry = EditorBench;

TEST_F(PenWork, ALineReplacesTheSamplesBetweenItsClicks) {
    const std::tuple<double, double, double, double, const char*> cases[] = {
        {1100, -100, 1104, 300, "1099=99 1100=-100 1101=0 1102=100 1103=200 1104=300 1105=105"},
        {1114, 300, 1110, -100, "1109=109 1110=-100 1111=0 1112=100 1113=200 1114=300 1115=115"},
        {1120, 777, 1120.3, 900, "1119=119 1120=777 1121=121"},            // one address: the left click's value
        {1130.4, 100, 1130.6, 200, "1129=129 1130=60 1131=160 1132=132"},  // two addresses, no whole address apart
        // short and steep: held to the band of the clicks
        {1150.5, 1000, 1151.4, -2000, "1149=149 1150=2060 1151=-500 1152=152"},
        {1160.4, -1000, 1161.5, 2000, "1159=159 1160=-2060 1161=800 1162=2060 1163=163"},
        {1140, 2055, 1142, 2055, "1139=139 1140=2055 1141=2055 1142=2055 1143=143"},      // above the highest sample
        {1998, 10, 2003, -10, "1998=10 1999=6 2000=2 2001=-2 2002=-6 2003=-10 2004=4"}};  // into the shaded strip
    for (const auto& [x1, y1, x2, y2, samples] : cases) {
        Line(x1, y1, x2, y2);
        ExpectMemory(samples);
    }
}

TEST_F(PenWork, ALineKeepsToTheRecordsThatThereAre) {
    Execute(set, "delete from ARB4 where Adr in (1102, 1103)");
    Line(1100, -100, 1104, 300);
    Detail().Move(1102, 500);
    const QImage before = Detail().Shown();
    Line(1106, 500, 1102, 500);  // no sample at its left end
    EXPECT_TRUE(Detail().Shown() == before);
    ExpectMemory("1099=99 1100=-100 1101=0 1104=300 1105=105 1106=106");
    EXPECT_EQ(Rows(set, "ARB4 where Adr in (1102, 1103)"), u"");
}

TEST_F(PenWork, DeleteZeroesOneSampleButNeitherEnd) {
    EnterPoint("0", "7");
    Zoom(0, 4095);
    for (const double x : {0.4, 1.0, 1500.4, 4094.0, 4095.0}) {
        Press("opPenmode_1", x, 2000);
    }
    ExpectMemory("0=7 1=0 2=2 1499=499 1500=0 1501=501 4093=93 4094=0 4095=95");
}

TEST_F(PenWork, CopyTakesForwardsOrMirroredAndPasteDropsWhatLiesBeyondTheEnd) {
    Click("opPenmode_3");
    EXPECT_TRUE(Checked("opPenmode_2"));  // nothing to paste
    Copy(1100, 1104);
    Paste(1500);
    ExpectMemory("1499=499 1500=100 1501=101 1503=103 1504=104 1505=505");
    Copy(1104, 1100);
    Paste(1510);
    ExpectMemory("1509=509 1510=104 1511=103 1512=102 1513=101 1514=100 1515=515");
    Copy(1200, 1202);  // too short to be taken
    Paste(1520);
    ExpectMemory("1519=519 1520=104 1521=103 1522=102 1523=523");
    Zoom(4000, 4095);
    Paste(4094);
    EXPECT_EQ(Rows(set, "ARB4 where Adr >= 4093"), u"4093=93 4094=104 4095=103");
}

TEST_F(PenWork, ARedrawEndsADrag) {
    Copy(1100, 1104);
    for (const char* const pen : {"opPenmode_2", "opPenmode_3"}) {
        Click(pen);
        Detail().Move(1200, 0, Qt::LeftButton);
        Detail().Move(1210, 0, Qt::LeftButton);
        Redraw();
        Detail().Move(1210, 0);
    }
    EXPECT_EQ(state.CopyBuffer[0], 100);
    ExpectMemory("1209=209 1210=210 1211=211");
}

TEST_F(PenWork, PointsOfASignalComeMoveAndGo) {
    Copy(1100, 1103);
    EditSignal();
    Zoom(0, 4095);
    const std::pair<std::function<void()>, const char16_t*> steps[] = {
        {[this] { Press("opPenmode_0", 1500, 200); }, u"0=0 1500=200 4095=0"},
        {[this] { Press("opPenmode_0", 1500.4, -300); }, u"0=0 1500=-300 4095=0"},
        {[this] { Press("opPenmode_0", 1502, 2055); }, u"0=0 1500=-300 1502=2055 4095=0"},
        {[this] { Press("opPenmode_1", 1504, 0); }, u"0=0 1500=-300 1502=2055 4095=0"},  // two addresses beside it
        {[this] { Press("opPenmode_1", 1501, 0); }, u"0=0 1502=2055 4095=0"},            // the left neighbour
        {[this] { EnterPoint("1501", "50"); }, u"0=0 1501=50 1502=2055 4095=0"},
        {[this] { Press("opPenmode_1", 1502, 0); }, u"0=0 1501=50 4095=0"},  // the address itself before a neighbour
        {[this] { EnterPoint("1501", "50"); }, u"0=0 4095=0"},
        {[this] { Paste(1500); }, u"0=0 1500=100 1501=101 1502=102 1503=103 4095=0"},
        {[this] { Paste(1502); }, u"0=0 1500=100 1501=101 1502=100 1503=101 1504=102 1505=103 4095=0"},
        {[this] { Choose("mnudelete"); }, u"0=0 4095=0"},
        {[this] { Press("opPenmode_1", 0.4, 0); }, u"0=0 4095=0"},
        {[this] { Press("opPenmode_1", 4095, 0); }, u"0=0 4095=0"},
        {[this] { Press("opPenmode_1", 1, 0); }, u"4095=0"},
        {[this] { Press("opPenmode_1", 4094, 0); }, u""}};
    for (const auto& [step, points] : steps) {
        step();
        EXPECT_EQ(Points(), points);
    }
}

TEST_F(Entry, HoldsEachNumberToItsRangeAndStoresItAtOnce) {
    const std::string tooGreat(400, '9');
    const std::tuple<const char*, const char*, const char*, const char16_t*> cases[] = {
        {"mnu4ksig", "Text1_0", tooGreat.c_str(), u" 4095"}, {"mnu4ksig", "Text1_0", "-3", u" 0"},
        {"mnu4ksig", "Text1_0", "1a5.0,0", u"1500"},         {"mnu4ksig", "Text1_1", "-3000", u"-2047"},
        {"mnu16ksig", "Text1_0", "20000", u" 16384"},        {"mnu16ksig", "Text1_1", "3000", u" 2047"}};
    for (const auto& [size, field, typed, text] : cases) {
        Choose(size);
        Enter(field, typed);
        EXPECT_EQ(Text(field), text);
        EXPECT_TRUE(HasFocus(field == std::string("Text1_0") ? "Text1_1" : "Text1_0"));
    }
    ExpectMemory("16383=383 16384=2047");  // beyond the last record: added
    Choose("mnu4ksig");
    ExpectMemory("1499=499 1500=-2047 1501=501");
    for (const char* const far : {"5000", "40000"}) {  // the second is more than a record can have
        Type("Text1_0", far);
        Click("Text1_1");  // leaves the address as it was typed
        Enter("Text1_1", "5-");
    }
    EXPECT_EQ(Rows(set, "ARB4 where Adr not between 0 and 4094"), u"4095=95 5000=5");
    Click("opPenmode_1");
    EXPECT_TRUE(HasFocus("Text1_0"));  // the keyboard goes on with the address
}

}  // namespace
