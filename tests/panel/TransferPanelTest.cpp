#include <QProgressBar>

#include "PanelBench.h"
#include "link/TransferTexts.h"
#include "panel/TransferBar.h"
#include "support/Pixels.h"

namespace {

// A panel linked to an instrument whose memories hold `there`.
struct TransferPanel : OpenPanel {
    void SetUp() override {
        OpenPanel::SetUp();
        Connect();
        for (std::size_t i = 0; i < there.size(); ++i) {
            there[i] = static_cast<int>(i % 4095) - 2047;
            program.memories.ArbMemory16[i] = static_cast<qint16>(there[i]);
        }
        std::copy_n(program.memories.ArbMemory16.begin(), 4097, program.memories.ArbMemory4.begin());
        line.reply = [this](const QString& command, const QString&) { return PointReply(command, there); };
        clock.onWait = [this] {
            captions += Hint();
            whileRunning();
        };
    }

    // What the user is told: the boxes, and what stands on the hint line.
    QString Run(const char* item) {
        desktop.boxes.clear();
        line.wire.clear();
        Get<QLabel>("Label8")->clear();
        Get<QAction>(item)->trigger();
        EXPECT_FALSE(Get("status")->isVisible());
        EXPECT_FALSE(desktop.busy);
        return QStringList(desktop.boxes + QStringList(Hint())).join(u'/');
    }

