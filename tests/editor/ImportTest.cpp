#include "EditorBench.h"

namespace {

struct Imports : EditorBench {
    // 2048 samples: 0 to 128, each 16 times or so.
    Imports() {
        for (int i = 1; i <= 2048; ++i) {
            ziel.reply += (i > 1 ? u"," : u"") + QString::number(i / 16);
        }
    }
    // The number of rows, and those from one address to another.
    static QString Part(const QString& file, const std::string& table, int from, int to) {
        const std::string part = table + " where Adr between " + std::to_string(from) + " and " + std::to_string(to);
        return Ask(file, "select count(*) || ': ' from " + table) + Rows(file, part);
    }
};

TEST_F(Imports, ReadsAChannelStepByStepAndTakesUpThePastePen) {
    for (const auto& [item, request] : {std::pair("mnurdbincha", u"getbincha"), {"mnurdbinchb", u"getbinchb"}}) {
        ziel.steps.clear();
        state.CopyStart = state.CopyEnd = 9;
        Choose(item);
        EXPECT_EQ(ziel.steps.join(u'|'),
                  QStringLiteral("topic qd204e|dde|item data|mode 2|execute %1|request|mode 0").arg(request));
        EXPECT_TRUE(Checked("opPenmode_3"));
        EXPECT_EQ(std::pair(state.CopyStart, state.CopyEnd), (std::pair<qint16, qint16>(0, 2048)));
        EXPECT_EQ(state.CopyBuffer[1], -1500);
        EXPECT_EQ(state.CopyBuffer[2048], 1500);
        Click("opPenmode_0");
    }
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

// Its samples would be in the file, but no longer get into the memory.
TEST_F(Imports, AnEditorClosedDuringTheWaitImportsNothing) {
    QTimer::singleShot(0, form.get(), &QWidget::close);
    Choose("mnuchamulti");
    EXPECT_FALSE(form->isVisible());
    ExpectMemory("0=0 1=1 4095=95");
    EXPECT_EQ(ziel.steps + desktop.boxes, QStringList());
}

TEST_F(Imports, AFailedReadIsToldOnceAndChangesNoFile) {
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
    ExpectChecked({"opPenmode_0", "opEditmode_0"});
    EXPECT_EQ(desktop.dialogs, QStringList());
    EXPECT_EQ(state.CopyEnd, 0);
    ExpectMemory("0=0 1=1 4095=95");
}

TEST_F(Imports, MultipleRepeatsTheTraceThroughTheWholeMemory) {
    EditSignal();
    Choose("mnu16ksig");
    Choose("mnuchbmulti");
    EXPECT_TRUE(Checked("opEditmode_0"));
    // 0, 1 and 128 of the trace, in its first round and in its last
    EXPECT_EQ(Part(set, "ARB16", 14, 15), u"16384: 14=-1500 15=-1477");
    EXPECT_EQ(Part(set, "ARB16", 2047, 2048), u"16384: 2047=1500 2048=-1500");
    EXPECT_EQ(Part(set, "ARB16", 14350, 14351), u"16384: 14350=-1500 14351=-1477");
    EXPECT_EQ(Part(set, "ARB16", 16383, 32767), u"16384: 16383=1500");
    Guard(set, "ARB16", 9000);
    Choose("mnuchamulti");
    EXPECT_EQ(desktop.boxes.size(), 2);  // the question for a construction file, and the fault
}

TEST_F(Imports, FitToSignalMakesEachSampleAPoint) {
    Choose("mnuchafit");  // no file is chosen
    EXPECT_TRUE(Checked("opEditmode_0"));
    EXPECT_EQ(program.ConstructionFileName.Name(), QString());
    desktop.chosen = con;
    Choose("mnuchafit");
    ExpectChecked({"opEditmode_1", "opPenmode_0"});
    EXPECT_EQ(Part(con, "ARB4", 28, 30), u"2049: 28=-1500 30=-1477");
    EXPECT_EQ(Part(con, "ARB4", 4093, 32767), u"2049: 4094=1500 4095=1500");
    Choose("mnu16ksig");
    Choose("mnuchafit");
    EXPECT_EQ(Part(con, "ARB16", 112, 120), u"2049: 112=-1500 120=-1477");
    EXPECT_EQ(Part(con, "ARB16", 16375, 32767), u"2049: 16376=1500 16383=1500");
}

TEST_F(Imports, FitStretchesWhatWasCopiedOverTheAxis) {
    Click("opFit");
    EXPECT_TRUE(Checked("opPenmode_2"));  // nothing was copied

    std::ranges::copy(std::array{10, -20, 30}, state.CopyBuffer.begin());
    state.CopyStart = 502;  // taken from right to left
    state.CopyEnd = 500;
    desktop.answer = true;
    desktop.chosen = con;
    Click("opFit");
    EXPECT_EQ(Points(), u"0=10 2048=-20 4095=30");  // 2047.5 goes to the even address
    ExpectChecked({"opEditmode_1", "opPenmode_2"});
    EXPECT_FALSE(Get("opPenmode_2")->isEnabled());

    // More samples than addresses: all become rows.
    state.CopyStart = 0;
    state.CopyEnd = 16384;
    Click("opFit");
    EXPECT_EQ(Ask(con, "select count(*) from ARB4"), u"16385");
    Get<QRadioButton>("Opintmode_1")->click();
    Redraw();
    EXPECT_EQ(desktop.boxes.size(), 1);
}

}  // namespace
