#include "storage/ConstructionFile.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>

#include "DescribedFile.h"
#include "Fuzz.h"
#include "core/MemorySize.h"
#include "storage/TableWork.h"
#include "waveform/LinearMemory.h"
#include "waveform/Samples.h"
#include "waveform/Spline.h"

namespace {

using Records = std::vector<Record>;

bool Same(const Records& one, const Records& other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](const Record& a, const Record& b) { return a.Adr == b.Adr && a.Value == b.Value; });
}

// What the engine itself says that the file holds.
class Expectation {
  public:
    explicit Expectation(const QString& name) : database_(name.toStdString()) {}

    bool IsConstructionFile() {
        return Works("SELECT rowid, Adr, Value FROM ARB4") && Works("SELECT rowid, Adr, Value FROM ARB16") &&
               !Works("SELECT 1 FROM Settings");
    }

    Records Points(const std::string& table) {
        SQLite::Statement row(database_, "SELECT Adr, Value FROM " + table +
                                             " WHERE typeof(Adr) = 'integer' AND typeof(Value) = 'integer' AND Adr "
                                             "BETWEEN -32768 AND 32767 AND Value BETWEEN -32768 AND 32767 "
                                             "ORDER BY Adr, rowid");
        Records records;
        while (row.executeStep()) {
            records.push_back(
                {0, static_cast<qint16>(row.getColumn(0).getInt()), static_cast<qint16>(row.getColumn(1).getInt())});
        }
        return records;
    }

    // Columns of other types would turn them into texts.
    bool StoresWholeNumbers(const std::string& table) {
        return database_
                   .execAndGet("SELECT count(*) FROM pragma_table_info('" + table +
                               "') WHERE lower(name) IN ('adr', 'value') AND type IN ('', 'SMALLINT')")
                   .getInt() == 2;
    }

  private:
    bool Works(const std::string& query) { return database_.tryExec(query) == SQLite::OK; }

    SQLite::Database database_;
};

void RequireCurves(const Records& points) {
    constexpr qint16 kBefore = 77;
    constexpr int kLastAdr = 4095;
    std::vector<qint16> samples(kLastAdr + 1, kBefore);
    ComputeSpline(points, samples);
    Require(std::all_of(samples.begin(), samples.end() - 1,
                        [](qint16 sample) { return std::abs(sample) <= kHighestSample; }) ||
                DistinctPoints(points).size() == 1,
            "a spline holds to the range of a sample");
    std::fill(samples.begin(), samples.end(), kBefore);
    GenerateLinearMemory(points, samples);
    Require(!points.empty() || std::count(samples.begin(), samples.end(), kBefore) == kLastAdr + 1,
            "without points nothing changes");
}

bool ByAddress(const Record& one, const Record& other) { return one.Adr < other.Adr; }

Records PointsOf(const QString& name, const MemorySize& size) {
    Records points;
    const StoreOutcome outcome = ReadTable(name, size.table, RecordOrder::Address, points);
    Require(outcome == StoreOutcome::Done || points.empty(), "nothing is read of a table that fails");
    Require(std::is_sorted(points.begin(), points.end(), ByAddress), "points come by address");
    return points;
}

// Changes the first point, removes the last and adds one; gives what the table should hold then.
StoreOutcome ChangePoints(const QString& name, const MemorySize& size, Records& expected) {
    return ChangeTable(name, size.table, [&expected](RecordTable& table) {
        table.Read(RecordOrder::Insertion, expected);
        if (!expected.empty()) {
            table.Change(expected.front(), 11);
            expected.front().Value = 11;
            table.Remove(expected.back());
            expected.pop_back();
        }
        table.Add(13, 14);
        expected.push_back({0, 13, 14});
    });
}

void RequireChanges(const DescribedFile& file, const MemorySize& size) {
    const Records before = PointsOf(file.Name(), size);
    Records expected;
    const StoreOutcome outcome = ChangePoints(file.Name(), size, expected);
    const Records after = PointsOf(file.Name(), size);
    if (outcome != StoreOutcome::Done) {
        Require(Same(after, before), "a change that fails leaves the table");
    } else if (!file.IsRaw() && Expectation(file.Name()).StoresWholeNumbers(size.table)) {
        std::stable_sort(expected.begin(), expected.end(), ByAddress);
        Require(Same(after, expected), "a change is there at the next reading");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static DescribedFile file("f.con");
    file.Make(BytesOf(data, size));
    const ConstructionOutcome outcome = CheckConstructionFile(file.Name());
    if (!file.IsRaw()) {
        Require((outcome == ConstructionOutcome::Usable) == Expectation(file.Name()).IsConstructionFile(),
                "the outcome tells what the file is");
    }
    for (const MemorySize* const memory : kMemorySizes) {
        const Records points = PointsOf(file.Name(), *memory);
        if (outcome == ConstructionOutcome::Usable && !file.IsRaw()) {
            Require(Same(points, Expectation(file.Name()).Points(memory->table)), "the points are those of the table");
        }
        RequireCurves(points);
    }
    file.RequireUntouched();
    if (outcome == ConstructionOutcome::Usable) {
        RequireChanges(file, size % 2 == 0 ? kMemory4k : kMemory16k);
    }
    return 0;
}
