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
