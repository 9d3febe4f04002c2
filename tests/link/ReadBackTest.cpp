#include "LinkBench.h"

namespace {

struct ReadingBack : LinkBench {
    ReadingBack() {
        line.reply = [](const QString& query, const QString&) {
            return QByteArray(query == u"sta?" ? "SW0 SIN AM0 SK0 CTM VPP\r" : "0\r");
        };
        ConnectSilently();
    }

    void Answer(const char* query, const char* reply) {
        line.replies[QString::fromLatin1(query)] = QByteArray(reply) + '\r';
    }
    std::vector<double> Values() const {
        std::vector<double> values;
        const auto take = [&values](auto... fields) { (values.push_back(fields), ...); };
        const PanelState& p = program.panel;
        take(p.msWobbel, p.meWobbel, p.mtWobbel, p.mcFreq, p.mhFreq, p.mPhasea, p.mPhaseb, p.tmOut, p.tmIntRef,
             p.bmWobbel, p.bmSignal, p.bmAmpMod, p.bmFMod, p.bmMode, p.tmVPP, p.mAmp, p.bmBereich, p.mOffset,
             p.tmOffset, p.mFreq);
        return values;
    }
};

TEST_F(ReadingBack, FindsEachTokenAndItsRemainder) {
    // output, reference, sweep, signal, amplitude modulation, keying, mode, unit
    const std::pair<const char*, std::vector<double>> cases[] = {
        {"ot1 rfi sw0 sin am0 sk0 ctm vpp", {-1, -1, 0, 0, 0, 0, 0, -1}},
        {"OT0;RFX;SL1;SQR;AMX;PS1;GT+", {0, 0, 1, 1, 1, 1, 1, 0}},
        {"", {0, 0, 2, 8, 2, 2, 4, 0}},
        {"SIN SQR TRI", {0, 0, 2, 0, 2, 2, 4, 0}},
        {"A16 GT-", {0, 0, 2, 6, 2, 2, 2, 0}},
        {"AR4TR+", {0, 0, 2, 5, 2, 2, 3, 0}},
        {"WNS", {0, 0, 2, 7, 2, 2, 4, 0}},
        {"RMN", {0, 0, 2, 4, 2, 2, 4, 0}},
        {"RMP", {0, 0, 2, 3, 2, 2, 4, 0}},
        {"TRI", {0, 0, 2, 2, 2, 2, 4, 0}}};
    for (const auto& [status, wanted] : cases) {
        Answer("sta?", status);
        link.readBack.ReadStatus();
        const std::vector<double> values = Values();
        EXPECT_TRUE(std::equal(wanted.begin(), wanted.end(), values.begin() + 7)) << status;
    }
}

TEST_F(ReadingBack, ScalesTheOffsetByTheRangeAndZeroSwitchesItOff) {
    const std::tuple<const char*, const char*, const char*, double, Truth> cases[] = {
        {"VPP", "0.2", "5", 0.05, kTrue},   {"VPP", "2.0", "-4.5", -0.45, kTrue}, {"VPP", "12", "4", 4.0, kTrue},
        {"RMS", "0.07", "5", 0.05, kTrue},  {"RMS", "0.7", "1", 0.1, kTrue},      {"VPP", "0.205", "4", 4.0, kTrue},
        {"VPP", "1", "0.000", 9.0, kFalse}, {"VPP", "1", "off", 9.0, kFalse}};
    for (const auto& [status, level, reported, offset, on] : cases) {
        Answer("sta?", status);
        Answer("amp?", level);
        Answer("OFS?", reported);
        panel.mOffset = 9.0;
        link.readBack.ReadAllFromUnit();
        EXPECT_DOUBLE_EQ(panel.mOffset, offset) << level << ' ' << reported;
        EXPECT_EQ(panel.tmOffset, on);
    }
}

TEST_F(ReadingBack, ANumberThatNothingCanHoldLeavesTheFieldAsItIs) {
    for (const QByteArray& number : {QByteArray(400, '9'), QByteArray("1e999"), QByteArray("-1e999V")}) {
        panel = PanelState{};
        panel.bmWobbel = 1;
        panel.bmAmDepth = 33;
        panel.mAmp = 1.5;
        panel.mOffset = 0.25;
        const std::vector<double> before = Values();
        line.reply = [&number](const QString& query, const QString&) -> QByteArray {
            return (query == u"sta?" ? "OT0 RFI SW0 SIN AM0 SK0 CTM RMS" : number) + '\r';
        };
        for (const Truth offset : {kTrue, kFalse}) {
            panel.tmOffset = offset;
            panel.bmWobbel = 1;
            link.readBack.ReadAllFromUnit();
            std::vector<double> wanted = before;
            wanted[9] = 0;  // the sweep is off, the unit is RMS
            wanted[14] = 0;
            wanted[16] = 3;  // the range of 1.5 Vrms
            wanted[18] = offset;
            EXPECT_EQ(Values(), wanted) << number.constData();
            EXPECT_EQ(panel.bmAmDepth, 33) << number.constData();
        }
        EXPECT_TRUE(desktop.boxes.isEmpty());
    }
}

TEST_F(ReadingBack, ATimeOutLeavesWhatTheCollectedTextSays) {
    // query, what comes in answer, the first of the values that follow from it
    const std::tuple<const char*, const char*, int, std::vector<double>> cases[] = {
        {"stt?", "12", 0, {12, 12, 12}},
        {"fk0?", "7", 3, {7, 7, 7, 7}},
        {"sta?", "", 7, {0, 0, 2, 8, 2, 2, 4, 0, 1}},
        {"amp?", "0.1", 15, {0.1, 1, 0.001, -1, 1000}},
        {"frq?", "", 19, {0}}};
    for (const auto& [query, partial, first, wanted] : cases) {
        panel = PanelState{};
        panel.bmWobbel = 1;
        desktop.boxes.clear();
        line.replies = {{QString::fromLatin1(query), partial}};
        ConnectSilently();
        link.readBack.ReadAllFromUnit();
        EXPECT_EQ(desktop.boxes, QStringList(kReadError.arg(QLatin1StringView(query))));
        EXPECT_EQ(line.Lines().constLast(), QLatin1StringView(query));  // nothing is asked behind the fault
        const std::vector<double> values = Values();
        EXPECT_TRUE(std::equal(wanted.begin(), wanted.end(), values.begin() + first)) << query;
    }
}

}  // namespace
