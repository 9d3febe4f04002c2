#include <QFile>

#include "PanelBench.h"

namespace {

struct SettingFiles : PanelBench {
    void Choose(const char* item, const QString& name) {
        desktop.chosen = name.isEmpty() ? QString() : folder.filePath(name);
        Get<QAction>(item)->trigger();
        EXPECT_FALSE(desktop.busy);
    }
};

TEST_F(SettingFiles, WhatIsSavedComesBackOntoThePanel) {
    Open();
    Connect();
    Type("Text2", "5");  // the menu commits it
    panel.bmAmpMod = 1;
    program.memories.ArbMemory4[4095] = -2047;
    program.memories.ArbMemory16[16383] = 2047;
    Choose("mnusset", QStringLiteral("a.set"));
    EXPECT_EQ(panel.mAmp, 5.0);
    panel = PanelState{};
    panel.tmOut = kTrue;
    panel.tmIntRef = kFalse;
    program.memories = ArbMemories{};
    form->RefreshPanel();
    line.wire.clear();
    Choose("mnulset", QStringLiteral("a.set"));
    EXPECT_EQ(Text("Text2"), u"5.00000");
    EXPECT_TRUE(Checked("opAmMod_1"));
    EXPECT_EQ(panel.tmIntRef, kFalse);  // no part of a file
    EXPECT_EQ(program.memories.ArbMemory4[4095], -2047);
    EXPECT_EQ(program.memories.ArbMemory16[16383], 2047);
    EXPECT_EQ(line.wire, "OT0\r");  // a load that changes the output switches it at once
    EXPECT_EQ(program.SettingFileName.Text().size(), 200);
    EXPECT_EQ(desktop.dialogs.join(u'\n').toStdString(),
              "save|Select Settings|Settings (*.set) |*.set||SET\n"
              "open|Select Settings|Settings (*.set) |*.set|*.set|SET");
    Choose("mnusset", QString());
    EXPECT_EQ(desktop.dialogs.constLast().section(u'|', 4, 4), folder.filePath(QStringLiteral("a.set")));
    Choose("mnulset", QString());
    Choose("mnusset", QString());
    EXPECT_EQ(desktop.dialogs.constLast().section(u'|', 4, 4), u"*.set");  // a cancelled load leaves its pattern
    EXPECT_EQ(program.SettingFileName.Name(), folder.filePath(QStringLiteral("a.set")));
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(SettingFiles, AFileOfAnotherKindIsNamedAndChangesNothing) {
    Open();
    program.SettingFileName.Set(QStringLiteral("former.set"));
    QFile file(folder.filePath(QStringLiteral("letter.set")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("Dear Sir");
    file.close();
    Choose("mnulset", QStringLiteral("letter.set"));
    EXPECT_EQ(desktop.boxes, QStringList(u"Load settings|This is not a settings file:\n" + file.fileName()));
    EXPECT_EQ(program.SettingFileName.Name(), u"former.set");
    EXPECT_EQ(panel.mFreq, 1000.0);
    Choose("mnulset", QStringLiteral("missing.set"));  // silent
    Choose("mnusset", QStringLiteral("no/such/folder.set"));
    EXPECT_EQ(desktop.boxes.size(), 1);
}

TEST_F(SettingFiles, ALoadIsRefusedDuringAnOperationOnTheLink) {
    Open();
    Connect();
    clock.onWait = [this] { Get<QAction>("mnulset")->trigger(); };
    Click("Opoutput_0");
    EXPECT_TRUE(desktop.dialogs.isEmpty());
    EXPECT_EQ(desktop.beeps, 1);
}

TEST_F(SettingFiles, NothingTakesThePlaceOfTheFileThatTheEditorWorksOn) {
    Open();
    Choose("mnueditor", QStringLiteral("a.set"));
    EXPECT_TRUE(program.editor.EditorOpen);
    program.memories.ArbMemory4[7] = 77;
    for (const char* const item : {"mnusset", "mnueditor"}) {
        desktop.boxes.clear();
        Choose(item, QStringLiteral("./a.set"));
        EXPECT_EQ(desktop.boxes.size(), 1) << item;
        EXPECT_TRUE(desktop.boxes.value(0).contains(u"The editor works on this file."));
    }
    // Also when that file is gone, others can be written.
    desktop.boxes.clear();
    ASSERT_TRUE(QFile::remove(folder.filePath(QStringLiteral("a.set"))));
    Choose("mnusset", QStringLiteral("b.set"));
    EXPECT_TRUE(desktop.boxes.isEmpty());
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("b.set"))));
    Choose("mnusset", QString());  // Cancel
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

}  // namespace