    std::array<int, 16385> there{};
    QSet<QString> captions;
    std::function<void()> whileRunning = [] {};
};

TEST_F(TransferPanel, AComparisonReadsBackChangesNothingAndCountsWhatDiffers) {
    const auto& [k4, k16] = std::tie(program.memories.ArbMemory4, program.memories.ArbMemory16);
    Run("mnuRdArb16");
    const QByteArray asRead = line.wire;
    const auto before = k16;
    EXPECT_EQ(Run("mnuCmpArb16"), u"Compare Arb. 16k|all 16385 points agree/");
    EXPECT_EQ(line.wire, asRead);
    EXPECT_TRUE(captions.contains(QStringLiteral("Please wait. Compare 16385 Values")));
    there[16384] = 70000;  // more than a sample can be
    EXPECT_TRUE(
        Run("mnuCmpArb16").contains(u"1 of 16385 points differ, the first at address 16384: -2043 in the PC, 70000"));
    there[4095] = there[0] = 1;
    EXPECT_TRUE(Run("mnuCmpArb4").contains(u"2 of 4096 points differ, the first at address 0: -2047 in the PC, 1 in"));
    EXPECT_EQ(k16, before);
    EXPECT_TRUE(std::equal(k4.begin(), k4.end(), before.begin()));
}

TEST_F(TransferPanel, AComparisonEndsAtTheFirstReplyThatDoesNotComeOrHoldsNoNumber) {
    line.replies = {{QStringLiteral("arp4:300=?"), "arp4:300=off\r"}};
    EXPECT_EQ(Run("mnuCmpArb4"), u"Compare Arb. 4k|Comparison ended at address 300: no number in the reply/");
    EXPECT_TRUE(line.wire.endsWith("arp4:300=?\r"));
    line.replies = {{QStringLiteral("arp4:301=?"), "12"}};  // and no CR
    EXPECT_EQ(Run("mnuCmpArb4"),
              u"Serial - Error| Data read error ( arp4:301=?\r )/"
              u"Comparison ended at address 301: no reply");
    EXPECT_TRUE(line.wire.endsWith("arp4:301=?\r"));
    EXPECT_EQ(program.link.LinkUp, 0);
}

TEST_F(TransferPanel, EscapeStopsAfterTheCurrentPointWhicheverControlHasTheFocus) {
    program.memories.ArbMemory4.fill(55);
    whileRunning = [this] {
        if (line.wire.count('\r') == 201) {  // the start command and the points 0 to 199, or the points 0 to 200
            Key(Qt::Key_Escape);
        }
    };
    EXPECT_EQ(Run("mnuRdArb4"), u"Stopped: 201 of 4096 points read");
    Key(Qt::Key_Escape);
    EXPECT_EQ(Hint(), u"Stopped: 201 of 4096 points read");  // there is nothing to stop any more
    EXPECT_EQ(program.memories.ArbMemory4[200], -1847);
    EXPECT_EQ(program.memories.ArbMemory4[201], 55);
    EXPECT_EQ(Run("mnuCmpArb16"), u"Stopped: 201 of 16385 points compared, all agree");
    there[0] = 1;
    for (const char* const control :
         {"Text1", "opsignal_0", "unit_1", "Check1", "cRM", "Command4", "SSTab1", "Text3"}) {
        Get(control)->setFocus();
        EXPECT_EQ(Run("mnuCmpArb16"), u"Stopped: 201 of 16385 points compared, 1 differ") << control;
    }
}

TEST_F(TransferPanel, UntilTheLineHasCarriedTheLastPointTheBarStandsAndEscapeDoesNothing) {
    line.lineFreeMs = 5000;
    qint64 shownUntilMs = 0;
    whileRunning = [&] {
        if (line.wire.endsWith("are\r")) {
            Key(Qt::Key_Escape);
            EXPECT_TRUE(Get("status")->isVisible());
            EXPECT_TRUE(desktop.busy);
            shownUntilMs = clock.nowMs;
        }
    };
    Get<QAction>("mnuverify")->setChecked(true);
    EXPECT_EQ(Run("mnuStArb4"), u"Compare Arb. 4k|all 4096 points agree/");
    EXPECT_EQ(shownUntilMs, 5000);
    EXPECT_FALSE(captions.contains(QStringLiteral("Stopping: what is on its way goes out first")));
}

TEST_F(TransferPanel, OnlyAWholeSendIsVerifiedAndOnlyOnDemand) {
    auto* const verify = Get<QAction>("mnuverify");
    EXPECT_FALSE(verify->isChecked());
    EXPECT_EQ(Run("mnuStArb16"), QString());
    EXPECT_TRUE(line.wire.endsWith("are\r"));
    verify->trigger();
    EXPECT_EQ(Run("mnuStArb16"), u"Compare Arb. 16k|all 16385 points agree/");
    EXPECT_EQ(line.wire.count("are\rarp16:0=?\r"), 1);
    EXPECT_EQ(Run("mnuRdArb4"), QString());
    whileRunning = [this] { line.takesOutput = !line.wire.contains("arp4"); };
    EXPECT_EQ(Run("mnuStArb4").count(u"Serial - Error"), 1);
    EXPECT_EQ(line.wire.count('?'), 0);
    EXPECT_EQ(program.link.LinkUp, 0);
}

TEST_F(TransferPanel, TheBarTellsPercentAndTime) {
    QStringList texts;
    whileRunning = [&] {
        const QString text = Get<QProgressBar>("status")->text();
        texts += texts.contains(text) ? QStringList() : QStringList(text);
    };
    Run("mnuCmpArb4");  // 4096 points at 5 ms each
    EXPECT_EQ(texts.constFirst(), u"0 %");
    EXPECT_TRUE(texts.contains(QStringLiteral("50 %, 10 s left")));
    EXPECT_EQ(texts.constLast(), u"98 %, 1 s left");
    EXPECT_EQ(ProgressText({7, 59'499}), u"7 %, 59 s left");
    EXPECT_EQ(ProgressText({7, 59'500}), u"7 %, 1 min 0 s left");
}

TEST_F(TransferPanel, TheTextOfTheBarIsReadableOnEitherPartInAnyPalette) {
    const QPalette former = QApplication::palette();
    QPalette dark(QColor(0x31, 0x36, 0x3b));
    dark.setColor(QPalette::Base, QColor(0x23, 0x26, 0x29));
    const QPalette contrast(Qt::yellow, Qt::black, Qt::black, Qt::black, Qt::black, Qt::yellow, Qt::black);
    auto* const bar = Get<TransferBar>("status");
    bar->Begin(100);
    bar->ShowPoint(50);
    for (const QPalette& palette : {former, dark, contrast}) {
        QApplication::setPalette(palette);
        QCoreApplication::processEvents();
        const QImage image = bar->grab().toImage();
        for (const int x : {image.width() / 4, image.width() * 3 / 4}) {
            EXPECT_TRUE(IsReadable(palette.color(QPalette::Text), image.pixelColor(x, 4))) << x;
        }
    }
    QApplication::setPalette(former);
}

}  // namespace
