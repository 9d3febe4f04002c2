#pragma once

#include <QTemporaryDir>

#include "editor/Editor.h"
#include "stand_ins/FakeDde.h"
#include "stand_ins/FakeDesktop.h"
#include "storage/SettingFile.h"
#include "support/DatabaseHands.h"
#include "support/FileHands.h"
#include "support/FormHands.h"
#include "support/PictureHands.h"
#include "support/PrintQt.h"

struct FakeHost : EditorHost {
    QString calls;
    bool running = false;  // an operation on the link

    void LoadSettingFile() override { calls += u"load "; }
    void DrawOverviewSignal() override { calls += u"draw "; }
    bool RefuseWhileRunning() override { return running; }
};

// The form Editor, shown and active, on real files in a folder of its own. Each sample is its address modulo 1000.
struct EditorBench : ::testing::Test, FormHands<Editor> {
    EditorBench() {
        program.numbers = UserNumbers(QLocale::c());
        for (const MemorySize* const size : kMemorySizes) {
            const auto next = [a = 0]() mutable { return static_cast<qint16>(a++ % 1000); };
            std::ranges::generate(size->samples(program.memories), next);
        }
        program.SettingFileName.Set(set);
        EXPECT_TRUE(SaveSettingFile(CreateSettingFile(set), program.panel, program.memories));
        Open();
    }

    // A new form. Its timer ticks only as the test says.
    void Open() {
        form = std::make_unique<Editor>(EditorServices{program, desktop, boxfile, ziel, host});
        form->Editor_Form_Load();
        EXPECT_TRUE(Show());
        QCoreApplication::processEvents();
        Get<QTimer>("Timer1")->stop();
    }
    void Redraw() {
        state.EditorRedrawPending = true;
        Tick();
    }
    void Tick() { QMetaObject::invokeMethod(Get<QTimer>("Timer1"), "timeout"); }

    PictureHands Overview() { return {Get<PictureBox>("Picture1")}; }
    PictureHands Detail() { return {Get<PictureBox>("Picture2")}; }
    void Zoom(double from, double to) {
        Overview().Drag(from, to);
        Tick();
    }
    void Press(const char* pen, double x, double y) {
        Click(pen);
        Detail().Press(x, y);
    }
    void Line(double x1, double y1, double x2, double y2) {
        Press("opPenmode_0", x1, y1);
        Detail().Move(x2, y2);
        Detail().Press(x2, y2);
    }
    void Drag(const char* pen, double from, double to) {
        Click(pen);
        Detail().Drag(from, to);
        Tick();
    }
    void Copy(double from, double to) { Drag("opPenmode_2", from, to); }
    void Paste(double at) { Drag("opPenmode_3", at - 10, at); }
    void EnterPoint(const char* address, const char* value) {
        Enter("Text1_0", address);
        Enter("Text1_1", value);
    }
    void Choose(const char* item, bool answer = true) {
        desktop.answer = answer;
        Get<QAction>(item)->trigger();
        EXPECT_FALSE(desktop.busy);
    }
    // Goes over to "Edit signal", on a new construction file the first time.
    void EditSignal(const char* points = "(0, 0), (4095, 0)") {
        desktop.answer = true;
        desktop.chosen = con;
        Click("opEditmode_1");
        Execute(con, std::string("delete from ARB4; insert into ARB4 values ") + points);
        Tick();
    }
    QString Says(const char* label) { return Get<QLabel>(label)->text(); }
    // Types over what a field of any kind holds.
    void TypeOver(const char* field, const char* text) {
        Get(field)->setFocus();
        QTest::keyClick(Get(field), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(Get(field), QString::fromLatin1(text));
    }
    // Whether this window of the editor is open.
    bool Stands(const char* window) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return form->findChild<QDialog*>(QString::fromLatin1(window)) != nullptr;
    }

    const MemorySize& Size() { return Get<QAction>("mnu4ksig")->isChecked() ? kMemory4k : kMemory16k; }
    // A file that holds no tables.
    QString Letter() const { return WriteFile(folder.filePath(QStringLiteral("letter")), "Dear Sir"); }
    QString Points() { return Rows(con, Size().table); }
    // Samples in the file and in the array alike.
    void ExpectMemory(const char* samples) {
        for (const QString& sample : QString::fromLatin1(samples).split(u' ')) {
            const QString adr = sample.section(u'=', 0, 0);
            EXPECT_EQ(Rows(set, Size().table + (" where Adr = " + adr.toStdString())), sample);
            EXPECT_EQ(Size().samples(program.memories)[adr.toUInt()], sample.section(u'=', 1).toInt()) << adr;
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
