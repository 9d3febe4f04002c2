#include <QWheelEvent>

#include "EditorBench.h"

namespace {

struct EditorHand : EditorBench {
    void Keys(int key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    void Undo() { Keys(Qt::Key_Z); }
    QString Item(const char* name) {
        const auto* const item = Get<QAction>(name);
        return item->isEnabled() ? item->text() : u'(' + item->text() + u')';
    }
    QString Told() { return Get<QLabel>("hint")->toolTip(); }
};

TEST_F(EditorHand, UndoAndRedoStepThroughWhatWasDone) {
    Click("Marker");
    Copy(1100, 1110);
    Line(1500, 7, 1510, 7);
    Detail().Drag(1200, 1210);
    Click("opPenmode_3");
    Detail().Drag(1290, 1300);
    EXPECT_EQ(Item("mnuundo"), u"&Undo paste");  // before the timer has redrawn
    ExpectMemory("1500=7");
    Undo();
    EXPECT_EQ(Item("mnuundo") + Item("mnuredo"), u"&Undo line&Redo paste");
    ExpectMemory("1300=300 1500=7");
    Undo();
    EXPECT_EQ(Item("mnuundo") + Item("mnuredo"), u"(&Undo)&Redo line");
    ExpectMemory("1500=500 1510=510");
    EXPECT_EQ(Detail().At(1505, 505), QColor(0, 0, 0));
    Keys(Qt::Key_Y);
    Keys(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    ExpectMemory("1300=100 1500=7");
    host.running = true;
    Undo();
    EXPECT_EQ(Item("mnuundo"), u"&Undo paste");
}

TEST_F(EditorHand, UndoGoesToWhatItUndoes) {
    Choose("mnu16ksig");
    EnterPoint("16384", "9");  // an element that had no record
    EXPECT_EQ(program.memories.ArbMemory16[16384], 9);
    Choose("mnu4ksig");
    EditSignal();
    Press("opPenmode_0", 1500, 200);
    Click("opEditmode_0");
    EnterPoint("7", "8");
    Undo();
    EXPECT_TRUE(Checked("opEditmode_0"));
    Undo();
    EXPECT_TRUE(Checked("opEditmode_1"));
    EXPECT_EQ(Points(), u"0=0 4095=0");
    Undo();
    EXPECT_TRUE(Checked("opEditmode_0"));
    EXPECT_EQ(&Size(), &kMemory16k);
    EXPECT_EQ(program.memories.ArbMemory16[16384], 384);
}

TEST_F(EditorHand, TheKeysOfUndoBelongToAFieldThatHasSomethingToUndo) {
    EnterPoint("1500", "9");
    Type("Text1_0", "12");
    Undo();
    ExpectMemory("1500=9");
    while (Get<EntryField>("Text1_0")->isUndoAvailable()) {
        Undo();
    }
    ExpectMemory("1500=9");
    Undo();
    ExpectMemory("1500=500");
    EXPECT_TRUE(HasFocus("Text1_0"));
}

TEST_F(EditorHand, UndoSaysWhyItHasEnded) {
    const QString fileChanged = QStringLiteral("Nothing more to undo in %1: it was changed or replaced.");
    EnterPoint("1500", "9");
    Execute(set, "update ARB4 set Value = 5 where Adr = 1");
    Undo();
    ExpectMemory("1500=9");
    EXPECT_EQ(Told(), fileChanged.arg(set));
    EXPECT_EQ(Item("mnuundo"), u"(&Undo)");
    EXPECT_TRUE(desktop.boxes.isEmpty());
    EnterPoint("1500", "10");
    EditSignal();
    Press("opPenmode_0", 1500, 200);
    Choose("mnuncon");  // a new file under the same name
    EXPECT_EQ(Told(), fileChanged.arg(con));
    EXPECT_EQ(Item("mnuundo"), u"&Undo entry");
    const QString other = folder.filePath(QStringLiteral("b.set"));
    ASSERT_TRUE(QFile::copy(set, other));
    program.SettingFileName.Set(other);
    form->FollowSettingFile();
    EXPECT_EQ(Told(), u"Nothing more to undo in " + set + u": the editor works on another file now.");
    EXPECT_EQ(Item("mnuundo"), u"(&Undo)");
}

TEST_F(EditorHand, EscapeDropsWhatThePenHasBegun) {
    Copy(1100, 1110);
    const QImage before = Detail().Shown();
    Press("opPenmode_0", 1500, 0);
    Detail().Move(1600, 500);
    Keys(Qt::Key_Escape, {});
    EXPECT_FALSE(state.LineActive);
    EXPECT_TRUE(Detail().Shown() == before);
    for (const auto& [pen, redrawn] :
         {std::pair("opPenmode_2", false), {"opPenmode_3", false}, {"opPenmode_2", true}}) {
        Click(pen);
        Detail().Move(1200, 0, Qt::LeftButton);
        Detail().Move(1220, 0, Qt::LeftButton);
        if (redrawn) {
            Redraw();  // ends the drag, and the next move begins another
            Detail().Move(1230, 0, Qt::LeftButton);
        }
        Keys(Qt::Key_Escape, {});
        EXPECT_TRUE(Detail().Shown() == before);
        Detail().Move(1300, 0, Qt::LeftButton);  // the button is still down
        Detail().Move(1320, 0, Qt::LeftButton);
        Detail().Move(1320, 0);
        ExpectMemory("1201=201 1301=301 1321=321");
    }
    EXPECT_EQ(state.CopyEnd, 1110);
    Paste(1400);
    ExpectMemory("1399=399 1400=100 1405=105 1410=110 1411=411");  // what was copied before
}

TEST_F(EditorHand, TheViewClosesInAndOpensByKeysAndWheel) {
    const auto keys = [this](int key, const char16_t* view) {
        Keys(key);
        QCoreApplication::processEvents();
        EXPECT_EQ(Says("viewrange"), QStringView(view));
    };
    keys(Qt::Key_Plus, u"1250 to 1750 of 4095");  // without the pointer: around the middle
    keys(Qt::Key_Minus, u"1000 to 2000 of 4095");
    keys(Qt::Key_0, u"0 to 4095 of 4095");
    for (int i = 0; i < 20; ++i) {
        Keys(Qt::Key_Equal);
    }
    keys(Qt::Key_Plus, u"2028 to 2068 of 4095");
    keys(Qt::Key_0, u"0 to 4095 of 4095");
    Get("Picture2")->setFocus();
    Detail().Move(1000, 0);
    QWidget* const picture = Get("Picture2");
    for (int notch = 0; notch < 3; ++notch) {
        QWheelEvent turn(QPointF(9, 9), picture->mapToGlobal(QPointF(9, 9)), {}, {0, 120}, {}, Qt::ControlModifier,
                         Qt::NoScrollPhase, false);
        QApplication::sendEvent(form.get(), &turn);
    }
    EXPECT_EQ(Says("viewrange"), u"0 to 4095 of 4095");
    QCoreApplication::processEvents();
    EXPECT_EQ(Says("viewrange"), u"875 to 1387 of 4095");
}

TEST_F(EditorHand, TheTableIsSavedAsText) {
    EditSignal("(4095, 5), (7, -2047), (7, 3)");
    desktop.chosen = folder.filePath(QStringLiteral("a.csv"));
    Get<QAction>("mnusavecsv")->trigger();
    EXPECT_EQ(desktop.dialogs.last(), u"save|Save as CSV|CSV (*.csv) |*.csv|*.csv|csv");
    EXPECT_EQ(Content(desktop.chosen), "address,value\n7,-2047\n7,3\n4095,5\n");
    for (const QString& refused : {set, con, folder.filePath(QStringLiteral("none/a.csv"))}) {
        desktop.boxes.clear();
        desktop.chosen = refused;
        Get<QAction>("mnusavecsv")->trigger();
        EXPECT_EQ(desktop.boxes.size(), 1) << refused.toStdString();
    }
    Choose("mnudelete", false);
    EXPECT_EQ(desktop.defaultAnswer, Desktop::Default::No);
}

}  // namespace
