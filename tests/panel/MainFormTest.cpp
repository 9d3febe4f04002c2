#include <QFile>

#include "PanelBench.h"

namespace {

using MainForm = PanelBench;

QByteArray FileIn(const QTemporaryDir& folder) {
    QFile file(folder.filePath(QStringLiteral("5276.def")));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

void WriteFile(const QTemporaryDir& folder, const QByteArray& content) {
    QFile file(folder.filePath(QStringLiteral("5276.def")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

const QString kNewDefaults = QStringLiteral("Load default settings|Generate new default settings");

TEST_F(MainForm, FirstRunMakesAnEmptyFileAndShowsTheDefaults) {
    form->Main_Form_Load();
    EXPECT_EQ(desktop.boxes, QStringList(kNewDefaults));
    EXPECT_EQ(FileIn(folder).size(), 0);
    EXPECT_EQ(form->windowTitle(), u"KL5276 - V1.02       Offline");
    EXPECT_EQ(Text("Text1"), u"1.0000000");
    EXPECT_EQ(Text("Text2"), u"1.00000");
    EXPECT_TRUE(Checked("opsignal_0"));
    EXPECT_TRUE(Checked("Opoutput_1"));
    EXPECT_EQ(Get<QLabel>("Label3")->text(), u"Output: Off");
    EXPECT_EQ(program.preferences.ComPortNumber, 2);
    EXPECT_EQ(program.preferences.ComBaudRate, 19200);
    EXPECT_EQ(desktop.beeps, 0);
    program.preferences.ComPortNumber = 4;
    EXPECT_TRUE(form->close());  // answered with No
    EXPECT_EQ(FileIn(folder).size(), 0);
}

TEST_F(MainForm, AYesAtExitWritesTheRecordOverTheHeadOfTheFile) {
    WriteFile(folder, QByteArray("5276def01").leftJustified(40, '#'));
    Open();
    form->move(30, 60);
    program.preferences.ComPortNumber = 3;
    desktop.answer = true;
    EXPECT_TRUE(form->close());
    Preferences written;
    EXPECT_EQ(DecodePreferences(FileIn(folder), written), PreferencesOutcome::Read);
    EXPECT_EQ(FileIn(folder).sliced(kPreferencesSize), QByteArray("#########"));
    EXPECT_EQ(written.ComPortNumber, 3);
    EXPECT_EQ(written.MainLeft, 450);
    EXPECT_EQ(written.MainTop, 900);
}

TEST_F(MainForm, AMaximisedExitKeepsTheNormalPosition) {
    Preferences stored;
    stored.MainLeft = 150;
    stored.MainTop = 300;
    WriteFile(folder, EncodePreferences(stored));
    Open();
    form->setWindowState(Qt::WindowMaximized);
    desktop.answer = true;
    EXPECT_TRUE(form->close());
    Preferences written;
    DecodePreferences(FileIn(folder), written);
    EXPECT_EQ(written.MainWindowState, 2);
    EXPECT_EQ(written.MainLeft, 150);
    EXPECT_EQ(written.MainTop, 300);
}

TEST_F(MainForm, TroubleWithTheFileGivesOneBoxAndTheProgramEnds) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("5276.def")));  // can't be opened as a file
    form->Main_Form_Load();
    EXPECT_EQ(desktop.boxes, QStringList(kNewDefaults));
    desktop.answer = true;
    EXPECT_TRUE(form->close());
    EXPECT_EQ(desktop.boxes.constLast(), u"Save Settings|Data Error: Save settings");
}

TEST_F(MainForm, HintBlinksForItsTicksAndStartsAnewWithTheNext) {
    Open();
    auto* const hint = Get<HintLine>("Label8");
    QList<QColor> grounds;
    QObject::connect(&hint->Timer3, &QTimer::timeout, hint,
                     [&] { grounds += hint->palette().color(QPalette::Window); });
    EXPECT_EQ(hint->Timer3.interval(), 250);
    hint->Timer3.setInterval(1);  // the ticks count, not their length
    form->FlashMessage(QStringLiteral("  first "));
    EXPECT_EQ(hint->text(), u"first");
    ASSERT_TRUE(QTest::qWaitFor([&] { return grounds.size() >= 10; }));
    Click("Command4");
    EXPECT_EQ(hint->text(), u"Not connected - RM ist off");
    EXPECT_EQ(desktop.beeps, 2);
    grounds.clear();
    ASSERT_TRUE(QTest::qWaitFor([&] { return hint->text().isEmpty(); }));
    EXPECT_EQ(grounds.size(), 41);
    EXPECT_EQ(grounds.at(0), QColor(255, 255, 0));
    EXPECT_EQ(grounds.at(1), QColor(0, 255, 0));
    EXPECT_EQ(grounds.at(40), QColor(255, 255, 0));
    EXPECT_FALSE(hint->Timer3.isActive());
}

TEST_F(MainForm, OverviewTabRebuildsItsTextOnReturn) {
    Open();
    ShowTab(2);
    Click("opmodes_3");
    EXPECT_FALSE(Get<QPlainTextEdit>("Text3")->toPlainText().contains(u"positive slope"));
    ShowTab(0);
    EXPECT_TRUE(Get<QPlainTextEdit>("Text3")->toPlainText().endsWith(u"Mode: Triggered positive slope"));
}

TEST_F(MainForm, ModeReferenceAndOutputStoreAndShow) {
    Open();
    ShowTab(2);
    Click("opmodes_4");
    Click("opreference_1");
    Click("Opoutput_0");
    EXPECT_EQ(panel.bmMode, 4);
    EXPECT_EQ(panel.tmIntRef, kFalse);
    EXPECT_EQ(panel.tmOut, kTrue);
    EXPECT_EQ(Get<QLabel>("Label3")->text(), u"Output: On");
    EXPECT_EQ(Get("Label3")->palette().color(QPalette::Window), QColor(255, 128, 128));
    EXPECT_TRUE(line.wire.isEmpty());
    panel = PanelState{};
    form->RefreshPanel();
    EXPECT_TRUE(Checked("opmodes_0") && Checked("opreference_0") && Checked("Opoutput_1"));
}

TEST_F(MainForm, TheTabKeyWalksFromTheSignalToTheTabs) {
    Open();
    Get("opsignal_0")->setFocus();
    for (const char* const stop : {"Text1", "unit_1", "Text2", "vunit_0", "Text4", "Check1", "Opoutput_1", "cRM",
                                   "Command3", "Command4", "Command7"}) {
        Key(Qt::Key_Tab);
        EXPECT_TRUE(HasFocus(stop)) << stop << ' ' << QApplication::focusWidget()->objectName().toStdString();
    }
    ShowTab(1);
    Click("opmod_1");
    for (const char* const stop : {"Text6", "ocFreq_1", "Text7", "ohFreq_1"}) {
        Key(Qt::Key_Tab);
        EXPECT_TRUE(HasFocus(stop)) << stop;
    }
}

}  // namespace
