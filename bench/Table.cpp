#include "Table.h"

#include <cstdio>

namespace {

constexpr char kFailed[] = "failed";

class TableReporter : public benchmark::BenchmarkReporter {
  public:
    bool failed = false;

    bool ReportContext(const Context& /*context*/) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const std::string& what = run.run_name.function_name;
            const auto figure = run.counters.find("figure");
            if (figure == run.counters.end()) {
                failed = true;
                std::printf("%-44s %s\n", what.c_str(), kFailed);
            } else {
                const double floor = run.counters.at("floor").value;
                std::printf("%-44s %9.2f %-3s %9.2f %-3s %6.2f\n", what.c_str(), figure->second.value,
                            run.report_label.c_str(), floor, run.report_label.c_str(), figure->second.value / floor);
            }
            std::fflush(stdout);
        }
    }
};

}  // namespace

void Put(benchmark::State& state, const Figure& row, bool good) {
    state.SetLabel(good ? row.unit : kFailed);
    if (good) {
        state.counters["figure"] = row.figure;
        state.counters["floor"] = row.floor;
    }
}

int RunTable(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    TableReporter table;
    benchmark::RunSpecifiedBenchmarks(&table);
    return table.failed ? 1 : 0;
}
