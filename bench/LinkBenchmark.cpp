// The pacing wait, and a Set with its read-back over a pseudo-terminal to an instrument that answers at once. Each
// figure stands beside its floor from the same run: the wait it is asked for, and the waits that a Set is made of.

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QString>

#include "link/Link.h"
#include "platform/EventClock.h"
#include "platform/SerialControl.h"
#include "simulator/SimulatedInstrument.h"

namespace {

constexpr qint32 kPaceMs = 5;

class NoDesktop : public Desktop {
  public:
    void MessageBox(const QString&, const QString&) override {}
    bool Question(const QString&, const QString&) override { return false; }
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

void SetWithReadBack(benchmark::State& state) {
    sim::SimulatedInstrument instrument({.rate = 19200});
    std::string error;
    if (!instrument.Start(&error)) {
        state.SkipWithError(error.c_str());
        return;
    }
    ProgramState program;
    SerialControl com([&](int) { return QString::fromStdString(instrument.DevicePath()); });
    EventClock clock;
    NoDesktop desktop;
    NoFront front;
    Link link(program, com, clock, desktop, front);
    link.connection.ConnectUnit();
    instrument.ClearLog();
    for (auto _ : state) {
        link.commands.SendAllToUnit();
        link.readBack.ReadAllFromUnit();
    }
    const double waits =
        static_cast<double>(instrument.ReceivedLines().size()) / static_cast<double>(state.iterations());
    state.counters["floor_ms"] = waits * kPaceMs;
    state.counters["linked"] = program.link.LinkUp;
}
BENCHMARK(SetWithReadBack)->Iterations(20)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
