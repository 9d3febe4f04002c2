#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "overview/AboutForm.h"
#include "overview/Manuals.h"
#include "support/FakeDesktop.h"

namespace {

TEST(Manuals, FirstFolderThatHoldsTheFile) {
    const QTemporaryDir empty;
    const QTemporaryDir full;
    const QTemporaryDir last;
    const QString name = QString::fromLatin1(kManualEnglish);
    for (const QTemporaryDir* dir : {&full, &last}) {
        ASSERT_TRUE(QFile(dir->filePath(name)).open(QIODevice::WriteOnly));
    }
    const QStringList folders{empty.path(), full.path(), last.path()};
    FakeDesktop desktop;
    OpenManual(desktop, folders, name);
    OpenManual(desktop, folders, QString::fromLatin1(kManualGerman));  // missing
    EXPECT_EQ(desktop.viewed, QList<QUrl>{QUrl::fromLocalFile(full.filePath(name))});
    EXPECT_TRUE(desktop.boxes.isEmpty());
    EXPECT_FALSE(desktop.busy);
}

class About : public testing::Test {
  protected:
    About() { ShowAbout(owner, desktop); }

    QList<AboutForm*> Forms() const { return owner.findChildren<AboutForm*>(); }
    // A closed form is gone once its deletion has been served.
    static void Settle() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    QWidget owner;
    FakeDesktop desktop;
};

TEST_F(About, IsOneAndNotModal) {
    AboutForm* const form = Forms().constFirst();
    EXPECT_FALSE(form->isModal());
    form->showMinimized();
    ShowAbout(owner, desktop);
    EXPECT_EQ(Forms(), QList<AboutForm*>{form});
    EXPECT_FALSE(form->isMinimized());

    form->close();
    ShowAbout(owner, desktop);  // before the closed one is gone
    Settle();
    ASSERT_EQ(Forms().size(), 1);
    EXPECT_TRUE(Forms().constFirst()->isVisible());
}

TEST_F(About, ClosesByButtonAndKeys) {
    const auto press = [&](int way) {
        AboutForm* const form = Forms().constFirst();
        if (way == 0) {
            QTest::mouseClick(form->findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
        } else {
            QTest::keyClick(form, way == 1 ? Qt::Key_Return : Qt::Key_Escape);
        }
    };
    for (const int way : {0, 1, 2}) {
        ShowAbout(owner, desktop);
        press(way);
        Settle();
        EXPECT_TRUE(Forms().isEmpty()) << way;
    }
    EXPECT_TRUE(desktop.viewed.isEmpty());
}

TEST_F(About, WebSiteOpensByMouseAndKey) {
    AboutForm* const form = Forms().constFirst();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form));
    auto* const Label14 = form->findChild<QLabel*>(QStringLiteral("Label14"));
    const QUrl address(QStringLiteral("https://trx5276.example"));

    const int textWidth = Label14->sizeHint().width();
    QTest::mouseClick(Label14, Qt::LeftButton, {}, QPoint(textWidth - 20, Label14->height() / 2));
    EXPECT_EQ(desktop.viewed, QList<QUrl>{address});

    auto* const Command1 = form->findChild<QPushButton*>(QStringLiteral("Command1"));
    for (const int count : {2, 3}) {
        Command1->setFocus();
        QTest::keyClick(Command1, Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget(), Label14);
        QTest::keyClick(Label14, Qt::Key_Return);
        EXPECT_EQ(desktop.viewed.size(), count);
        EXPECT_EQ(desktop.viewed.constLast(), address);
        QTest::keyClick(Label14, Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), Command1);
    }
    EXPECT_TRUE(form->isVisible());
}

}  // namespace
