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
    using Values = std::vector<double>;
    const auto values = [](auto... fields) { return Values{static_cast<double>(fields)...}; };
    // query, what comes in answer, the fields that follow from it, and their values
    const std::tuple<const char*, const char*, std::function<Values()>, Values> cases[] = {
        {"stt?", "12", [&] { return values(panel.msWobbel, panel.meWobbel, panel.mtWobbel); }, {12, 12, 12}},
        {"fk0?", "7", [&] { return values(panel.mcFreq, panel.mhFreq, panel.mPhaseb); }, {7, 7, 7}},
        {"sta?", "", [&] { return values(panel.bmSignal, panel.bmMode, panel.tmVPP); }, {8, 4, kFalse}},
        {"amp?", "0.1", [&] { return values(panel.mAmp, panel.bmBereich, panel.mOffset); }, {0.1, 1, 0.001}},
        {"frq?", "", [&] { return values(panel.mFreq, panel.mAmp); }, {0, 0}}};
    for (const auto& [query, partial, fields, expected] : cases) {
        panel = PanelState{};
        panel.bmWobbel = 1;
        desktop.boxes.clear();
        line.replies = {{QString::fromLatin1(query), partial}};
        ConnectSilently();
        link.readBack.ReadAllFromUnit();
        EXPECT_EQ(desktop.boxes, QStringList(kReadError.arg(QLatin1StringView(query))));
        EXPECT_EQ(line.Lines().constLast(), QLatin1StringView(query));  // nothing is asked behind the fault
        EXPECT_EQ(fields(), expected) << query;
    }
}

}  // namespace
