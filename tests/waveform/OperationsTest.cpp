#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <functional>

#include "core/ProgramState.h"
#include "storage/ConstructionFile.h"
#include "storage/SettingFile.h"
#include "waveform/Choices.h"
#include "waveform/CopyBuffer.h"
#include "waveform/Entry.h"
#include "waveform/Generation.h"
#include "waveform/PenDrags.h"
#include "waveform/Pens.h"
#include "waveform/Redraw.h"

namespace {

// The operations on real files, without a form. Each sample of the memory is its address modulo 1000.
struct Operations : ::testing::Test {
    Operations() {
        for (std::size_t a = 0; a < program.memories.ArbMemory4.size(); ++a) {
            program.memories.ArbMemory4[a] = static_cast<qint16>(a % 1000);
        }
        program.SettingFileName.Set(set);
        program.ConstructionFileName.Set(con);
        EXPECT_TRUE(CreateSettingFile(set) && SaveSettingFile(set, program.panel, program.memories));
        EXPECT_TRUE(CreateConstructionFile(con) && SaveConstructionFile(con));
        BeginEditing(editor);
        WorkOn(EditTarget::Memory, editor, tables);
        editor.CopyBuffer.fill(7);
    }

    static std::string Rows(const QString& file, const std::string& where = "1") {
        const std::string rows = "(select * from ARB4 where " + where + " order by Adr, rowid)";
        return SQLite::Database(file.toStdString())
            .execAndGet("select ifnull(group_concat(Adr || '=' || Value, ' '), '') from " + rows);
    }
    // What a redraw reads.
    void Redraw() {
        std::vector<Record> records;
        EXPECT_FALSE(EditorTables::Read(tables.FileOf(editor.Target), *editor.Size, records).Failed());
        BeginRedraw(editor);
        TakeRecords(records, editor, program.memories);
    }
    TableResult Press(Pen pen, float x, float y) {
        TakeUp(pen, editor);
        return PressPen(editor, tables, x, y);
    }
    TableResult Line(float x1, float x2) {
        EXPECT_FALSE(Press(Pen::Draw, x1, 50).changed);
        return Press(Pen::Draw, x2, 50);
    }
    TableResult Paste(float at, qint16 length) {
        editor.CopyEnd = length;
        PasteStep(editor, at);
        return EndPaste(editor, tables);
    }
    TableResult Fit(qint16 length) {
        editor.CopyEnd = length;
        return FitCopied(editor, tables);
    }

    ProgramState program;
    EditorState& editor = program.editor;
    QTemporaryDir folder;
    const QString set = folder.filePath(QStringLiteral("a.set"));
    const QString con = folder.filePath(QStringLiteral("a.con"));
    EditorTables tables{program.SettingFileName, program.ConstructionFileName};

    // Each that works on the address 1503, and whether it does so in the construction file.
    const std::vector<std::pair<std::function<TableResult()>, bool>> all{
        {[this] { return Line(1500, 1510); }, false},
        {[this] { return Press(Pen::Delete, 1503, 0); }, false},
        {[this] { return Paste(1500, 10); }, false},
        {[this] { return EnterPoint(editor, tables, 1503, 9); }, false},
        {[this] { return ClearTable(editor, tables); }, false},
        {[this] { return GenerateMemory(editor, tables, program.memories); }, false},
        {[this] { return RepeatTrace(editor, tables); }, false},
        {[this] { return FitTrace(editor, tables); }, true},
        {[this] { return Fit(1365); }, true}};
};

TEST_F(Operations, SayWhichFileTheyChangedOrWhyTheyCouldNot) {
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto& [operate, inSignal] = all[i];
        const TableResult result = operate();
        EXPECT_EQ(result.fileName, inSignal ? con : set) << i;
        EXPECT_TRUE(result.changed && !result.Failed()) << i;
    }
    for (const QString& file : {set, con}) {
        SQLite::Database database(file.toStdString(), SQLite::OPEN_READWRITE);
        for (const char* const change : {"insert", "update", "delete"}) {
            database.exec("create trigger on_" + std::string(change) + " before " + change + " on ARB4 when " +
                          (change == std::string("insert") ? "new" : "old") +
                          ".Adr in (1503, 1504) begin select raise(abort, 'full'); end");
        }
    }
    const std::string memory = Rows(set);
    const std::string signal = Rows(con);
    const ArbMemories before = program.memories;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto& [operate, inSignal] = all[i];
        const TableResult result = operate();
        EXPECT_EQ(result.fileName, inSignal ? con : set) << i;
        EXPECT_EQ(result.outcome, StoreOutcome::Failed) << i;
        EXPECT_FALSE(result.changed) << i;
        EXPECT_EQ(Rows(set), memory) << i;
        EXPECT_EQ(Rows(con), signal) << i;
        EXPECT_EQ(program.memories.ArbMemory4, before.ArbMemory4) << i;
    }
}

TEST_F(Operations, ThatFindNothingToWorkOnChangeNothing) {
    const auto idle = [this](const TableResult& result, const QString& file) {
        EXPECT_TRUE(!result.changed && !result.Failed());
        EXPECT_EQ(result.fileName, file);
    };
    const std::string memory = Rows(set);
    idle(Press(Pen::Draw, -0.5F, 0), {});
    idle(Press(Pen::Delete, 0.4F, 0), {});
    idle(EnterPoint(editor, tables, 40000, 5), {});
    idle(Fit(0), {});
    EXPECT_EQ(Rows(set), memory);
    SQLite::Database(set.toStdString(), SQLite::OPEN_READWRITE).exec("delete from ARB4");
    idle(Line(1500, 1510), set);
    idle(Press(Pen::Delete, 1503, 0), set);
    idle(GenerateMemory(editor, tables, program.memories), set);
    EXPECT_EQ(Rows(set), "");
}

TEST_F(Operations, MakeAMemoryOfASignalWithoutAForm) {
    WorkOn(EditTarget::Signal, editor, tables);
    EXPECT_TRUE(editor.EditorRedrawPending);
    for (const auto& [address, value] : {std::pair(10, 100), {20, 0}, {30, -50}, {30, 0}}) {
        EXPECT_TRUE(EnterPoint(editor, tables, address, value).changed);
    }
    EXPECT_EQ(Rows(con), "0=0 10=100 20=0 4095=0");
    editor.SelectedInterpolation = Interpolation::Spline;
    Redraw();
    EXPECT_EQ(editor.ArbSignal[10], 100);
    EXPECT_EQ(program.memories.ArbMemory4[10], 10);  // a spline leaves the memory alone
    const int between = editor.ArbSignal[5];
    EXPECT_GT(between, 50);  // above the straight line
    EXPECT_TRUE(GenerateMemory(editor, tables, program.memories).changed);
    WorkOn(EditTarget::Memory, editor, tables);
    Redraw();
    EXPECT_EQ(Rows(set, "Adr in (5, 10, 20)"), "5=" + std::to_string(between) + " 10=100 20=0");
    EXPECT_EQ(program.memories.ArbMemory4[5], between);
}

}  // namespace
