#include "EditorBench.h"

namespace {

using EditorForm = EditorBench;

TEST_F(EditorForm, ThePicturesTakeTheRoomThatTheFormGivesThem) {
    form->resize(300, 300);
    EXPECT_GE(form->width(), 534);
    EXPECT_EQ(form->height(), 400);
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
    EXPECT_FALSE(form->close());
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(host.calls, QString());
    host.running = false;
    EXPECT_TRUE(form->close());
    EXPECT_TRUE(form->close());
    EXPECT_FALSE(state.EditorOpen);
    EXPECT_FALSE(desktop.busy);
    EXPECT_EQ(host.calls, u"load draw ");
    Open();
    EXPECT_EQ(QRect(form->pos(), form->size()), QRect(60, 90, 700, 500));
}

}  // namespace
