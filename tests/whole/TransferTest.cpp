#include <QMenu>
#include <QProgressBar>

#include "WholeBench.h"

namespace {

struct WholeTransfers : WholeBench {
    WholeTransfers() {
        for (int i = 0; i < 16385; ++i) {
            program.memories.ArbMemory16[static_cast<std::size_t>(i)] = static_cast<qint16>(i % 4095 - 2047);
        }
        std::copy_n(program.memories.ArbMemory16.begin(), 4096, program.memories.ArbMemory4.begin());
        clock.paces = false;
    }
    static QString Line(int address) { return QStringLiteral("arp16:%1=%2").arg(address).arg(address % 4095 - 2047); }
};

TEST_F(WholeTransfers, ASentMemoryIsVerifiedAndAChangeInTheInstrumentIsFound) {
    auto& instrument = Connect();
    panel.Get<QAction>("mnuverify")->trigger();
    panel.Get<QAction>("mnuStArb4")->trigger();
    EXPECT_EQ(desktop.boxes, QStringList(QStringLiteral("Compare Arb. 4k|all 4096 points agree")));
    instrument.With([](sim::Kl5276& unit) { unit.state.memory4k[4095] = 77; });
    panel.Get<QAction>("mnuCmpArb4")->trigger();
    EXPECT_EQ(desktop.boxes.constLast(),
              u"Compare Arb. 4k|1 of 4096 points differ, the first at address 4095: "
              u"-2047 in the PC, 77 in the instrument");
}

// What the port holds by then goes out whole, the last point too.
TEST_F(WholeTransfers, ASendStoppedOnASlowLineEndsInOrderAndTheLinkGoesOn) {
    auto& instrument = Connect({.realTime = true}, 115200);
    QObject::connect(panel.Get<QProgressBar>("status"), &QProgressBar::valueChanged, [&](int value) {
        if (value == 2500) {
            panel.Key(Qt::Key_Escape);
        }
    });
    panel.Get<QAction>("mnuStArb16")->trigger();
    EXPECT_EQ(panel.Hint(), u"Stopped: 2501 of 16385 points sent");
    panel.Click("Command3");
    EXPECT_EQ(program.link.LinkUp, 1);
    const QStringList lines = Lines(instrument);
    EXPECT_EQ(lines.first(2).join(u' '), QString(u"arc16 " + Line(0)));
    EXPECT_EQ(lines.sliced(2501, 3).join(u' '), QString(Line(2500) + u" are amt?"));
}

}  // namespace
