#include "EditorBench.h"

namespace {

struct FileTrouble : EditorBench {
    QString Told(const char* reason) const { return u"Arbitrary Editor|" + QString::fromLatin1(reason) + u'\n' + set; }
};

TEST_F(FileTrouble, IsToldOnceUntilSomethingSucceeds) {
    const QString kept = folder.filePath(QStringLiteral("kept"));
    ASSERT_TRUE(QFile::copy(set, kept));
    desktop.whileShown = [this] { Redraw(); };  // the timer goes on while a box stands
    Click("Marker");
    for (const auto& [instead, reason] : {std::pair(QString(), "The file is not there any more:"),
                                          std::pair(Letter(), "The file holds no waveform:")}) {
        ASSERT_TRUE(QFile::remove(set) && (instead.isEmpty() || QFile::copy(instead, set)));
        desktop.boxes.clear();
        for (int second = 0; second < 3; ++second) {
            Redraw();
        }
        EnterPoint("1500", "9");
        EXPECT_EQ(desktop.boxes, QStringList(Told(reason)));
        EXPECT_EQ(Detail().At(1500, 500), QColor(255, 255, 128));
        Press("opPenmode_1", 1500, 0);  // what the user asks for is answered each time
        EXPECT_EQ(desktop.boxes, QStringList(2, Told(reason)));
        QFile::remove(set);
        ASSERT_TRUE(QFile::copy(kept, set));
        Redraw();
        EXPECT_EQ(Detail().At(1500, 500), QColor(0, 0, 0));
    }
    EXPECT_FALSE(desktop.busy);
}

TEST_F(FileTrouble, ALockedFileKeepsWhatItHas) {
    const QImage before = Detail().Shown();
    {
        SQLite::Database other(set.toStdString(), SQLite::OPEN_READWRITE);
        other.exec("begin immediate");
        Press("opPenmode_1", 1500, 0);
        EXPECT_EQ(desktop.boxes, QStringList(Told("Another program has locked the file:")));
        Redraw();  // without the crosshair
        EXPECT_TRUE(Detail().Shown() == before);
    }
    ExpectMemory("1500=500");
    Detail().Press(1500, 0);
    ExpectMemory("1500=0");
}

TEST_F(FileTrouble, AnOperationThatFailsHalfWayLeavesTableAndPictureInStep) {
    Copy(1100, 1110);
    Guard(set, "ARB4", 1503);
    const QString table = Rows(set, "ARB4");
    const QImage picture = Detail().Shown();
    const std::pair<std::function<void()>, int> operations[] = {
        {[this] { Line(1500, -900, 1510, 900); }, 1},  // and their boxes, with the questions
        {[this] { Paste(1500); }, 1},
        {[this] { EnterPoint("1503", "9"); }, 0},
        {[this] { Choose("mnudelete"); }, 2},
        {[this] { EditSignal(), Choose("mnulinint"); }, 2}};
    for (const auto& [operate, boxes] : operations) {
        desktop.boxes.clear();
        operate();
        EXPECT_EQ(desktop.boxes.size(), boxes);
        EXPECT_EQ(desktop.boxes.value(boxes - 1), boxes > 0 ? Told("The file can't be read or changed:") : QString());
        ExpectMemory("1503=503");
        Click("opEditmode_0");
        Redraw();
        EXPECT_EQ(Rows(set, "ARB4"), table);
        EXPECT_EQ(Detail().Shown(), picture);
    }
}

TEST_F(FileTrouble, EmptyTablesAreShownAndWorkedOn) {
    EditSignal();
    for (const char* const mode : {"opEditmode_0", "opEditmode_1"}) {
        Click(mode);
        for (const QString& file : {set, con}) {
            Execute(file, "delete from ARB4");
        }
        Choose("mnulinint");
        Zoom(1100, 1900);
        EnterPoint("7", "7");
        EXPECT_TRUE(Checked(mode));
        EXPECT_EQ(Rows(Checked("opEditmode_0") ? set : con, "ARB4"), u"7=7");
    }
    EXPECT_EQ(desktop.boxes.size(), 1);  // the question
}

}  // namespace
