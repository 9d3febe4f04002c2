#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "editor/ConstructionFileChoice.h"
#include "storage/ConstructionFile.h"
#include "support/FakeDesktop.h"

namespace {

TEST(ConstructionFileChoice, AsksOnceAndEndsOnCancel) {
    const QTemporaryDir folder;
    FakeDesktop desktop;
    FileBox boxfile(desktop);
    boxfile.FileName = QStringLiteral("a.set");
    FixedName name;
    const ConstructionChoice choice{name, boxfile, desktop, {}};
    for (const bool makeNew : {true, false}) {  // both cancelled
        desktop.answer = makeNew;
        EXPECT_FALSE(EnsureConstructionFile(choice));
    }
    EXPECT_TRUE(name.Name().isEmpty() && !desktop.busy);
    EXPECT_EQ(desktop.boxes, QStringList(2, QStringLiteral("Arbitrary Editor|Do you want to create a new Signal?")));
    EXPECT_EQ(desktop.dialogs.join(u'\n').toStdString(),
              "save|New construction data|Settings (*.con) |*.con|*.con|con\n"
              "open|Select construction data|Settings (*.con) |*.con|*.con|CON");
    EXPECT_EQ(boxfile.FileName, u"*.con");

    desktop.answer = true;
    desktop.chosen = folder.filePath(QStringLiteral("a.con"));
    EXPECT_TRUE(EnsureConstructionFile(choice));
    EXPECT_EQ(CheckConstructionFile(name.Name()), ConstructionOutcome::Usable);
    EXPECT_TRUE(EnsureConstructionFile(choice));
    EXPECT_EQ(desktop.boxes.size(), 3);  // no question once it is named

    desktop.chosen = folder.filePath(QString(300, u'x'));
    EXPECT_TRUE(ChooseConstructionFile(choice));
    EXPECT_EQ(name.Name(), desktop.chosen.first(200));
    EXPECT_EQ(boxfile.FileName, desktop.chosen);
}

}  // namespace
