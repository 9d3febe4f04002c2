#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QTemporaryDir>

#include "editor/Editor.h"
#include "storage/SettingFile.h"
#include "support/FakeDde.h"
#include "support/FakeDesktop.h"
#include "support/FormHands.h"
#include "support/PictureHands.h"

struct FakeHost : EditorHost {
    QStringList calls;
    bool running = false;  // an operation on the link

    void LoadSettingFile() override { calls += QStringLiteral("load"); }
    void DrawOverviewSignal() override { calls += QStringLiteral("draw"); }
    bool RefuseWhileRunning() override { return running; }
};

// The form Editor, shown and active, on real files in a folder of its own. Each sample is its address modulo 1000.
class EditorBench : public ::testing::Test, public FormHands<Editor> {
  public:
    EditorBench() {
        program.numbers = UserNumbers(QLocale::c());
        for (const MemorySize* const size : kMemorySizes) {
            int a = 0;
            for (qint16& sample : size->samples(program.memories)) {
                sample = static_cast<qint16>(a++ % 1000);
            }
        }
        program.SettingFileName.Set(set);
        EXPECT_TRUE(CreateSettingFile(set) && SaveSettingFile(set, program.panel, program.memories));
    }
    void SetUp() override { Open(); }

    // A new form. Its timer ticks only as the test says.
    void Open() {
        form = std::make_unique<Editor>(EditorServices{program, desktop, boxfile, ziel, host});
        form->Editor_Form_Load();
        ASSERT_TRUE(Show());
        QCoreApplication::processEvents();
        Get<QTimer>("Timer1")->stop();
    }
    void Tick() { QMetaObject::invokeMethod(Get<QTimer>("Timer1"), "timeout"); }
    void Redraw() {
        state.EditorRedrawPending = true;
        Tick();
    }

    PictureHands Overview() { return PictureHands(Get<PictureBox>("Picture1")); }
    PictureHands Detail() { return PictureHands(Get<PictureBox>("Picture2")); }
    void Zoom(double from, double to) {
        Overview().Drag(from, to);
        Tick();
    }
    void Choose(const char* item, bool answer = true) {
        desktop.answer = answer;
        Get<QAction>(item)->trigger();
        EXPECT_FALSE(desktop.busy);
    }
    void EnterPoint(const char* address, const char* value) {
        Enter("Text1_0", address);
        Enter("Text1_1", value);
    }
    // Goes over to "Edit signal", on a new construction file the first time.
    void EditSignal(const char* points = nullptr) {
        desktop.answer = true;
        desktop.chosen = con;
        Click("opEditmode_1");
        if (points != nullptr) {
            Run(con, "delete from ARB4; insert into ARB4 values " + std::string(points));
        }
        Redraw();
    }

    const MemorySize& Size() { return Get<QAction>("mnu4ksig")->isChecked() ? kMemory4k : kMemory16k; }
    static void Run(const QString& file, const std::string& statements) {
        SQLite::Database(file.toStdString(), SQLite::OPEN_READWRITE).exec(statements);
    }
    static int Count(const QString& file, const std::string& table) {
        return SQLite::Database(file.toStdString()).execAndGet("select count(*) from " + table).getInt();
    }
    // The rows of a file as "address=value ...", by address.
    static std::string Rows(const QString& file, const std::string& table, int from = -32768, int to = 32767) {
        const std::string rows = "select Adr || '=' || Value as row from " + table + " where Adr between " +
                                 std::to_string(from) + " and " + std::to_string(to) + " order by Adr, rowid";
        return SQLite::Database(file.toStdString())
            .execAndGet("select ifnull(group_concat(row, ' '), '') from (" + rows + ")")
            .getString();
    }
    std::string Points() { return Rows(con, Size().table); }
    // A stretch of the memory, in the file and in the array alike.
    void ExpectMemory(const char* samples) {
        const QStringList rows = QString::fromLatin1(samples).split(u' ');
        const auto number = [](const QString& row, int part) { return row.section(u'=', part, part).toInt(); };
        EXPECT_EQ(Rows(set, Size().table, number(rows.constFirst(), 0), number(rows.constLast(), 0)), samples);
        for (const QString& row : rows) {
            const auto adr = static_cast<std::size_t>(number(row, 0));
            EXPECT_EQ(Size().samples(program.memories)[adr], number(row, 1)) << adr;
        }
    }

    ProgramState program;
    EditorState& state = program.editor;
    FakeDesktop desktop;
    FileBox boxfile{desktop};
    FakeDde ziel;
    FakeHost host;
    QTemporaryDir folder;
    const QString set = folder.filePath(QStringLiteral("a.set"));
    const QString con = folder.filePath(QStringLiteral("a.con"));
};
