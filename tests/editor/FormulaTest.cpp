#include "EditorBench.h"

namespace {

// The window `formula` over the editor, used by keys.
struct FormulaForm : EditorBench {
    FormulaWindow* OpenFormula() {
        EXPECT_FALSE(Standing());
        Choose("mnuformula");
        auto* const window = form->findChild<FormulaWindow*>(QStringLiteral("formula"));
        EXPECT_TRUE(window != nullptr && Activate(window));
        return window;
    }
    void TypeFormula(const char* formula) { TypeOver("expression", formula); }
    QString Formula() { return Get<FormulaField>("expression")->toPlainText(); }
    bool Standing() { return Stands("formula"); }
    QString Table() { return Rows(set, "ARB4") + Rows(set, "ARB16"); }

    const QString before = Table();
};

TEST_F(FormulaForm, WritesWhatWasTypedAndShowsIt) {
    OpenFormula();
    TypeFormula("x - 1.25");
    EXPECT_EQ(Says("cut"), u"4096 samples from -2047 to -512, 1023 of them cut at full scale.");
    Key(Qt::Key_Return);
    EXPECT_FALSE(Standing());
    EXPECT_FALSE(desktop.busy);
    ExpectMemory("0=-2047 1024=-2047 1025=-2047 2048=-1535 4095=-512");
    EXPECT_EQ(Detail().At(1500, -1809), QColor(255, 0, 0));
    Choose("mnu16ksig");
    OpenFormula();
    EXPECT_EQ(Formula(), u"x - 1.25");  // as it was left
    TypeFormula("i - n");
    Click("scale");
    EXPECT_EQ(Says("cut"), u"16384 samples from -2047 to 0, none cut at full scale.");
    Click("cbok");
    ExpectMemory("0=-2047 8192=-1024 16383=0");
}

TEST_F(FormulaForm, FillsTheStretchThatIsChosen) {
    OpenFormula();
    EXPECT_FALSE(Get("stretch_2")->isEnabled());  // nothing was copied
    Key(Qt::Key_Escape);
    Copy(1110, 1100);
    OpenFormula();
    for (const auto& [option, samples, memory] : {std::tuple("stretch_1", "1001", "999=999 1000=0 2000=2045 2001=1"),
                                                  {"stretch_2", "11", "1099=202 1100=0 1101=186 1110=1861 1111=227"}}) {
        Click(option);
        TypeFormula("x");
        EXPECT_TRUE(Says("cut").startsWith(QString::fromLatin1(samples) + u" samples"));
        Click("cbok");
        ExpectMemory(memory);
        OpenFormula();
        EXPECT_TRUE(Checked(option));
    }
    Key(Qt::Key_Escape);
    state.CopyEnd = state.CopyStart;
    OpenFormula();
    EXPECT_TRUE(Checked("stretch_0"));
}

TEST_F(FormulaForm, TellsAFaultWhileItIsTypedAndWritesNothing) {
    OpenFormula();
    auto* const field = Get<FormulaField>("expression");
    for (const auto& [formula, says, at, marked] :
         {std::tuple("sin(2*y)", u"Character 7: There is no \"y\".", 6, u"y"),
          {")", u"Character 1: There is no \"(\" for this \")\".", 0, u")"},
          {"max(x;x) + ", u"At the end: The formula is not finished.", 10, u" "},
          {"1/x", u"At x = 0 the result is not a finite number.", -1, u""}}) {
        TypeFormula(formula);
        EXPECT_EQ(Says("fault"), says) << formula;
        EXPECT_EQ(field->accessibleDescription(), says) << formula;
        const QList<QTextEdit::ExtraSelection> marks = field->extraSelections();
        EXPECT_EQ(marks.isEmpty() ? QString() : marks[0].cursor.selectedText(), marked);
        EXPECT_EQ(marks.isEmpty() ? -1 : marks[0].cursor.selectionStart(), at);
        EXPECT_EQ(Says("cut"), u"");
        EXPECT_FALSE(Get("cbok")->isEnabled());
        Key(Qt::Key_Return);
        EXPECT_TRUE(Standing());
    }
    TypeFormula("1");
    EXPECT_TRUE(Get("cbok")->isEnabled());
    EXPECT_TRUE(field->extraSelections().isEmpty());
    EXPECT_TRUE(Says("fault").startsWith(u"x goes"));
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Standing());
    EXPECT_EQ(Table(), before);
}

