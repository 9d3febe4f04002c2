#include "WholeBench.h"
#include "editor/Spline.h"
#include "support/PictureHands.h"

namespace {

using WholeEditor = WholeBench;

TEST_F(WholeEditor, ASignalSetByHandArrivesInTheInstrument) {
    auto& instrument = Connect();
    clock.paces = false;
    FormHands<QWidget, QWidget*> editor;
    OpenEditor(editor);
    desktop.chosen = folder.filePath(QStringLiteral("a.con"));
    editor.Get<QAction>("mnuncon")->trigger();
    PictureHands view{editor.Get<PictureBox>("Picture2")};
    view.Press(1200, 1500);
    view.Press(1800, -1900);
    editor.Enter("Text1_0", "3000");
    editor.Enter("Text1_1", "700");
    editor.Click("Opintmode_1");
    editor.Get<QAction>("mnulinint")->trigger();
    EXPECT_TRUE(editor.form->close());
    panel.Get<QAction>("mnuStArb4")->trigger();
    ASSERT_TRUE(instrument.WaitForLines(4098, std::chrono::seconds(30)));

    std::array<qint16, 4096> spline{};
    ComputeSpline(std::vector<Record>{{0, 0, 0}, {0, 1200, 1500}, {0, 1800, -1900}, {0, 3000, 700}, {0, 4095, 0}},
                  spline);
    instrument.With([&](const sim::Kl5276& unit) {
        EXPECT_TRUE(std::equal(spline.begin(), spline.end(), unit.state.memory4k.begin()));
    });
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

}  // namespace
