#include <csignal>
#include <random>

#include "WaveformBench.h"
#include "support/DiskWatch.h"
#include "waveform/Redraw.h"

namespace {

using Tables = std::vector<std::vector<qint64>>;

struct History : WaveformBench {
    // All rows of both files with their ids, in order; the arrays follow as they do in a redraw of the memory.
    Tables Look() {
        Tables look;
        for (const QString& file : {set, con}) {
            for (const MemorySize* const size : kMemorySizes) {
                RecordStore store;
                store.Open(file);
                std::vector<Record> records;
                EXPECT_TRUE(RecordTable(store, size->table).Read(RecordOrder::Insertion, records));
                std::vector<qint64>& numbers = look.emplace_back();
                for (const Record& record : records) {
                    numbers.insert(numbers.end(), {record.id, record.Adr, record.Value});
                }
                if (file == set) {
                    EditorState shown;
                    shown.Size = size;
                    TakeRecords(records, shown, program.memories);
                }
            }
        }
        return look;
    }
    // Goes on until there is nothing more; gives the names of the steps.
    QString All(Replay way) {
        QStringList names;
        while (const EditStep* const step = tables.History.Next(way)) {
            names += QString::fromLatin1(step->name);
            if (!tables.Step(way).changed) {
                ADD_FAILURE() << names.back().toStdString();
                break;
            }
        }
        return names.join(u", ");
    }
    std::optional<EditHistory::Reason> Ended(const QString& file) {
        const auto ending = tables.History.TakeEnding();
        return ending && ending->fileName == file ? std::optional(ending->reason) : std::nullopt;
    }
};

// Any operations in any order, on both targets and sizes.
struct Walk : History {
    int Random(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }
    float Address() { return static_cast<float>(Random(8) == 0 ? editor.Size->LastAdr : Random(4096)); }

    void Operate() {
        WorkOn(static_cast<EditTarget>(Random(2)), editor, tables);
        editor.Size = kMemorySizes[static_cast<std::size_t>(Random(2))];
        editor.SelectedInterpolation = static_cast<Interpolation>(Random(2));
        editor.CopyBuffer.fill(static_cast<qint16>(Random(4095) - 2047));
        editor.ArbSignal.fill(static_cast<qint16>(Random(100)));
        const std::function<void()> operations[] = {
            [this] { ClearTable(editor, tables); },
            [this] {
                FillMemory(editor, tables, {4000, 4001}, std::vector<qint16>{5, 6});
            },
            [this] { GenerateMemory(editor, tables, program.memories); },
            [this] { RepeatTrace(editor, tables); },
            [this] { FitTrace(editor, tables); },
            [this] { ReplaceByAddressed(editor, tables, editor.Target, table); },
            [this] { Fit(static_cast<qint16>(Random(5000))); },
            [this] { Paste(Address()); },
            [this] { Press(Pen::Delete, Address()); },
            [this] { EnterPoint(editor, tables, Address(), Random(2000)); },
            [this] { Press(Pen::Draw, Address()); },
        };
        operations[Random(std::size(operations))]();
    }

    // A process that is killed in a step leaves all of it or nothing. Then the file is as it was again: this process
    // has seen nothing of the step.
    void KillAStep(Replay way, const Tables& before, const Tables& after) {
        QFile file(tables.History.Next(way)->fileName);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        const QByteArray bytes = file.readAll();
        const ArbMemories memories = program.memories;
        const auto fatal = static_cast<std::size_t>(1 + Random(12));
        const int status = InChild([&] {
            ::operations = {true, {}, fatal};
            tables.Step(way);
        });
        EXPECT_TRUE(status == 0 || WTERMSIG(status) == SIGKILL);
        const Tables left = Look();
        EXPECT_TRUE(left == before || left == after);
        program.memories = memories;
        EXPECT_TRUE(file.seek(0) && file.write(bytes) == bytes.size() && file.resize(bytes.size()));
    }

