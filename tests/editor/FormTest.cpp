#include "EditorBench.h"

namespace {

using EditorForm = EditorBench;

TEST_F(EditorForm, ThePicturesTakeTheRoomThatTheFormGivesThem) {
    form->resize(300, 300);
    EXPECT_TRUE(form->width() >= 534 && form->height() == 400);
    QCoreApplication::processEvents();
    const QRect detail = Get("Picture2")->geometry();
    form->resize(form->size() + QSize(200, 100));
    QCoreApplication::processEvents();
    EXPECT_EQ(Get("Picture2")->geometry(), detail.adjusted(0, 0, 200, 100));
}

TEST_F(EditorForm, ClosingReadsTheFileBackOnceAndKeepsThePlace) {
    form->move(60, 90);
    form->resize(700, 500);
    host.running = true;
    EXPECT_TRUE(!form->close() && form->isVisible() && host.calls.isEmpty());
    host.running = false;
    EXPECT_TRUE(form->close() && form->close());
    EXPECT_FALSE(state.EditorOpen || desktop.busy);
    EXPECT_EQ(host.calls, u"load draw ");
    Open();
    EXPECT_EQ(QRect(form->pos(), form->size()), QRect(60, 90, 700, 500));
    form->resize(800, 600);
    form->setWindowState(Qt::WindowMaximized);
    form->close();
    EXPECT_EQ(program.preferences.EditorWindowState, 2);
    EXPECT_EQ(program.preferences.EditorWidth, 10500);
}

TEST_F(EditorForm, ThePicturesAreWorkedByKeys) {
    const auto walk = [this](std::initializer_list<Qt::Key> keys) {
        for (const Qt::Key key : keys) {
            Key(key);
        }
    };
    // A part of the overview is held and drawn.
    Get("Picture1")->setFocus();
    walk({Qt::Key_Home, Qt::Key_Space, Qt::Key_End, Qt::Key_Left, Qt::Key_Space});
    Tick();
    EXPECT_TRUE(state.ViewLeft == 0 && state.ViewRight > 4000 && state.ViewRight < 4095);
    Zoom(1000, 1040);
    // A click at either end makes a line; with so few addresses a step is one of them.
    Get("Picture2")->setFocus();
    walk({Qt::Key_PageUp, Qt::Key_Return});
    EXPECT_EQ(Get<QLabel>("corint_0")->text(), u"X= 1020");
    walk({Qt::Key_Right, Qt::Key_Right, Qt::Key_Enter});
    EXPECT_EQ(Rows(set, "ARB4 where Adr between 1019 and 1023"), "1019=19 1020=2060 1021=2060 1022=2060 1023=23");
}

}  // namespace
