// The heaviest work of the editor's form, in 16K with all records: a redraw, a paste over the whole memory, a move of
// the pointer, the spline of a signal. Each figure stands beside its floor, taken in turn in the same run.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <cmath>
#include <memory>
#include <numbers>

#include "BarePictures.h"
#include "Compare.h"
#include "editor/Editor.h"
#include "editor/Spline.h"
#include "platform/QtDesktop.h"
#include "platform/SocketDdeLink.h"
#include "storage/SettingFile.h"

namespace {

constexpr int kRuns = 40;
constexpr QSize kWindow(1200, 800);

enum Wave { kSine, kNoise };

std::unique_ptr<ArbMemories> Waveform(Wave wave) {
    auto memories = std::make_unique<ArbMemories>();
    for (std::size_t i = 0; i < memories->ArbMemory16.size(); ++i) {
        const double turn = static_cast<double>(i) / 16384.0 * 2.0 * std::numbers::pi;
        memories->ArbMemory16[i] = static_cast<qint16>(wave == kSine ? std::lround(2000.0 * std::sin(5.0 * turn))
                                                                     : static_cast<long>(i * 7919 % 4095) - 2047);
    }
    return memories;
}

// The desktop of the program, but that a message box only counts.
class CountingDesktop : public QtDesktop {
  public:
    int boxes = 0;
    void MessageBox(const QString&, const QString&) override { ++boxes; }
};

class NoPanel : public EditorHost {
  public:
    void LoadSettingFile() override {}
    void DrawOverviewSignal() override {}
    bool RefuseWhileRunning() override { return false; }
};

// The editor, open in 16K.
class Bench {
  public:
    Bench(Wave wave, int viewLeft, int viewRight) {
        fileName = folder.filePath(QStringLiteral("bench.set"));
        CreateSettingFile(fileName);
        SaveSettingFile(fileName, program->panel, *Waveform(wave));
        program->SettingFileName.Set(fileName);
        form->Editor_Form_Load();
        form->resize(kWindow);
        form->show();
        View(viewLeft, viewRight);
        Redraw();
        QCoreApplication::processEvents();
    }

    void View(int left, int right) {
        program->editor.ViewLeft = static_cast<qint16>(left);
        program->editor.ViewRight = static_cast<qint16>(right);
    }
    void Redraw() { form->findChild<QAction*>(QStringLiteral("mnu16ksig"))->trigger(); }

    QWidget* Find(const char* name) { return form->findChild<QWidget*>(QString::fromLatin1(name)); }

    // The pointer's events in Picture2, in logical pixels.
    void Press(QPointF at) { Send(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton); }
    void Move(QPointF at, Qt::MouseButtons held = Qt::NoButton) { Send(QEvent::MouseMove, at, Qt::NoButton, held); }

    void Judge(benchmark::State& state) const {
        if (desktop.boxes > 0) {
            state.SkipWithError("the editor complained");
        }
    }

    QTemporaryDir folder;
    QString fileName;
    std::unique_ptr<ProgramState> program = std::make_unique<ProgramState>();
    CountingDesktop desktop;
    FileBox boxfile{desktop};
    SocketDdeLink ziel;
    NoPanel panel;
    std::unique_ptr<Editor> form = std::make_unique<Editor>(EditorServices{*program, desktop, boxfile, ziel, panel});

