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
}

TEST_F(EditorForm, ThePicturesAreWorkedByKeys) {
    Get("Picture1")->setFocus();
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Space, Qt::Key_End, Qt::Key_Left, Qt::Key_Space}) {
        Key(key);
    }
    Tick();
    EXPECT_TRUE(state.ViewLeft == 0 && state.ViewRight > 4000 && state.ViewRight < 4095);
    Get("Picture2")->setFocus();
    Key(Qt::Key_Return);
    EXPECT_TRUE(state.LineActive);
}

}  // namespace