TEST_F(FormulaForm, AReadyShapeGoesIntoTheFieldAsTheUserWritesItAndComesOutAgain) {
    program.numbers = UserNumbers(QLocale(QLocale::German));
    OpenFormula();
    auto* const shapes = Get<QListWidget>("shapes");
    Key(Qt::Key_Tab);
    EXPECT_TRUE(shapes->hasFocus());
    EXPECT_EQ(Formula(), u"sin(2*pi*x)");  // to pass through changes nothing
    Key(Qt::Key_G);
    EXPECT_EQ(Formula(), u"gauss(x; 0,5; 0,1)");
    EXPECT_EQ(Says("cut"), u"4096 samples from 0 to 2047, none cut at full scale.");
    Get("expression")->setFocus();
    QTest::keyClick(Get("expression"), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Formula(), u"sin(2*pi*x)");
    EXPECT_TRUE(shapes->selectedItems().isEmpty());
    Click("cbcancel");
    EXPECT_FALSE(Standing());
    EXPECT_EQ(Table(), before);
}

TEST_F(FormulaForm, ClosesUnwrittenWhenTheEditorGoesOverToSomethingElse) {
    const QString other = folder.filePath(QStringLiteral("b.set"));
    ASSERT_TRUE(QFile::copy(set, other));
    const std::tuple<const char*, std::function<void()>, bool> cases[] = {
        {"nothing else", [this] { form->FollowSettingFile(); }, true},
        {"a file loaded", [&] { program.SettingFileName.Set(other), form->FollowSettingFile(); }, false},
        {"a file saved to", [this] { program.SettingFileName.Set(set), Tick(); }, false},
        {"a file saved to, and OK before the tick", [&] { program.SettingFileName.Set(other), Click("cbok"); }, false},
        {"another size", [this] { Choose("mnu16ksig"), Tick(); }, false},
        {"the signal", [this] { EditSignal(); }, false},
        {"the editor's end", [this] { form->close(); }, false}};
    for (const auto& [what, change, stands] : cases) {
        Click("opEditmode_0");
        FormulaWindow* const window = OpenFormula();
        change();
        EXPECT_EQ(window->isVisible(), stands) << what;
        EXPECT_EQ(Get<QAction>("mnuformula")->isEnabled(), state.Target == EditTarget::Memory) << what;
        window->close();
    }
    EXPECT_EQ(Table(), before);
    EXPECT_EQ(Rows(other, "ARB4") + Rows(other, "ARB16"), before);
}

TEST_F(FormulaForm, AFailureIsToldAndTheWindowStays) {
    Guard(set, "ARB4", 1503);
    OpenFormula();
    Click("cbok");
    EXPECT_EQ(desktop.boxes, QStringList(u"Arbitrary Editor|The file can't be read or changed:\n" + set));
    EXPECT_TRUE(Standing());
    EXPECT_FALSE(desktop.busy);
    EXPECT_EQ(Table(), before);
    Execute(set, "drop trigger on_update");
    Click("cbok");
    EXPECT_FALSE(Standing());
    ExpectMemory("1024=2047 3072=-2047");
}

TEST_F(FormulaForm, ThePreviewIsDrawnInTheColoursOfTheDesktop) {
    OpenFormula();
    TypeFormula("2*square(x)");
    PictureHands preview{Get<PictureBox>("preview")};
    const QPalette former = QApplication::palette();
    const QColor ink(Qt::yellow);
    const QColor ground(Qt::black);
    QApplication::setPalette(QPalette(ink, ground, ground, ground, ground, ink, ground));
    QCoreApplication::processEvents();
    for (const auto& [k, level, color] : {std::tuple(1000, 1.0, ink), {3000, -1.0, ink}, {1000, 0.5, ground}}) {
        EXPECT_EQ(preview.At(k, level), color) << k << ' ' << level;
    }
    for (const double level : {-1.0, 0.0, 1.249}) {  // two lines, and what is cut off
        EXPECT_NE(preview.At(1000, level), ground) << level;
        EXPECT_NE(preview.At(1000, level), ink) << level;
    }
    TypeFormula("2*");
    EXPECT_EQ(preview.At(0.25, 1.0), preview.At(0.25, 0.0));
    QApplication::setPalette(former);
}

}  // namespace
