// The pacing wait, a Set with its read-back, and the transfer of the memories, over a pseudo-terminal to the simulated
// instrument. Each figure stands beside its floor from the same run.

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QString>

#include "Table.h"
#include "link/Link.h"
#include "link/SilentFront.h"
#include "platform/EventClock.h"
#include "platform/SerialControl.h"
#include "simulator/SimulatedInstrument.h"

namespace {

constexpr qint32 kPaceMs = 5;
constexpr double kBitsPerCharacter = 11.0;  // start, 8 data, 2 stop

void WaitOf5Ms(benchmark::State& state) {
    EventClock clock;
    const double all = Milliseconds([&] {
        for ([[maybe_unused]] auto _ : state) {
            qint32 ms = kPaceMs;
            clock.WaitMs(ms);
        }
    });
    Put(state, {"ms", all / static_cast<double>(state.iterations()), kPaceMs}, true);
}
BENCHMARK(WaitOf5Ms)->Name("A wait of 5 ms, mean")->Iterations(400);

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
    SilentFront front;
    Link link{program, com, clock, front, front};
};

// The instrument answers at once; what remains is the pacing after each command.
void SetWithReadBack(benchmark::State& state) {
    Bench bench({.rate = 19200});
    const double all = Milliseconds([&] {
        for ([[maybe_unused]] auto _ : state) {
            bench.link.commands.SendAllToUnit();
            bench.link.readBack.ReadAllFromUnit();
        }
    });
    const auto runs = static_cast<double>(state.iterations());
    const auto waits = static_cast<double>(bench.instrument.ReceivedLines().size());
    Put(state, {"ms", all / runs, waits / runs * kPaceMs}, bench.program.link.LinkUp == 1);
}
BENCHMARK(SetWithReadBack)->Name("Set with read-back")->Iterations(20);

// A memory over a line of 115200 baud. The floor is the time that the bytes need on the line, or, in reading,
// the 5 ms after each query, in which the line works too, if they are more.
void Transfer(benchmark::State& state, TransferResult (MemoryTransfer::*routine)(const MemorySize&),
              const MemorySize& moved, bool paced) {
    Bench bench({.rate = 115200, .realTime = true});
    int sample = 0;
    for (const MemorySize* const size : kMemorySizes) {
        for (qint16& element : size->samples(bench.program.memories)) {
            element = static_cast<qint16>(++sample % 4095 - 2047);
        }
    }
    const double ms = Milliseconds([&] {
        for ([[maybe_unused]] auto _ : state) {
            (bench.link.memory.*routine)(moved);
            bench.instrument.WaitForLine(paced ? "" : "are", paced ? std::chrono::seconds(0) : std::chrono::minutes(2));
        }
    });
    const double bytes = static_cast<double>(bench.instrument.ReceivedBytes().size() +
                                             (paced ? bench.instrument.SentBytes().size() : 0));
    const double points = static_cast<double>(bench.instrument.ReceivedLines().size());
    const double floor = std::max(bench.LineTime(bytes), paced ? points * kPaceMs * 1.0e-3 : 0.0);
    Put(state, {"s", ms * 1.0e-3, floor}, bench.program.link.LinkUp == 1);
}
BENCHMARK_CAPTURE(Transfer, Send4, &MemoryTransfer::SendArb, kMemory4k, false)
    ->Name("Send the 4K memory")
    ->Iterations(1);
BENCHMARK_CAPTURE(Transfer, Send16, &MemoryTransfer::SendArb, kMemory16k, false)
    ->Name("Send the 16K memory")
    ->Iterations(1);
BENCHMARK_CAPTURE(Transfer, Read4, &MemoryTransfer::ReadArb, kMemory4k, true)
    ->Name("Read the 4K memory")
    ->Iterations(1);
BENCHMARK_CAPTURE(Transfer, Read16, &MemoryTransfer::ReadArb, kMemory16k, true)
    ->Name("Read the 16K memory")
    ->Iterations(1);

bool WriteAll(int file, const std::string& bytes) {
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t count = ::write(file, bytes.data() + done, bytes.size() - done);
        if (count < 0) {
            return false;
        }
        done += static_cast<std::size_t>(count);
    }
    return true;
}

// The point lines without pacing or line time, beside a raw write loop of the same lines into a line of the same kind.
void UnpacedPoints(benchmark::State& state) {
    Bench bench({.rate = 115200});
    bench.program.link.PaceDelayMs = 0;  // of the commands around the points
    bench.link.memory.SendArb(kMemory16k);
    const std::vector<std::string> lines = bench.instrument.ReceivedLines();
    Bench raw({.rate = 115200});
    raw.com.SetPortOpen(false);
    const int file = ::open(raw.instrument.DevicePath().c_str(), O_WRONLY | O_NOCTTY);
    bool good = file >= 0;
    const Figure row = Compare(
        state, [&] { bench.link.memory.SendArb(kMemory16k); },
        [&] {
            for (const std::string& line : lines) {
                good = good && WriteAll(file, line + '\r');
            }
        });
    ::close(file);
    Put(state, row, good && bench.program.link.LinkUp == 1);
}
BENCHMARK(UnpacedPoints)->Name("Send 16K to an instant instrument")->Iterations(25);

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    return RunTable(argc, argv);
}
