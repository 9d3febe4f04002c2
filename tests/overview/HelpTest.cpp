#include <QTemporaryDir>

#include "overview/AboutForm.h"
#include "overview/Manuals.h"
#include "stand_ins/FakeDesktop.h"
#include "support/FormHands.h"

namespace {

TEST(Manuals, OpenFromTheFirstFolderThatHoldsThem) {
    const QTemporaryDir empty;
    const QTemporaryDir full;
    const QString name = QString::fromLatin1(kManualEnglish);
    ASSERT_TRUE(QFile(full.filePath(name)).open(QIODevice::WriteOnly));
    const QStringList folders{empty.path(), full.path(), full.path() + QStringLiteral("/.")};
    FakeDesktop desktop;
    OpenManual(desktop, folders, name);
    OpenManual(desktop, folders, QString::fromLatin1(kManualGerman));  // missing
    EXPECT_EQ(ManualToolTip(folders, QString::fromLatin1(kManualGerman)),
              u"Missing: kl5276_d.pdf belongs in " + folders.first());
    EXPECT_EQ(ManualToolTip(folders, name), full.filePath(name));
    EXPECT_EQ(desktop.viewed, QList<QUrl>{QUrl::fromLocalFile(full.filePath(name))});
    EXPECT_TRUE(desktop.boxes.isEmpty());
    EXPECT_FALSE(desktop.busy);
}

TEST(About, WebSiteOpensByMouseAndKey) {
    QWidget owner;
    FakeDesktop desktop;
    ShowAbout(owner, desktop);
    auto* const form = owner.findChild<AboutForm*>();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form));
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"Command1");
    const auto* const name = form->findChild<QLabel*>(QStringLiteral("Label1"));
    EXPECT_GT(name->fontMetrics().height(), 1.5 * form->fontMetrics().height());
    auto* const Label14 = form->findChild<QLabel*>(QStringLiteral("Label14"));
    QTest::mouseClick(Label14, Qt::LeftButton, {}, QPoint(Label14->sizeHint().width() - 20, Label14->height() / 2));
    form->findChild<QPushButton*>(QStringLiteral("Command1"))->setFocus();
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return}) {
        QTest::keyClick(QApplication::focusWidget(), key);
    }
    EXPECT_EQ(desktop.viewed, QList<QUrl>(3, QUrl(QStringLiteral("https://trx5276.example"))));
    EXPECT_TRUE(form->isVisible());
    QTest::mouseClick(form->findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
}

}  // namespace