  private:
    void Send(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons held) {
        QWidget* const picture = Find("Picture2");
        QMouseEvent event(type, at, picture->mapToGlobal(at), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(picture, &event);
    }
};

struct Look {
    Wave wave;
    bool dots;
    int left, right;
    bool smoothFloor;
};

void Redraw(benchmark::State& state, const Look& look) {
    Bench bench(look.wave, look.left, look.right);
    bench.form->findChild<QCheckBox*>(QStringLiteral("Marker"))->setChecked(look.dots);
    BarePictures bare(bench.Find("Picture1")->size(), bench.Find("Picture2")->size(), look.left, look.right);
    const std::string name = bench.fileName.toStdString();
    Compare(
        state, [&] { bench.Redraw(); }, [&] { bare.Draw(BarePictures::ReadFile(name), look.dots, look.smoothFloor); },
        [] { QCoreApplication::processEvents(); });
    bench.Judge(state);
}

constexpr bool kDots = true;
constexpr bool kSmooth = true;
#define REDRAW(name, ...)                              \
    BENCHMARK_CAPTURE(Redraw, name, Look{__VA_ARGS__}) \
        ->Iterations(kRuns)                            \
        ->UseManualTime()                              \
        ->Unit(benchmark::kMillisecond)
REDRAW(SineAll, kSine, !kDots, 0, 16384, kSmooth);
REDRAW(SineAllDots, kSine, kDots, 0, 16384, kSmooth);
REDRAW(SinePart, kSine, !kDots, 1000, 2000, kSmooth);
REDRAW(SinePartDots, kSine, kDots, 1000, 2000, kSmooth);
REDRAW(NoiseAll, kNoise, !kDots, 0, 16384, kSmooth);
REDRAW(NoiseAllDots, kNoise, kDots, 0, 16384, kSmooth);
REDRAW(NoisePart, kNoise, !kDots, 1000, 2000, kSmooth);
REDRAW(NoisePartDots, kNoise, kDots, 1000, 2000, kSmooth);
// Beside strokes without soft edges, which the editor does not draw, but which cost less.
REDRAW(SineAllHardFloor, kSine, !kDots, 0, 16384, !kSmooth);
REDRAW(SineAllDotsHardFloor, kSine, kDots, 0, 16384, !kSmooth);
REDRAW(SinePartHardFloor, kSine, !kDots, 1000, 2000, !kSmooth);
REDRAW(SinePartDotsHardFloor, kSine, kDots, 1000, 2000, !kSmooth);

// The rows changed one by one in one transaction.
bool PasteByEngineAlone(const std::string& name, int value) {
    sqlite3* database = nullptr;
    sqlite3_open_v2(name.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    sqlite3_exec(database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    const std::vector<BareRow> rows = BarePictures::Read(database);
    sqlite3_stmt* change = nullptr;
    sqlite3_prepare_v2(database, "UPDATE ARB16 SET Adr = ?, Value = ? WHERE rowid = ?", -1, &change, nullptr);
    for (const BareRow& row : rows) {
        sqlite3_bind_int(change, 1, row.adr);
        sqlite3_bind_int(change, 2, value);
        sqlite3_bind_int64(change, 3, row.id);
        sqlite3_step(change);
        sqlite3_reset(change);
    }
    sqlite3_finalize(change);
    const bool whole = sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(database);
    return whole && rows.size() >= 16384;
}

// The last move of the drag writes; the redraw comes with the timer. The floor works on a file of its own.
void PasteOf16385Samples(benchmark::State& state) {
    Bench bench(kSine, 0, 16384);
    const std::string bare = bench.folder.filePath(QStringLiteral("bare.set")).toStdString();
    QFile::copy(bench.fileName, QString::fromStdString(bare));
    EditorState& editor = bench.program->editor;
    editor.CopyStart = 0;
    editor.CopyEnd = 16384;
    bench.form->findChild<QAbstractButton*>(QStringLiteral("opPenmode_3"))->click();
    const QPointF leftEnd(0.0, 100.0);
    qint16 value = 0;
    const auto drag = [&] {
        bench.Redraw();
        editor.EditorRedrawPending = false;  // a redraw by the timer would end the drag
        editor.CopyBuffer.fill(++value);
        bench.Move(leftEnd, Qt::LeftButton);
    };
    drag();
    bool good = true;
    Compare(
        state, [&] { bench.Move(leftEnd); }, [&] { good = good && PasteByEngineAlone(bare, value); },
        [&] {
            const std::vector<BareRow> rows = BarePictures::ReadFile(bench.fileName.toStdString());
            good = good && rows.size() == 16385 && rows.front().value == value && rows.back().value == value;
            drag();
        });
    bench.Judge(state);
    if (!good) {
        state.SkipWithError("a paste failed");
    }
}
BENCHMARK(PasteOf16385Samples)->Iterations(kRuns)->UseManualTime()->Unit(benchmark::kMillisecond);

// With the crosshair and a line under way, until the window shows it. The file is gone meanwhile: a call to the
// database would make the editor complain.
void MoveOverPicture2(benchmark::State& state) {
    Bench bench(kNoise, 0, 16384);
    const QSize overview = bench.Find("Picture1")->size();
    const QSize detail = bench.Find("Picture2")->size();
    BarePictures bare(overview, detail, 0, 16384);
    bare.Draw(BarePictures::ReadFile(bench.fileName.toStdString()), false, true);
    QImage window(overview + QSize(0, detail.height()), QImage::Format_RGB32);
    bench.Press({100.0, 200.0});
    QFile::remove(bench.fileName);
    QPointF at(100.0, 200.0);
    const auto next = [&at, &detail] {
        at = {std::fmod(at.x() + 97.0, detail.width()), std::fmod(at.y() + 61.0, detail.height())};
    };
    Compare(
        state,
        [&] {
            bench.Move(at);
            QCoreApplication::processEvents();
        },
        [&] {
            bare.MoveCross({at.x() * 13.0, at.y()}, {at.x() * 13.0 + 1300.0, at.y() + 61.0}, window);
        },
        next);
    bench.Judge(state);
    if (!bench.program->editor.LineActive) {
        state.SkipWithError("no line was under way");
    }
}
BENCHMARK(MoveOverPicture2)->Iterations(10 * kRuns)->UseManualTime()->Unit(benchmark::kMillisecond);

// A cubic for each address, with its coefficients known: what no spline can do without.
void EvaluateAlone(std::span<const Record> points, std::span<qint16> signal) {
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const double slope = static_cast<double>(points[i + 1].Value - points[i].Value) / 8.0;
        for (int t = 0; t < 8; ++t) {
            const double value = points[i].Value + t * (slope + t * (0.01 + t * 0.001));
            signal[static_cast<std::size_t>(points[i].Adr + t)] = static_cast<qint16>(std::lrint(value));
        }
    }
}

void SplineOf2049Points(benchmark::State& state) {
    std::vector<Record> points;
    const auto memories = Waveform(kNoise);
    for (int adr = 0; adr <= 16384; adr += 8) {
        points.push_back({0, static_cast<qint16>(adr), memories->ArbMemory16[static_cast<std::size_t>(adr)]});
    }
    std::vector<qint16> signal(16385);
    std::vector<qint16> bare(16385);
    Compare(
        state, [&] { ComputeSpline(points, 16384, signal); },
        [&] {
            EvaluateAlone(points, bare);
            benchmark::DoNotOptimize(bare.data());
        });
}
BENCHMARK(SplineOf2049Points)->Iterations(10 * kRuns)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
