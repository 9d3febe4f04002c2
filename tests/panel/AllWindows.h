#pragma once

#include <QTimer>

#include "PanelBench.h"
#include "support/FileHands.h"
#include "widgets/QtDesktop.h"

// Every window of the program, one after the other.
struct Windows : PanelBench {
    // Every window of the program, Main also on its other tabs and the editor in both modes.
    void Check(const std::function<void(QWidget*)>& check) {
        Open();
        form->FlashMessage(QStringLiteral("a hint"));
        check(form.get());
        for (const auto& [tab, option] : {std::pair(1, "opmod_0"), {1, "opmod_1"}, {1, "opmod_2"}, {2, "opwob_1"}}) {
            ShowTab(tab);
            Click(option);
            check(form.get());
        }
        desktop.answer = true;
        WriteFile(folder.filePath(QStringLiteral("docs/guide/README.md")), "[A link](README.md)\n");
        program.editor.CopyEnd = 100;  // there is something to paste
        for (const char* const item : {"mnucom", "mnuabout", "mnuguide", "mnueditor"}) {
            if (!withPages && qstrcmp(item, "mnuguide") == 0) {
                continue;
            }
            if (QWidget* const former = QApplication::activeWindow(); former != form.get()) {
                former->close();
            }
            ASSERT_TRUE(Activate(form.get()));
            desktop.chosen = folder.filePath(QStringLiteral("a.set"));
            Get<QAction>(item)->trigger();
            desktop.chosen = folder.filePath(QStringLiteral("a.con"));
            ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() != form.get(); }, kLimitMs));
            check(QApplication::activeWindow());
        }
        CheckEditor(check, *QApplication::activeWindow());
        form.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // while its state stands
        CheckBoxes(check);
    }

    bool withPages = false;  // also the guide and a recording, whose keys have tests of their own

  private:
    // The windows over the editor, and at last this in its other mode.
    void CheckEditor(const std::function<void(QWidget*)>& check, QWidget& editor) {
        desktop.chosen =
            WriteFile(folder.filePath(QStringLiteral("scope.csv")), "Time (s),CH1 (V)\n0,1\n1e-3,2\n2e-3,3\n");
        for (const char* const item : {"mnuformula", "mnuopenrec"}) {
            if (!withPages && qstrcmp(item, "mnuopenrec") == 0) {
                continue;
            }
            editor.findChild<QAction*>(QString::fromLatin1(item))->trigger();
            ASSERT_TRUE(QTest::qWaitFor([&editor] { return QApplication::activeWindow() != &editor; }, kLimitMs));
            const auto* const found = QApplication::activeWindow()->findChild<QLabel*>(QStringLiteral("found"));
            ASSERT_TRUE(QTest::qWaitFor([found] { return !found || !found->text().startsWith(u"Reading"); }));
            check(QApplication::activeWindow());
            QTest::keyClick(QApplication::activeWindow(), Qt::Key_Escape);
            ASSERT_TRUE(Activate(&editor));
        }
        desktop.chosen = folder.filePath(QStringLiteral("a.con"));
        editor.findChild<QAbstractButton*>(QStringLiteral("opEditmode_1"))->click();
        check(&editor);
    }
    static void CheckBoxes(const std::function<void(QWidget*)>& check) {
        QTimer whenShown;
        whenShown.callOnTimeout([&check] {
            if (QWidget* const box = QApplication::activeModalWidget()) {
                check(box);
                box->close();
            }
        });
        whenShown.start();
        QtDesktop().MessageBox(QStringLiteral("a"), QStringLiteral("b"));
        EXPECT_FALSE(QtDesktop().Question(QStringLiteral("a"), QStringLiteral("b"), Desktop::Default::Yes));
    }
};
