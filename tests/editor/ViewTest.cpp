#include "EditorBench.h"
#include "waveform/ViewRules.h"

namespace {

struct Views : EditorBench {
    View Shown() { return {state.ViewLeft, state.ViewRight}; }
};

TEST_F(Views, ARightClickPagesInAStripAndAbandonsALineInTheView) {
    Detail().Press(1100, -100);
    for (const auto& [x, left] : {std::pair(2010, 1500), {2510, 2000}, {1990, 1500}}) {
        Detail().Press(x, 0, Qt::RightButton);
        EXPECT_EQ(Shown(), (View{left, left + 1000}));
    }
    EXPECT_TRUE(state.LineActive);
    Detail().Press(1800, 0, Qt::RightButton);
    Detail().Press(1900, 0, Qt::MiddleButton);
    EXPECT_FALSE(state.LineActive);
}

TEST_F(Views, AnotherSizeShowsItsOwnTableAndAViewOnItsAxis) {
    Execute(set, "update ARB16 set Value = 1600 where Adr = 1500");
    for (const auto& [from, to, in4k] :
         {std::tuple(3500, 4500, View{3095, 4095}), {5000, 6000, View{1000, 2000}}, {3000, 9000, View{0, 4095}}}) {
        Choose("mnu16ksig");
        ExpectMemory("1500=1600");
        Zoom(from, to);
        Choose("mnu4ksig");
        ExpectMemory("1500=500");
        EXPECT_EQ(Shown(), in4k);
    }
    Choose("mnu16ksig");
    Zoom(5000, 6000);
    state.LineActive = true;
    Open();  // a new form begins anew
    EXPECT_EQ(Shown(), (View{1000, 2000}));
    EXPECT_TRUE(Get<QAction>("mnu4ksig")->isChecked());
    EXPECT_FALSE(state.LineActive);
}

TEST_F(Views, TheReadOutsFollowThePointerHeldToTheView) {
    Choose("mnu16ksig");
    Detail().Move(2010, -2058);
    EXPECT_EQ(Says("corint_0") + Says("corint_1"), u"X= 2000Y= -2047");
    EXPECT_EQ(Says("corper_0") + Says("corper_1"), u"X= 12.2%Y= -50.0%");
}

using Pictures = EditorBench;

TEST_F(Pictures, ShowGroundCurveDotsAndStrips) {
    const QColor red(255, 0, 0), black(0, 0, 0), strip(192, 192, 255), grid(192, 192, 192), ground(255, 255, 128);
    EXPECT_EQ(Detail().At(1200.5, 200), red);  // the memory, drawn without waiting for the timer
    Click("Marker");
    desktop.BusyOn();  // of a transfer, into which the redraw falls
    Tick();
    EXPECT_TRUE(desktop.busy);
    const std::tuple<PictureHands, double, double, QColor> places[] = {
        {Detail(), 1200.5, 200, black}, {Detail(), 1535, -800, grid},     {Detail(), 990, 300, strip},
        {Detail(), 2010, -300, strip},  {Detail(), 1500, 2057, strip},    {Detail(), 1990, -800, ground},
        {Overview(), 511, -1000, grid}, {Overview(), 1900, -1000, ground}};
    for (auto [picture, x, y, color] : places) {
        EXPECT_EQ(picture.At(x, y), color) << x;
    }
    Click("Marker");
    EditSignal("(4095, -2000), (1400, 1000), (0, -2000), (1700, 1000)");
    EXPECT_EQ(Detail().At(1700, 1000), red);
    EXPECT_EQ(Detail().At(1900, 1000 - 200 * 3000 / 2395.0), black);  // on to the first point behind the view
    Click("Opintmode_1");
    EXPECT_EQ(Detail().At(1400, 1000), red);
    EXPECT_EQ(Detail().At(1550, state.ArbSignal[1550]), black);
    EditSignal("(0, -2000), (1700, 1000)");
    EXPECT_EQ(Detail().At(1700, 1000), red);  // the last dot lies on the curve
    EditSignal("(0, -2000), (4095, -2000)");  // a line, and no record in the view
    EXPECT_EQ(Detail().At(1500, -2000), black);
}

TEST_F(Pictures, EveryInvertedStrokeComesOffWithoutATrace) {
    Copy(1100, 1300);
    const std::tuple<const char*, PictureHands, double, double, bool> cases[] = {
        // pen, picture of the drag, where it shows, whether in both
        {"opPenmode_1", Detail(), 1450.8, 1500, false},   // crosshair
        {"opPenmode_0", Detail(), 1100, -400, true},      // the left riser of a line
        {"opPenmode_2", Detail(), 1300, 1500, true},      // box of Copy
        {"opPenmode_3", Detail(), 1600, 1500, true},      // box of Paste
        {"opPenmode_0", Overview(), 1300, 1500, false}};  // box of a view
    for (auto [pen, picture, x, y, inBoth] : cases) {
        Redraw();
        const QImage overview = Overview().Shown();
        const QImage detail = Detail().Shown();
        const QColor former = picture.At(x, y);
        Click(pen);
        if (inBoth) {
            Detail().Press(1100, -900);  // the first point of a line
        }
        for (const double to : {1200.0, 1700.4, 1450.8}) {
            picture.Move(to, 1900.0 - to, Qt::LeftButton);
        }
        EXPECT_NE(picture.At(x, y), former) << pen;
        EXPECT_EQ((Overview().Shown() != overview) + (Detail().Shown() != detail), inBoth ? 2 : 1) << pen;
        // A change of the form's size takes them off before the next redraw.
        QWidget* const paper = Get("Picture1")->parentWidget();
        QResizeEvent resize(paper->size(), paper->size());
        for (int time = 0; time < 2; ++time) {  // what is taken off does not come back
            QApplication::sendEvent(paper, &resize);
        }
        EXPECT_EQ(Overview().Shown(), overview) << pen;
        EXPECT_EQ(Detail().Shown(), detail) << pen;
        state.LineActive = false;
    }
}

TEST_F(Pictures, ARecordBeyondTheMemoryTouchesNothing) {
    const auto before = program.memories.ArbMemory16;
    Execute(set, "insert into ARB4 values (4097, 99)");  // by another program
    Redraw();
    EXPECT_TRUE(program.memories.ArbMemory16 == before);
}

}  // namespace
