// The heaviest work of the editor's form, with all records: a redraw, a paste over the whole memory, a move of the
// pointer, the spline of a signal, a formula for the whole memory.

#include <muParser.h>
#include <sqlite3.h>

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <cmath>
#include <memory>
#include <numbers>

#include "BarePictures.h"
#include "Table.h"
#include "editor/Editor.h"
#include "platform/SocketDdeLink.h"
#include "storage/SettingFile.h"
#include "waveform/Choices.h"
#include "waveform/Formula.h"
#include "waveform/PenDrags.h"
#include "waveform/Spline.h"
#include "widgets/QtDesktop.h"

namespace {

constexpr int kRuns = 40;
constexpr QSize kWindow(1200, 800);

enum Wave { kSine, kNoise };

std::unique_ptr<ArbMemories> Waveform(Wave wave) {
    auto memories = std::make_unique<ArbMemories>();
    for (const MemorySize* const size : kMemorySizes) {
        const std::span<qint16> samples = size->samples(*memories);
        for (std::size_t i = 0; i < samples.size(); ++i) {
            const double turn = static_cast<double>(i) / size->LastAdr * 2.0 * std::numbers::pi;
            samples[i] = static_cast<qint16>(wave == kSine ? std::lround(2000.0 * std::sin(5.0 * turn))
                                                           : static_cast<long>(i * 7919 % 4095) - 2047);
        }
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

// The editor, open on a memory.
class Bench {
  public:
    Bench(const MemorySize& memory, Wave wave, int viewLeft, int viewRight) : size(memory) {
        fileName = folder.filePath(QStringLiteral("bench.set"));
        SaveSettingFile(CreateSettingFile(fileName), program->panel, *Waveform(wave));
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
    void Redraw() {
        const auto item = &size == &kMemory4k ? QStringLiteral("mnu4ksig") : QStringLiteral("mnu16ksig");
        form->findChild<QAction*>(item)->trigger();
    }

    QWidget* Find(const char* name) { return form->findChild<QWidget*>(QString::fromLatin1(name)); }

    // The pointer's events in Picture2, in logical pixels.
    void Press(QPointF at) { Send(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton); }
    void Move(QPointF at, Qt::MouseButtons held = Qt::NoButton) { Send(QEvent::MouseMove, at, Qt::NoButton, held); }

    std::vector<BareRow> Rows() const { return BarePictures::ReadFile(fileName.toStdString(), size); }

    const MemorySize& size;
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
    const MemorySize& size;
    Wave wave;
    bool dots;
    int left, right;
};

void Redraw(benchmark::State& state, const Look& look) {
    Bench bench(look.size, look.wave, look.left, look.right);
    bench.program->editor.Markers = look.dots;
    BarePictures bare(look.size, bench.Find("Picture1")->size(), bench.Find("Picture2")->size(), look.left, look.right);
    const Figure row = Compare(
        state, [&] { bench.Redraw(); }, [&] { bare.Draw(bench.Rows(), look.dots); },
        [] { QCoreApplication::processEvents(); });
    Put(state, row, bench.desktop.boxes == 0);
}

constexpr bool kDots = true;
constexpr Look kLooks[] = {
    {kMemory4k, kSine, !kDots, 0, 4095},    {kMemory16k, kSine, !kDots, 0, 16384},
    {kMemory16k, kNoise, !kDots, 0, 16384}, {kMemory16k, kNoise, kDots, 0, 16384},
    {kMemory16k, kSine, kDots, 1000, 2000},
};
BENCHMARK_CAPTURE(Redraw, 4, kLooks[0])->Name("Redraw 4K")->Iterations(kRuns);
BENCHMARK_CAPTURE(Redraw, 16, kLooks[1])->Name("Redraw 16K")->Iterations(kRuns);
BENCHMARK_CAPTURE(Redraw, noise, kLooks[2])->Name("Redraw 16K, noise")->Iterations(kRuns);
BENCHMARK_CAPTURE(Redraw, dots, kLooks[3])->Name("Redraw 16K, noise with dots")->Iterations(kRuns);
BENCHMARK_CAPTURE(Redraw, part, kLooks[4])->Name("Redraw 16K, 1001 addresses with dots")->Iterations(kRuns);

// The rows changed one by one in one transaction.
bool PasteByEngineAlone(const std::string& name, int value) {
    sqlite3* database = nullptr;
    sqlite3_open_v2(name.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    sqlite3_exec(database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    const std::vector<BareRow> rows = BarePictures::Read(database, kMemory16k);
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
    Bench bench(kMemory16k, kSine, 0, 16384);
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
    const Figure row = Compare(
        state, [&] { bench.Move(leftEnd); }, [&] { good = good && PasteByEngineAlone(bare, value); },
        [&] {
            const std::vector<BareRow> rows = bench.Rows();
            good = good && rows.size() == 16385 && rows.front().value == value && rows.back().value == value;
            drag();
        });
    Put(state, row, good && bench.desktop.boxes == 0);
}
BENCHMARK(PasteOf16385Samples)->Name("Paste of 16385 samples")->Iterations(kRuns);

// Its floor is the paste that it undoes.
void UndoOf16385Samples(benchmark::State& state) {
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("bench.set"));
    auto program = std::make_unique<ProgramState>();
    SaveSettingFile(CreateSettingFile(fileName), program->panel, program->memories);
    program->SettingFileName.Set(fileName);
    EditorState& editor = program->editor;
    EditorTables tables(program->SettingFileName, program->ConstructionFileName, program->memories);
    WorkOn(EditTarget::Memory, editor, tables);
    editor.Size = &kMemory16k;
    editor.CopyEnd = 16384;
    bool good = true;
    const Figure row = Compare(
        state, [&] { good = tables.Step(Replay::Undo).changed && good; },
        [&] {
            editor.CopyBuffer.fill(static_cast<qint16>(editor.CopyBuffer.front() + 1));
            editor.PasteAt = 0;
            good = EndPaste(editor, tables).changed && good;
        });
    const std::vector<BareRow> rows = BarePictures::ReadFile(fileName.toStdString(), kMemory16k);
    const bool undone = std::ranges::all_of(rows, [](const BareRow& record) { return record.value == 0; });
    Put(state, row, good && undone && rows.size() == 16384);
}
BENCHMARK(UndoOf16385Samples)->Name("Undo of a paste of 16385 samples")->Iterations(kRuns);

// With the crosshair and a line under way, until the window shows it. The file is gone meanwhile: a call to the
// database would make the editor complain.
void MoveOverPicture2(benchmark::State& state) {
    Bench bench(kMemory16k, kNoise, 0, 16384);
    const QSize overview = bench.Find("Picture1")->size();
    const QSize detail = bench.Find("Picture2")->size();
    BarePictures bare(kMemory16k, overview, detail, 0, 16384);
    bare.Draw(bench.Rows(), !kDots);
    QImage window(overview + QSize(0, detail.height()), QImage::Format_RGB32);
    bench.Press({100.0, 200.0});
    QFile::remove(bench.fileName);
    QPointF at(100.0, 200.0);
    const auto next = [&at, &detail] {
        at = {std::fmod(at.x() + 97.0, detail.width()), std::fmod(at.y() + 61.0, detail.height())};
    };
    const Figure row = Compare(
        state,
        [&] {
            bench.Move(at);
            QCoreApplication::processEvents();
        },
        [&] {
            bare.MoveCross({at.x() * 13.0, at.y()}, {at.x() * 13.0 + 1300.0, at.y() + 61.0}, window);
        },
        next);
    Put(state, row, bench.program->editor.LineActive && bench.desktop.boxes == 0);
}
BENCHMARK(MoveOverPicture2)->Name("Move of the pointer with crosshair and line")->Iterations(10 * kRuns);

// What no spline can do without: the second derivatives of points that stand 8 addresses apart, from their tridiagonal
// system, and a cubic for each address, held to the range of a sample.
void SplineAlone(std::span<const Record> points, std::span<qint16> signal) {
    std::vector<double> diagonal(points.size(), 32.0);
    std::vector<double> second(points.size());
    const std::size_t last = points.size() - 1;
    for (std::size_t i = 1; i < last; ++i) {
        const double factor = i > 1 ? 8.0 / diagonal[i - 1] : 0.0;
        const int bend = points[i + 1].Value - 2 * points[i].Value + points[i - 1].Value;
        diagonal[i] -= factor * 8.0;
        second[i] = 0.75 * bend - factor * second[i - 1];
    }
    for (std::size_t i = last; i-- > 1;) {
        second[i] = (second[i] - second[i + 1] * 8.0) / diagonal[i];
    }
    for (std::size_t i = 0; i < last; ++i) {
        const double rise = (points[i + 1].Value - points[i].Value) / 8.0;
        const double slope = rise - (2.0 * second[i] + second[i + 1]) * 8.0 / 6.0;
        const double cubic = (second[i + 1] - second[i]) / 48.0;
        for (int t = 0; t < 8; ++t) {
            const double value = points[i].Value + t * (slope + t * (second[i] / 2.0 + t * cubic));
            signal[static_cast<std::size_t>(points[i].Adr + t)] =
                static_cast<qint16>(std::lrint(std::clamp(value, -2047.0, 2047.0)));
        }
    }
    signal.back() = points.back().Value;
}

void SplineOf2049Points(benchmark::State& state) {
    std::vector<Record> points;
    const auto memories = Waveform(kNoise);
    for (int adr = 0; adr <= 16384; adr += 8) {
        points.push_back({0, static_cast<qint16>(adr), memories->ArbMemory16[static_cast<std::size_t>(adr)]});
    }
    std::vector<qint16> signal(16385);
    std::vector<qint16> bare(16385);
    const Figure row = Compare(
        state, [&] { ComputeSpline(points, signal); },
        [&] {
            SplineAlone(points, bare);
            benchmark::DoNotOptimize(bare.data());
        });
    const bool same =
        std::equal(signal.begin(), signal.end(), bare.begin(), [](qint16 a, qint16 b) { return std::abs(a - b) <= 1; });
    Put(state, row, same);
}
BENCHMARK(SplineOf2049Points)->Name("Spline of 2049 points over 16K")->Iterations(10 * kRuns);

// The parser's own loop over its own functions, and one for the noise.
std::vector<qint16> FormulaByParserAlone(const char* formula, int count) {
    double k = 0.0;
    double x = 0.0;
    mu::Parser parser;
    parser.DefineConst("pi", std::numbers::pi);
    parser.DefineVar("x", &x);
    parser.DefineVar("k", &k);
    parser.DefineFun("fraction", [](double value) { return value - std::floor(value); });
    constexpr bool kMayBeComputedOnce = false;
    parser.DefineFun(
        "noise",
        [](double index) {
            auto z = (static_cast<quint64>(index) + 1) * 0x9E3779B97F4A7C15U + 1;
            z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
            z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
            return std::ldexp(static_cast<double>((z ^ (z >> 31U)) >> 11U), -52) - 1.0;
        },
        kMayBeComputedOnce);
    parser.SetExpr(formula);
    std::vector<qint16> samples;
    samples.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        k = i;
        x = k / count;
        samples.push_back(static_cast<qint16>(std::nearbyint(std::clamp(2047.0 * parser.Eval(), -2047.0, 2047.0))));
    }
    return samples;
}

// From the text to the samples.
void FormulaOf16384Samples(benchmark::State& state) {
    constexpr int kSamples = 16384;
    const QString formula = QStringLiteral("exp(-5*x)*sin(2*pi*10*x) + 0.1*noise(1)*pulse(8*x, 0.25)");
    const UserNumbers numbers(QLocale::c());
    std::vector<qint16> samples;
    std::vector<qint16> bare;
    const Figure row = Compare(
        state, [&] { samples = SamplesOf(EvaluateFormula(formula, kSamples, numbers).values); },
        [&] {
            bare = FormulaByParserAlone("exp(-5*x)*sin(2*pi*10*x) + 0.1*noise(k)*(fraction(8*x) < 0.25)", kSamples);
        });
    const bool same = std::equal(samples.begin(), samples.end(), bare.begin(), bare.end(),
                                 [](qint16 a, qint16 b) { return std::abs(a - b) <= 1; });
    Put(state, row, same);
}
BENCHMARK(FormulaOf16384Samples)->Name("Formula of 16384 samples")->Iterations(10 * kRuns);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return RunTable(argc, argv);
}
