#include "LinkBench.h"

namespace {

struct ReadingBack : LinkBench {
    ReadingBack() {
        line.reply = [](const QString& query, const QString&) {
            return QByteArray(query == u"sta?" ? "SW0 SIN AM0 SK0 CTM VPP\r" : "0\r");
        };
        ConnectSilently();
    }
};

TEST_F(ReadingBack, ATimeOutLeavesWhatTheCollectedTextSays) {
    // query, what comes in answer, what follows from it
    const std::tuple<const char*, const char*, std::function<bool()>> cases[] = {
        {"stt?", "12", [this] { return panel.msWobbel == 12 && panel.meWobbel == 12 && panel.mtWobbel == 12; }},
        {"fk0?", "7", [this] { return panel.mcFreq == 7 && panel.mhFreq == 7 && panel.mPhaseb == 7; }},
        {"sta?", "", [this] { return panel.bmSignal == 8 && panel.bmMode == 4 && panel.tmVPP == kFalse; }},
        {"amp?", "0.1", [this] { return panel.mAmp == 0.1 && panel.bmBereich == 1 && panel.mOffset == 0.001; }},
        {"frq?", "", [this] { return panel.mFreq == 0.0 && panel.mAmp == 0.0; }}};
    for (const auto& [query, partial, follows] : cases) {
        panel = PanelState{};
        panel.bmWobbel = 1;
        desktop.boxes.clear();
        line.replies = {{QString::fromLatin1(query), partial}};
        ConnectSilently();
        link.readBack.ReadAllFromUnit();
        EXPECT_EQ(desktop.boxes, QStringList(kReadError.arg(QLatin1StringView(query))));
        EXPECT_EQ(line.Lines().constLast(), QLatin1StringView(query));  // nothing is asked behind the fault
        EXPECT_TRUE(follows()) << query;
    }
}

}  // namespace
