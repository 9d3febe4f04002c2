// The pacing wait, a Set with its read-back, and the transfer of the memories, over a pseudo-terminal to the simulated
// instrument. Each figure stands beside its floor from the same run.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QString>

#include "link/Link.h"
#include "platform/EventClock.h"
#include "platform/SerialControl.h"
#include "simulator/SimulatedInstrument.h"

namespace {

constexpr qint32 kPaceMs = 5;
constexpr double kBitsPerCharacter = 11.0;  // start, 8 data, 2 stop

class NoDesktop : public Desktop {
  public:
    void MessageBox(const QString&, const QString&) override {}
    bool Question(const QString&, const QString&) override { return false; }
    QString OpenFile(const FileRequest&) override { return {}; }
    QString SaveFile(const FileRequest&) override { return {}; }
    void Beep() override {}
    void BusyOn() override {}
    void BusyOff() override {}
    void OpenInViewer(const QUrl&) override {}
};

class NoFront : public LinkFront {
  public:
    void CheckRemote(bool) override {}
    void ShowCaption(const QString&) override {}
    void ShowTransfer(const QString&, int) override {}
    void ShowProgress(int) override {}
    void HideTransfer() override {}
};

void WaitOf5Ms(benchmark::State& state) {
    EventClock clock;
    for (auto _ : state) {
        qint32 ms = kPaceMs;
        clock.WaitMs(ms);
    }
}
BENCHMARK(WaitOf5Ms)->Iterations(400)->UseRealTime()->Unit(benchmark::kMillisecond);

// The link over a pseudo-terminal to a simulated instrument.
struct Bench {
    explicit Bench(sim::Options options) : instrument(options) {
        std::string error;
        instrument.Start(&error);
        program.preferences.ComBaudRate = options.rate;
        link.connection.ConnectUnit();
        instrument.ClearLog();
    }

    // Seconds that the bytes of both directions since the last ClearLog need on the line.
    double LineTime(double bytes) const { return bytes * kBitsPerCharacter / program.preferences.ComBaudRate; }

    sim::SimulatedInstrument instrument;
    ProgramState program;
    SerialControl com{[this](int) { return QString::fromStdString(instrument.DevicePath()); }};
    EventClock clock;
    NoDesktop desktop;
    NoFront front;
    Link link{program, com, clock, desktop, front};
};

void SetWithReadBack(benchmark::State& state) {
    Bench bench({.rate = 19200});
    for (auto _ : state) {
        bench.link.commands.SendAllToUnit();
        bench.link.readBack.ReadAllFromUnit();
    }
    const double waits =
        static_cast<double>(bench.instrument.ReceivedLines().size()) / static_cast<double>(state.iterations());
    state.counters["floor_ms"] = waits * kPaceMs;
    state.counters["linked"] = bench.program.link.LinkUp;
}
BENCHMARK(SetWithReadBack)->Iterations(20)->UseRealTime()->Unit(benchmark::kMillisecond);

// A memory over a line of 115200 baud. The floor of sending is the time that the bytes need on the line; that of
// reading is the same and the 5 ms behind each query.
void Transfer(benchmark::State& state, void (MemoryTransfer::*routine)(), bool paced) {
    Bench bench({.rate = 115200, .realTime = true});
    int sample = 0;
    for (const MemorySize* const size : kMemorySizes) {
        for (qint16& element : size->samples(bench.program.memories)) {
            element = static_cast<qint16>(++sample % 4095 - 2047);
        }
    }
    QElapsedTimer elapsed;
    for (auto _ : state) {
        elapsed.start();
        (bench.link.memory.*routine)();
        bench.instrument.WaitForLine(paced ? "" : "are", paced ? std::chrono::seconds(0) : std::chrono::minutes(2));
    }
    const double seconds = static_cast<double>(elapsed.nsecsElapsed()) * 1.0e-9;
    const double bytes = static_cast<double>(bench.instrument.ReceivedBytes().size() +
                                             (paced ? bench.instrument.SentBytes().size() : 0));
    const double points = static_cast<double>(bench.instrument.ReceivedLines().size());
    const double floor = bench.LineTime(bytes) + (paced ? points * kPaceMs * 1.0e-3 : 0.0);
    state.counters["floor_s"] = floor;
    state.counters["ratio"] = seconds / floor;
    state.counters["linked"] = bench.program.link.LinkUp;
}
BENCHMARK_CAPTURE(Transfer, SendArb4, &MemoryTransfer::SendArb4, false)->Iterations(1)->UseRealTime();
BENCHMARK_CAPTURE(Transfer, SendArb16, &MemoryTransfer::SendArb16, false)->Iterations(1)->UseRealTime();
BENCHMARK_CAPTURE(Transfer, ReadArb4, &MemoryTransfer::ReadArb4, true)->Iterations(1)->UseRealTime();
BENCHMARK_CAPTURE(Transfer, ReadArb16, &MemoryTransfer::ReadArb16, true)->Iterations(1)->UseRealTime();

// The point lines without pacing or line time, beside a raw write loop of the same bytes into the same line.
void UnpacedPoints(benchmark::State& state) {
    Bench bench({.rate = 115200});
    for (auto _ : state) {
        bench.link.memory.SendArb16();
    }
}
BENCHMARK(UnpacedPoints)->Iterations(3)->UseRealTime()->Unit(benchmark::kMillisecond);

void RawWriteLoop(benchmark::State& state) {
    Bench bench({.rate = 115200});
    bench.link.memory.SendArb16();
    const std::vector<std::string> lines = bench.instrument.ReceivedLines();
    bench.com.SetPortOpen(false);
    const int file = ::open(bench.instrument.DevicePath().c_str(), O_WRONLY | O_NOCTTY);
    for (auto _ : state) {
        for (const std::string& line : lines) {
            const std::string bytes = line + '\r';
            for (std::size_t done = 0; done < bytes.size();) {
                const ssize_t count = ::write(file, bytes.data() + done, bytes.size() - done);
                if (count < 0) {
                    state.SkipWithError("the line takes nothing");
                    break;
                }
                done += static_cast<std::size_t>(count);
            }
        }
    }
    ::close(file);
}
BENCHMARK(RawWriteLoop)->Iterations(3)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
