#include <QPointer>
#include <QTimer>
#include <filesystem>

#include "PanelBench.h"
#include "support/FileHands.h"

namespace {

struct SettingFiles : OpenPanel {
    // In the panel, or in the editor for what this alone has.
    void Choose(const char* item, const QString& name) {
        desktop.chosen = name.isEmpty() ? QString() : folder.filePath(name);
        const QWidget* const window = qstrcmp(item, "mnuncon") == 0 ? EditorWindow() : form.get();
        window->findChild<QAction*>(QString::fromLatin1(item))->trigger();
        EXPECT_FALSE(desktop.busy);
    }
    // Nothing is written to the file, but a message box says why.
    void ExpectRefused(const char* item, const char* name, const char* file) {
        const QByteArray before = Content(folder.filePath(QString::fromLatin1(file)));
        desktop.boxes.clear();
        Choose(item, QString::fromLatin1(name));
        EXPECT_EQ(desktop.boxes.size(), 1);
        EXPECT_TRUE(desktop.boxes.value(0).contains(u"The editor works on this file."));
        EXPECT_TRUE(Content(folder.filePath(QString::fromLatin1(file))) == before);
    }
};

TEST_F(SettingFiles, WhatIsSavedComesBackOntoThePanel) {
    Connect();
    Type("Text2", "5");  // the menu commits it
    program.memories.ArbMemory4[4095] = -2047;
    panel.tmOut = kTrue;
    Choose("mnusset", QStringLiteral("a.set"));
    panel = PanelState{};
    panel.tmIntRef = kFalse;
    program.memories.ArbMemory4[4095] = 0;
    form->RefreshPanel();
    line.wire.clear();
    Choose("mnulset", QStringLiteral("a.set"));
    EXPECT_EQ(Text("Text2"), u"5.00000");
    EXPECT_EQ(panel.tmIntRef, kFalse);  // no part of a file
    EXPECT_EQ(program.memories.ArbMemory4[4095], -2047);
    EXPECT_EQ(line.wire, "OT1\r");  // a load that changes the output switches it at once
    EXPECT_EQ(desktop.dialogs.join(u'\n'),
              u"save|Select Settings|Settings (*.set) |*.set||SET\n"
              "open|Select Settings|Settings (*.set) |*.set|*.set|SET");
    Choose("mnusset", QString());
    const auto proposed = [this] { return desktop.dialogs.constLast().section(u'|', 4, 4); };
    EXPECT_EQ(proposed(), folder.filePath(QStringLiteral("a.set")));
    Choose("mnueditor", QString());
    EXPECT_EQ(proposed(), u"*.set");
    Choose("mnulset", QString());
    Choose("mnusset", QString());
    EXPECT_EQ(proposed(), u"*.set");  // a cancelled load leaves its pattern
    EXPECT_EQ(program.SettingFileName.Name(), folder.filePath(QStringLiteral("a.set")));
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(SettingFiles, AFileOfAnotherKindIsNamedAndChangesNothing) {
    program.SettingFileName.Set(QStringLiteral("former.set"));
    const QString letter = WriteFile(folder.filePath(QStringLiteral("letter.set")), "Dear Sir");
    Choose("mnulset", QStringLiteral("letter.set"));
    EXPECT_EQ(desktop.boxes, QStringList(u"Load settings|This is not a settings file:\n" + letter));
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
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("sub")));
    ASSERT_TRUE(QFile::link(QStringLiteral("a.set"), folder.filePath(QStringLiteral("link.set"))));
    ASSERT_TRUE(QFile::link(folder.path(), folder.filePath(QStringLiteral("sub/up"))));
    std::filesystem::create_hard_link(folder.filePath(QStringLiteral("a.set")).toStdString(),
                                      folder.filePath(QStringLiteral("hard.set")).toStdString());
    for (const char* const spelling : {"./a.set", "link.set", "sub/../a.set", "sub/up/link.set", "hard.set"}) {
        for (const char* const item : {"mnusset", "mnueditor", "mnuncon"}) {
            ExpectRefused(item, spelling, "a.set");
        }
    }
    // Also when that file is gone, others can be written.
    desktop.boxes.clear();
    ASSERT_TRUE(QFile::remove(folder.filePath(QStringLiteral("a.set"))));
    Choose("mnusset", QStringLiteral("b.set"));
    EXPECT_TRUE(desktop.boxes.isEmpty());
    Choose("mnulset", QStringLiteral("b.set"));  // the editor goes over to it
    EXPECT_EQ(EditorWindow()->windowTitle(), u"Arbitrary Editor    " + folder.filePath(QStringLiteral("b.set")));
    Choose("mnueditor", QString(250, u'x'));
    Choose("mnusset", QString(250, u'x'));  // a name that was cut is as good as any
    EXPECT_EQ(desktop.boxes.size(), 1);
}

// A read that has not begun would go on in an editor that is gone.
TEST_F(SettingFiles, NoOtherEditorOpensWhileAnImportOfTheClosedOneBegins) {
    Choose("mnueditor", QStringLiteral("a.set"));
    const QPointer<QWidget> editor = EditorWindow();
    desktop.beeps = 0;
    QTimer::singleShot(0, editor, [&] {
        editor->close();
        Choose("mnueditor", QStringLiteral("b.set"));
    });
    editor->findChild<QAction*>(QStringLiteral("mnurdbincha"))->trigger();
    EXPECT_EQ(desktop.beeps, 1);
    ASSERT_NE(editor, nullptr);
    EXPECT_FALSE(editor->isVisible());
    Choose("mnueditor", QStringLiteral("b.set"));
    EXPECT_TRUE(program.editor.EditorOpen);
}

// A file that once held points and now holds the memories of the open editor is not replaced as if it held points
// still.
TEST_F(SettingFiles, NewConstructionDataDoesNotReplaceTheMemoriesUnderAnOldName) {
    Choose("mnueditor", QStringLiteral("a.set"));
    Choose("mnuncon", QStringLiteral("x.con"));
    Choose("mnuncon", QStringLiteral("x.con"));  // points in place of points
    EXPECT_TRUE(desktop.boxes.isEmpty());
    EditorWindow()->close();
    Choose("mnueditor", QStringLiteral("x.con"));
    ExpectRefused("mnuncon", "x.con", "x.con");
    Choose("mnusset", QStringLiteral("b.set"));  // the pens stay on the former file
    ExpectRefused("mnuncon", "x.con", "x.con");
    ExpectRefused("mnuncon", "b.set", "b.set");
    desktop.boxes.clear();
    Choose("mnuncon", QStringLiteral("y.con"));
    Choose("mnusset", QStringLiteral("x.con"));  // nobody works on it any more
    EXPECT_TRUE(desktop.boxes.isEmpty());
    ExpectRefused("mnusset", "y.con", "y.con");
}

}  // namespace
