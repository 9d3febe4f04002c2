#include "EditorBench.h"

namespace {

// Of 2048 samples, 0 to 128, each 16 times or so.
QString Trace() {
    QStringList numbers;
    for (int i = 1; i <= 2048; ++i) {
        numbers += QString::number(i / 16);
    }
    return numbers.join(u',');
}

// Sample i of the trace as the copy buffer holds it.
int Scaled(int i) { return static_cast<int>(NearestEven(3000.0 / 128 * (i / 16) - 1500.0)); }

std::string Row(int adr, int value) { return std::to_string(adr) + '=' + std::to_string(value); }

class ImportTest : public EditorBench {
  public:
    ImportTest() { ziel.reply = Trace(); }

    static std::string Between(const QString& file, const std::string& table, int from, int to) {
        return Rows(file, table + " where Adr between " + std::to_string(from) + " and " + std::to_string(to));
    }
    static std::ptrdiff_t Count(const QString& file, const std::string& table) {
        return std::ranges::count(Rows(file, table), '=');
    }
};

TEST_F(ImportTest, ReadsAChannelStepByStepAndTakesUpThePastePen) {
    for (const auto& [item, request] : {std::pair("mnurdbincha", "getbincha"), std::pair("mnurdbinchb", "getbinchb")}) {
        ziel.steps.clear();
        state.CopyBuffer.fill(7);
        state.CopyEnd = 0;
        Choose(item);
        EXPECT_EQ(ziel.steps.join(u'|').toStdString(),
                  "topic qd204e|dde|item data|mode 2|execute " + std::string(request) + "|request|mode 0");
        EXPECT_TRUE(Checked("opPenmode_3"));
        EXPECT_EQ(state.CopyStart, 0);
        EXPECT_EQ(state.CopyEnd, 2048);
        EXPECT_EQ(state.CopyBuffer[0], 7);
        EXPECT_EQ(state.CopyBuffer[1], -1500);
        EXPECT_EQ(state.CopyBuffer[2048], 1500);
        Click("opPenmode_0");
    }
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(ImportTest, AFailedReadIsToldOnceAndChangesNoFile) {
    const std::string before = Rows(set, "ARB4");
    for (const char* const step : {"mode 2", "execute", "request", "(number)"}) {
        for (const char* const item : {"mnurdbincha", "mnuchamulti", "mnuchbfit"}) {
            ziel.failing = QString::fromLatin1(step);
            ziel.reply = QStringLiteral("1,70000");
            desktop.boxes.clear();
            Choose(item);
            EXPECT_EQ(desktop.boxes, QStringList(QStringLiteral("DDE comunication|DDE-Error (Is QD204 running?)")));
            EXPECT_EQ(ziel.steps.constLast(), u"mode 0");
        }
    }
    EXPECT_TRUE(Checked("opPenmode_0") && Checked("opEditmode_0") && desktop.dialogs.isEmpty());
    EXPECT_EQ(state.CopyEnd, 0);
    EXPECT_EQ(Rows(set, "ARB4"), before);
}

TEST_F(ImportTest, MultipleRepeatsTheTraceThroughTheWholeMemory) {
    EditSignal();
    Choose("mnu16ksig");
    Choose("mnuchbmulti");
    EXPECT_TRUE(Checked("opEditmode_0"));
    EXPECT_EQ(Count(set, "ARB16"), 16384);
    for (const int i : {1, 16, 2048}) {
        const int at = 7 * 2048 + i - 1;
        EXPECT_EQ(Between(set, "ARB16", i - 1, i - 1), Row(i - 1, Scaled(i)));
        EXPECT_EQ(Between(set, "ARB16", at, at), Row(at, Scaled(i)));
    }
    Tick();
    EXPECT_EQ(program.memories.ArbMemory16[2048 + 15], Scaled(16));

    // All of it or nothing.
    Run(set, "create trigger fault before update on ARB16 when new.Adr = 9000 begin select raise(abort, ''); end");
    const std::string before = Rows(set, "ARB16");
    ziel.reply = QStringLiteral("5,9");
    Choose("mnuchamulti");
    EXPECT_EQ(Rows(set, "ARB16"), before);
    EXPECT_EQ(desktop.boxes.size(), 2);  // the question for a construction file, and the fault
}

TEST_F(ImportTest, FitToSignalMakesEachSampleAPoint) {
    Choose("mnuchafit");  // no file is chosen
    EXPECT_TRUE(Checked("opEditmode_0") && program.ConstructionFileName.Name().isEmpty());
    EXPECT_EQ(state.CopyEnd, 2048);
    for (const auto& [size, step, last] : {std::tuple("mnu4ksig", 2, 4095), std::tuple("mnu16ksig", 8, 16383)}) {
        Choose(size);
        desktop.chosen = con;
        Choose("mnuchafit");
        EXPECT_TRUE(Checked("opEditmode_1") && Checked("opPenmode_0"));
        EXPECT_EQ(Count(con, Size().table), 2049);
        EXPECT_EQ(Between(con, Size().table, 0, step), Row(0, -1500) + ' ' + Row(step, -1500));
        EXPECT_EQ(Between(con, Size().table, 2047 * step, 32767), Row(2047 * step, 1500) + ' ' + Row(last, 1500));
    }
}

TEST_F(ImportTest, FitStretchesWhatWasCopiedOverTheAxis) {
    Click("opFit");
    EXPECT_TRUE(desktop.boxes.isEmpty() && Checked("opPenmode_2"));  // nothing was copied

    state.CopyBuffer[0] = 10;
    state.CopyBuffer[1] = -20;
    state.CopyBuffer[2] = 30;
    state.CopyStart = 502;  // taken from right to left
    state.CopyEnd = 500;
    desktop.answer = true;
    desktop.chosen = con;
    Click("opFit");
    EXPECT_EQ(Points(), "0=10 2048=-20 4095=30");  // 2047.5 goes to the even address
    EXPECT_TRUE(Checked("opEditmode_1") && Checked("opPenmode_2") && !Get("opPenmode_2")->isEnabled());

    // More samples than addresses: all become rows.
    state.CopyStart = 0;
    state.CopyEnd = 16384;
    Click("opFit");
    EXPECT_EQ(Count(con, "ARB4"), 16385);
    Get<QRadioButton>("Opintmode_1")->click();
    Redraw();
    EXPECT_TRUE(desktop.boxes.size() == 1 && !desktop.busy);
}

}  // namespace
