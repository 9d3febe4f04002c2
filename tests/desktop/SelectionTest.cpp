#include <QApplication>
#include <QClipboard>
#include <QTest>

#include "support/PrintQt.h"
#include "widgets/EntryField.h"

namespace {

TEST(Selections, AreFilteredWhenTheMiddleButtonPastesThemAndEndWithTheFocus) {
    EntryField field(
        QStringLiteral("field"), [](QChar typed) { return typed.isDigit() ? typed : QChar(); }, nullptr);
    field.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    QGuiApplication::clipboard()->setText(QStringLiteral("12 V"), QClipboard::Selection);
    QTest::mouseClick(&field, Qt::MiddleButton);
    EXPECT_EQ(field.text(), u"12");
    field.selectAll();
    EXPECT_TRUE(field.hasSelectedText());
    field.clearFocus();
    EXPECT_FALSE(field.hasSelectedText());
}

}  // namespace
