#include <QFile>
#include <QProcess>
#include <cstdlib>

#include "WholeBench.h"

namespace {

constexpr int kRows = 2048;

double Recorded(int row) { return std::abs(row - 700) / 8.0; }

// Two channels, a ramp down and up and a flat line, as a scope in a country of decimal commas saves them.
QByteArray Recording() {
    QByteArray csv = "Record Length;2048\r\nTime;CH1;CH2\r\ns;V;V\r\n";
    for (int row = 0; row < kRows; ++row) {
        csv += QByteArray::number(row * 1e-6) + ';' + QByteArray::number(Recorded(row)) + ";1.0\r\n";
    }
    return csv.replace('.', ',');
}

using WholeTrace = WholeBench;

TEST_F(WholeTrace, ARecordingReachesTheInstrumentThroughTheEditor) {
    const QString csv = folder.filePath(QStringLiteral("scope.csv"));
    QFile file(csv);
    ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(Recording()) > 0);
    file.close();
    QProcess source;
    source.start(QStringLiteral(QD204_SIM),
                 {QStringLiteral("--csv"), csv, QStringLiteral("--name"), folder.filePath(QStringLiteral("qd204e"))});
    QByteArray said;
    while (!said.contains("channel B") && source.waitForReadyRead(30'000)) {
        said += source.readAllStandardOutput();
    }
    ASSERT_TRUE(said.contains("channel B"));

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
    instrument.With([](const sim::Kl5276& unit) {
        for (int row = 0; row < kRows; ++row) {
            const double sample = Recorded(row) / Recorded(kRows - 1) * 3000.0 - 1500.0;
            // The trace comes in 256 steps.
            EXPECT_NEAR(unit.state.memory4k[static_cast<std::size_t>(2 * row)], sample, 3000.0 / 255) << row;
        }
    });
    source.terminate();
    EXPECT_TRUE(source.waitForFinished(30'000) && source.exitCode() == 0);
}

}  // namespace