    std::minstd_rand random{1};
};

TEST_F(Walk, UndoneToItsBeginningAndMadeAgainToItsEnd) {
    constexpr int kOperations = 60;
    std::vector<std::pair<Tables, ArbMemories>> pictures{{Look(), program.memories}};
    for (int i = 0; i < kOperations; ++i) {
        const EditStep* const former = tables.History.Next(Replay::Undo);
        Operate();
        if (tables.History.Next(Replay::Undo) != former) {
            pictures.emplace_back(Look(), program.memories);
        } else {
            EXPECT_TRUE(Look() == pictures.back().first);  // what changes nothing is no step
        }
    }
    ASSERT_GT(pictures.size(), 30U);
    for (const Replay way : {Replay::Undo, Replay::Redo}) {
        for (std::size_t i = 1; i < pictures.size(); ++i) {
            const std::size_t from = way == Replay::Undo ? pictures.size() - i : i - 1;
            const std::size_t to = way == Replay::Undo ? from - 1 : from + 1;
            if (Random(6) == 0) {
                KillAStep(way, pictures[from].first, pictures[to].first);
            }
            ASSERT_TRUE(tables.Step(way).changed) << i;
            ASSERT_TRUE(Look() == pictures[to].first) << i;
            ASSERT_TRUE(program.memories == pictures[to].second) << i;
        }
        EXPECT_EQ(tables.History.Next(way), nullptr);
    }
}

TEST_F(History, EachStepHasItsName) {
    for (const auto& [operate, inSignal] : all) {
        operate();
    }
    WorkOn(EditTarget::Signal, editor, tables);
    Press(Pen::Draw, 1500);
    ClearTable(editor, tables);
    EXPECT_EQ(
        All(Replay::Undo),
        u"delete signal, point, fit, open recording, open recording, import, open recording, open recording, fill by "
        u"formula, import, generate memory data, delete memory, entry, paste, delete, line");
}

// To undo past the change of another program would make a file that never was.
TEST_F(History, EndsWhereAnotherProgramHasChangedTheFile) {
    auto draw = [this, value = 0](EditTarget target) mutable {
        WorkOn(target, editor, tables);
        EXPECT_TRUE(EnterPoint(editor, tables, 700, ++value).changed);
    };
    for (const bool replaced : {false, true}) {
        draw(EditTarget::Memory);
        draw(EditTarget::Signal);
        draw(EditTarget::Memory);
        if (replaced) {
            ASSERT_TRUE(QFile::rename(set, set + u"~") && QFile::copy(set + u"~", set) && QFile::remove(set + u"~"));
        } else {
            Execute(set, "update ARB4 set Value = Value + 1 where Adr = 1");
        }
        const Tables before = Look();
        EXPECT_EQ(tables.Step(Replay::Undo).outcome, StoreOutcome::ChangedSince);
        EXPECT_TRUE(Look() == before);
        EXPECT_EQ(Ended(set), EditHistory::Reason::ChangedSince);
        EXPECT_EQ(All(Replay::Undo), u"entry");  // of the other file
        tables.History = {};
        draw(EditTarget::Memory);
        Execute(set, "update ARB4 set Value = Value + 1 where Adr = 1");
        draw(EditTarget::Memory);
        EXPECT_EQ(All(Replay::Undo), u"entry");  // what came behind the change
        EXPECT_EQ(Ended(set), EditHistory::Reason::ChangedSince);
    }
}

TEST_F(History, AStepThatFailsStays) {
    EXPECT_TRUE(EnterPoint(editor, tables, 700, 7).changed);
    {
        SQLite::Database other(set.toStdString(), SQLite::OPEN_READWRITE);
        other.exec("begin immediate");
        EXPECT_EQ(tables.Step(Replay::Undo).outcome, StoreOutcome::Locked);
    }
    EXPECT_EQ(All(Replay::Undo), u"entry");
    EXPECT_EQ(All(Replay::Redo), u"entry");
}

TEST_F(History, EndsWithTheFileOfItsTarget) {
    EnterPoint(editor, tables, 700, 7);
    const QString other = folder.filePath(QStringLiteral("b.set"));
    ASSERT_TRUE(SaveSettingFile(CreateSettingFile(other), program.panel, program.memories));
    program.SettingFileName.Set(other);  // settings saved: Data1 stays on the former file
    for (const EditTarget elsewhere : {EditTarget::Memory, EditTarget::Signal}) {
        if (elsewhere != editor.Target) {
            WorkOn(elsewhere, editor, tables);
        }
        tables.EndStepsOfOtherFiles();
        ASSERT_NE(tables.History.Next(Replay::Undo), nullptr);
    }
    WorkOn(EditTarget::Memory, editor, tables);
    tables.EndStepsOfOtherFiles();
    EXPECT_EQ(tables.History.Next(Replay::Undo), nullptr);
    EXPECT_EQ(Ended(set), EditHistory::Reason::AnotherFile);
}

TEST_F(History, KeepsTheNewestSteps) {
    constexpr std::size_t kHalf = EditHistory::kMostBytes / 2 / sizeof(RowChange);
    const auto kept = [](std::size_t steps, std::size_t rows) {
        EditHistory history;
        for (std::size_t i = 0; i < steps; ++i) {
            history.Keep({"", EditTarget::Memory, &kMemory4k, {}, std::vector<RowChange>(rows), {}}, {}, {});
        }
        std::size_t count = 0;
        for (; history.Next(Replay::Undo) != nullptr; ++count) {
            history.Passed(Replay::Undo, {});
        }
        return count;
    };
    EXPECT_EQ(kept(205, 1), 200U);
    EXPECT_EQ(kept(3, kHalf + 1), 1U);
    EXPECT_EQ(kept(3, kHalf - 1000), 2U);
    EXPECT_EQ(kept(2, 3 * kHalf), 1U);
}

}  // namespace
