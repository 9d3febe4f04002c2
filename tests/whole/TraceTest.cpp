#include "WholeBench.h"
#include "simulator/TraceShapes.h"
#include "simulator/TraceSource.h"

namespace {

using WholeTrace = WholeBench;

TEST_F(WholeTrace, AChannelReachesTheInstrumentThroughTheEditor) {
    const sim::Trace ramp = *sim::TraceShape("ramp");
    sim::TraceSource source({folder.filePath(QStringLiteral("qd204e")).toStdString(), {ramp, ramp}, {}});
    std::string error;
    ASSERT_TRUE(source.Start(&error)) << error;
    auto& instrument = Connect({});
    clock.paces = false;
    desktop.chosen = folder.filePath(QStringLiteral("a.set"));
    panel.Get<QAction>("mnueditor")->trigger();
    QCoreApplication::processEvents();
    FormHands<QWidget, QWidget*> editor{QApplication::activeWindow()};
    desktop.answer = true;  // a new signal
    desktop.chosen = folder.filePath(QStringLiteral("a.con"));
    editor.Get<QAction>("mnuchafit")->trigger();
    editor.Get<QAction>("mnulinint")->trigger();
    editor.form->close();
    panel.Get<QAction>("mnuStArb4")->trigger();
    EXPECT_EQ(desktop.boxes, QStringList(QStringLiteral("Arbitrary Editor|Do you want to create a new Signal?")));
    ASSERT_TRUE(instrument.WaitForLines(4098, std::chrono::seconds(30)));
    instrument.With([&ramp](const sim::Kl5276& unit) {
        for (std::size_t i = 0; i < ramp.size(); ++i) {
            EXPECT_NEAR(unit.state.memory4k[2 * i], (ramp[i] - 1) * 3000.0 / 32766.0 - 1500.0, 0.5) << i;
        }
    });
}

}  // namespace
