// What a shell waits for: one value set over an open connection, and a memory sent from a file.

#include <QCoreApplication>
#include <QTemporaryDir>

#include "Table.h"
#include "ctl/Commands.h"
#include "simulator/SimulatedInstrument.h"
#include "storage/TableText.h"

namespace {

constexpr double kPaceMs = 5.0;
constexpr double kBitsPerCharacter = 11.0;  // start, 8 data, 2 stop

struct Bench {
    explicit Bench(const sim::Options& options) : instrument(options) {
        std::string error;
        instrument.Start(&error);
    }
    Options Connected() const {
        return {.port = QString::fromStdString(instrument.DevicePath()), .rate = 115200, .quiet = true};
    }
    sim::SimulatedInstrument instrument;
};

// Read, set, read back: the pacing after each of these lines can't be avoided.
void SetOneValue(benchmark::State& state) {
    Bench bench({});
    Session session(bench.Connected());
    bool good = session.Connect();
    bench.instrument.ClearLog();
    const double all = Milliseconds([&] {
        for ([[maybe_unused]] auto _ : state) {
            good = good && Set(session, {QStringLiteral("frequency=2kHz")}, false) == kDone;
        }
    });
    const auto runs = static_cast<double>(state.iterations());
    const auto lines = static_cast<double>(bench.instrument.ReceivedLines().size());
    Put(state, {"ms", all / runs, lines / runs * kPaceMs}, good);
}
BENCHMARK(SetOneValue)->Name("kl5276ctl: set of one value")->Iterations(20);

// With connecting, reading the file and giving back; the floor is what the bytes of the points need on the line.
void SendMemory(benchmark::State& state) {
    Bench bench({.rate = 115200, .realTime = true});
    const QTemporaryDir folder;
    const QString table = folder.filePath(QStringLiteral("t.csv"));
    std::vector<Record> records;
    for (int address = 0; address <= kMemory4k.LastAdr; ++address) {
        records.push_back({0, static_cast<qint16>(address), static_cast<qint16>(address % 4095 - 2047)});
    }
    bool good = SaveTableText(table, records);
    const double ms = Milliseconds([&] {
        for ([[maybe_unused]] auto _ : state) {
            Session session(bench.Connected());
            good = good && MoveMemory(session, Transfer::Send, kMemory4k, table) == kDone;
        }
    });
    const auto bytes = static_cast<double>(bench.instrument.ReceivedBytes().size());
    Put(state, {"s", ms * 1.0e-3, bytes * kBitsPerCharacter / 115200.0}, good);
}
BENCHMARK(SendMemory)->Name("kl5276ctl: memory send 4k")->Iterations(1);

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    return RunTable(argc, argv);
}
