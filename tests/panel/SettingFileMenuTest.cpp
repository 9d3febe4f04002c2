#include <QFile>

#include "PanelBench.h"

namespace {

struct SettingFiles : OpenPanel {
    void Choose(const char* item, const QString& name) {
        desktop.chosen = name.isEmpty() ? QString() : folder.filePath(name);
        Get<QAction>(item)->trigger();
        EXPECT_FALSE(desktop.busy);
    }
};

TEST_F(SettingFiles, WhatIsSavedComesBackOntoThePanel) {
    Connect();
    Type("Text2", "5");  // the menu commits it
    panel.bmAmpMod = 1;
    program.memories.ArbMemory4[4095] = -2047;
    Choose("mnusset", QStringLiteral("a.set"));
    panel = PanelState{};
    panel.tmOut = kTrue;
    panel.tmIntRef = kFalse;
    program.memories.ArbMemory4[4095] = 0;
    form->RefreshPanel();
    line.wire.clear();
    Choose("mnulset", QStringLiteral("a.set"));
    EXPECT_EQ(Text("Text2"), u"5.00000");
    EXPECT_TRUE(Checked("opAmMod_1"));
    EXPECT_EQ(panel.tmIntRef, kFalse);  // no part of a file
    EXPECT_EQ(program.memories.ArbMemory4[4095], -2047);
    EXPECT_EQ(line.wire, "OT0\r");  // a load that changes the output switches it at once
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
    program.SettingFileName.Set(QStringLiteral("former.set"));
    QFile file(folder.filePath(QStringLiteral("letter.set")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("Dear Sir") > 0 && file.flush());
    Choose("mnulset", QStringLiteral("letter.set"));
    EXPECT_EQ(desktop.boxes, QStringList(u"Load settings|This is not a settings file:\n" + file.fileName()));
    EXPECT_EQ(program.SettingFileName.Name(), u"former.set");
    Choose("mnulset", QStringLiteral("missing.set"));  // silent
    Choose("mnusset", QStringLiteral("no/such/folder.set"));
    Choose("mnusset", QString(300, u'x'));
    EXPECT_EQ(program.SettingFileName.Name(), folder.filePath(QString(300, u'x')).first(200));
    EXPECT_EQ(desktop.boxes.size(), 1);
}

TEST_F(SettingFiles, NothingTakesThePlaceOfTheFileThatTheEditorWorksOn) {
    Choose("mnueditor", QStringLiteral("a.set"));
    EXPECT_TRUE(program.editor.EditorOpen);
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
    Choose("mnueditor", QString(250, u'x'));
    Choose("mnusset", QString(250, u'x'));  // a name that was cut is as good as any
    EXPECT_EQ(desktop.boxes.size(), 1);
}

}  // namespace
