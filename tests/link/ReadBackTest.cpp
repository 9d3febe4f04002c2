#include "LinkBench.h"

namespace {

struct ReadBack_ : LinkBench {
    ReadBack_() {
        ConnectSilently();
        for (const char* const query :
             {"stt?", "stp?", "swt?", "amt?", "fk0?", "fk1?", "ph0?", "ph1?", "amp?", "OFS?", "frq?"}) {
            Answer(query, "0");
        }
        Answer("sta?", "SW0 SIN AM0 SK0 CTM VPP");
    }

    void Answer(const char* query, const char* reply) {
        line.replies[QString::fromLatin1(query)] = QByteArray(reply) + '\r';
    }
};

TEST_F(ReadBack_, AsksInTheOrderThatTheValuesDependOn) {
    Answer("amp?", "0.1");
    Answer("OFS?", "-2.5");
    link.readBack.ReadAllFromUnit();
    EXPECT_EQ(line.Lines().join(u' '), u"amt? fk0? fk1? ph0? ph1? sta? amp? OFS? frq?");
    EXPECT_DOUBLE_EQ(panel.mOffset, -0.025);  // range 1

    // The sweep's values are asked by the state from before, the frequency by the one just read.
    line.wire.clear();
    Answer("sta?", "SL1");
    panel.mFreq = 5.0;
    link.readBack.ReadAllFromUnit();
    EXPECT_FALSE(line.wire.contains("stt?"));
    EXPECT_FALSE(line.wire.contains("frq?"));
    EXPECT_EQ(panel.msWobbel, 1000.0);
    line.wire.clear();
    Answer("stt?", "20");
    Answer("swt?", "0.5 sec");
    link.readBack.ReadAllFromUnit();
    EXPECT_TRUE(line.wire.startsWith("stt?\rstp?\rswt?\ramt?"));
    EXPECT_EQ(panel.msWobbel, 20.0);
    EXPECT_EQ(panel.mtWobbel, 0.5);
}

TEST_F(ReadBack_, FindsEachTokenAndItsRemainder) {
    struct Case {
        const char* status;
        int out, intRef, sweep, signal, am, keying, mode, vpp;
    };
    const Case cases[] = {{"ot1 rfi sw0 sin am0 sk0 ctm vpp", -1, -1, 0, 0, 0, 0, 0, -1},
                          {"OT0;RFX;SL1;SQR;AMX;PS1;GT+", 0, 0, 1, 1, 1, 1, 1, 0},
                          {"", 0, 0, 2, 8, 2, 2, 4, 0},
                          {"SIN SQR TRI", 0, 0, 2, 0, 2, 2, 4, 0},
                          {"A16 GT-", 0, 0, 2, 6, 2, 2, 2, 0},
                          {"AR4TR+", 0, 0, 2, 5, 2, 2, 3, 0},
                          {"WNS", 0, 0, 2, 7, 2, 2, 4, 0},
                          {"RMN", 0, 0, 2, 4, 2, 2, 4, 0},
                          {"RMP", 0, 0, 2, 3, 2, 2, 4, 0},
                          {"TRI", 0, 0, 2, 2, 2, 2, 4, 0}};
    for (const Case& c : cases) {
        Answer("sta?", c.status);
        link.readBack.ReadStatus();
        const int read[] = {panel.tmOut,    panel.tmIntRef, panel.bmWobbel, panel.bmSignal,
                            panel.bmAmpMod, panel.bmFMod,   panel.bmMode,   panel.tmVPP};
        const int wanted[] = {c.out, c.intRef, c.sweep, c.signal, c.am, c.keying, c.mode, c.vpp};
        EXPECT_TRUE(std::equal(std::begin(read), std::end(read), std::begin(wanted))) << c.status;
    }
}

TEST_F(ReadBack_, ScalesTheOffsetByTheRangeAndZeroSwitchesItOff) {
    struct Case {
        const char *status, *level, *offset;
        double mOffset;
        Truth tmOffset;
    };
    const Case cases[] = {{"VPP", "0.2", "5", 0.05, kTrue},   {"VPP", "2.0", "-4.5", -0.45, kTrue},
                          {"VPP", "12", "4", 4.0, kTrue},     {"RMS", "0.07", "5", 0.05, kTrue},
                          {"RMS", "0.7", "1", 0.1, kTrue},    {"VPP", "0.205", "4", 4.0, kTrue},
                          {"VPP", "1", "0.000", 9.0, kFalse}, {"VPP", "1", "off", 9.0, kFalse}};
    for (const Case& c : cases) {
        Answer("sta?", c.status);
        Answer("amp?", c.level);
        Answer("OFS?", c.offset);
        panel.mOffset = 9.0;
        link.readBack.ReadStatus();
        link.readBack.ReadLevel();
        EXPECT_DOUBLE_EQ(panel.mOffset, c.mOffset) << c.level << ' ' << c.offset;
        EXPECT_EQ(panel.tmOffset, c.tmOffset);
    }
}

TEST_F(ReadBack_, ATimeOutLeavesWhatTheCollectedTextSays) {
    struct Case {
        const char* query;
        const char* partial;
        void (*check)(const PanelState&);
    };
    const Case cases[] = {
        {"stt?", "12", [](const PanelState& p) { EXPECT_EQ(p.msWobbel + p.meWobbel + p.mtWobbel, 36.0); }},
        {"fk0?", "7", [](const PanelState& p) { EXPECT_EQ(p.mcFreq + p.mhFreq + p.mPhasea + p.mPhaseb, 28.0); }},
        {"sta?", "",
         [](const PanelState& p) {
             EXPECT_EQ(p.tmOut | p.tmIntRef | p.tmVPP, 0);
             EXPECT_EQ(p.bmWobbel, 2);
             EXPECT_EQ(p.bmSignal, 8);
             EXPECT_EQ(p.bmAmpMod, 2);
             EXPECT_EQ(p.bmFMod, 2);
             EXPECT_EQ(p.bmMode, 4);
             EXPECT_EQ(p.mAmp, 1.0);
         }},
        {"amp?", "0.1",
         [](const PanelState& p) {
             EXPECT_EQ(p.mAmp, 0.1);
             EXPECT_EQ(p.bmBereich, 1);
             EXPECT_DOUBLE_EQ(p.mOffset, 0.001);
             EXPECT_EQ(p.tmOffset, kTrue);
             EXPECT_EQ(p.mFreq, 1000.0);
         }},
        {"frq?", "", [](const PanelState& p) { EXPECT_EQ(p.mFreq, 0.0); }}};
    for (const Case& c : cases) {
        panel = PanelState{};
        panel.bmWobbel = 1;
        desktop.boxes.clear();
        line.wire.clear();
        const QByteArray whole = line.replies.take(QString::fromLatin1(c.query));
        line.replies[QString::fromLatin1(c.query)] = c.partial;
        ConnectSilently();
        link.readBack.ReadAllFromUnit();
        EXPECT_EQ(desktop.boxes, QStringList(kReadError.arg(QLatin1StringView(c.query))));
        EXPECT_EQ(line.Lines().constLast(), QLatin1StringView(c.query));  // nothing is asked behind the fault
        c.check(panel);
        line.replies[QString::fromLatin1(c.query)] = whole;
    }
}

}  // namespace
