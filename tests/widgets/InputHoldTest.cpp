#include <QDialog>
#include <QLabel>
#include <QShortcut>

#include "stand_ins/FakeDesktop.h"
#include "support/FormHands.h"
#include "widgets/InputHold.h"
#include "widgets/PlainBox.h"
#include "widgets/QtDesktop.h"

namespace {

TEST(InputHold, HoldsAWindowThatIsModalToAFormButNoneThatIsModalToTheProgram) {
    FakeDesktop desktop;
    InputHold hold(desktop);
    hold.Set(true);
    QWidget form;
    form.show();
    for (const auto& [modality, taken] : {std::pair(Qt::WindowModal, u""), {Qt::ApplicationModal, u"1"}}) {
        QDialog dialog(&form);
        dialog.setWindowModality(modality);
        QLineEdit field(&dialog);
        dialog.show();
        ASSERT_TRUE(Activate(&dialog));
        QTest::keyClick(&field, Qt::Key_1);
        EXPECT_EQ(field.text(), taken);
    }
    EXPECT_EQ(desktop.beeps, 1);
}

TEST(PlainBox, ShowsItsWholeTextAndHasRoomForItsTitle) {
    const QString title = QStringLiteral("A title that is longer than its text");
    for (const int words : {1, 12, 80}) {
        PlainBox box(QMessageBox::Warning, title, QStringLiteral("several ").repeated(words), QMessageBox::Ok, nullptr);
        box.show();
        const auto* const text = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        const int width = text->fontMetrics().horizontalAdvance(text->text().trimmed());
        EXPECT_TRUE(text->wordWrap() || width <= text->width()) << words;
        EXPECT_GE(text->height(), text->heightForWidth(text->width())) << words;
        EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(title) + 100);
    }
}

TEST(QtDesktop, ShowsOneHourglassHoweverOftenItIsAskedFor) {
    QtDesktop desktop;
    desktop.BusyOn();
    desktop.BusyOn();
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    desktop.BusyOff();
    desktop.BusyOff();
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(InputHold, BeepsOnceForAKeyOfAMenuAndRunsNothing) {
    FakeDesktop desktop;
    InputHold hold(desktop);
    QWidget form;
    int runs = 0;
    QShortcut key(QKeySequence(Qt::CTRL | Qt::Key_Z), &form, [&runs] { ++runs; });
    form.show();
    ASSERT_TRUE(Activate(&form));
    for (const bool held : {true, false}) {
        hold.Set(held);
        QTest::keyClick(&form, Qt::Key_Z, Qt::ControlModifier);
    }
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(desktop.beeps, 1);
}

}  // namespace
