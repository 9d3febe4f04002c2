// Save and load of a full setting file, and the editor's heaviest operations on its tables. Save and load stand beside
// the engine's own calls for the same rows, just as durable, taken in turn in the same run.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <cstdio>
#include <string>

#include "Compare.h"
#include "core/MemorySize.h"
#include "storage/RecordStore.h"
#include "storage/SettingFile.h"

namespace {

constexpr int kRuns = 60;

ArbMemories FullMemories() {
    ArbMemories memories;
    for (const MemorySize* const size : kMemorySizes) {
        int sample = 0;
        for (qint16& element : size->samples(memories)) {
            element = static_cast<qint16>(sample++ * 37 % 4095 - 2047);
        }
    }
    return memories;
}

QString InFolder(const QTemporaryDir& folder, const char* name) { return folder.filePath(QString::fromLatin1(name)); }

void InsertRows(sqlite3* database, const char* text, int last, const qint16* samples) {
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(database, text, -1, &insert, nullptr);
    for (int adr = 0; adr <= last; ++adr) {
        sqlite3_bind_int(insert, 1, adr);
        sqlite3_bind_int(insert, 2, samples[adr]);
        sqlite3_step(insert);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
}

bool SaveByEngineAlone(const std::string& folder, const std::string& name, const ArbMemories& memories) {
    const std::string part = name + ".part";
    sqlite3* database = nullptr;
    sqlite3_open_v2(part.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    sqlite3_exec(database,
                 "PRAGMA journal_mode = OFF; PRAGMA synchronous = FULL; BEGIN; CREATE TABLE ARB4 (Adr SMALLINT, Value "
                 "SMALLINT); CREATE TABLE ARB16 (Adr SMALLINT, Value SMALLINT); CREATE TABLE Settings (mFreq DOUBLE, "
                 "Version TINYINT); INSERT INTO Settings VALUES (1000, 100)",
                 nullptr, nullptr, nullptr);
    InsertRows(database, "INSERT INTO ARB4 VALUES (?, ?)", 4095, memories.ArbMemory4.data());
    InsertRows(database, "INSERT INTO ARB16 VALUES (?, ?)", 16383, memories.ArbMemory16.data());
    const bool whole = sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(database);
    const bool renamed = std::rename(part.c_str(), name.c_str()) == 0;
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    const bool synced = ::fsync(descriptor) == 0;
    ::close(descriptor);
    return whole && renamed && synced;
}

int SelectRows(sqlite3* database, const char* text, int top, qint16* samples) {
    sqlite3_stmt* rows = nullptr;
    int count = 0;
    sqlite3_prepare_v2(database, text, -1, &rows, nullptr);
    while (sqlite3_step(rows) == SQLITE_ROW) {
        const int adr = sqlite3_column_int(rows, 0);
        if (adr >= 0 && adr <= top) {
            samples[adr] = static_cast<qint16>(sqlite3_column_int(rows, 1));
            ++count;
        }
    }
    sqlite3_finalize(rows);
    return count;
}

bool LoadByEngineAlone(const std::string& name, ArbMemories& memories) {
    sqlite3* database = nullptr;
    sqlite3_open_v2(name.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    qint16 version = 0;
    SelectRows(database, "SELECT 0, Version FROM Settings", 0, &version);
    const int count = SelectRows(database, "SELECT Adr, Value FROM ARB4", 4096, memories.ArbMemory4.data()) +
                      SelectRows(database, "SELECT Adr, Value FROM ARB16", 16384, memories.ArbMemory16.data());
    sqlite3_close(database);
    return version == 100 && count == 4096 + 16384;
}

void Save(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString name = InFolder(folder, "ours.set");
    const std::string rawName = InFolder(folder, "raw.set").toStdString();
    const ArbMemories memories = FullMemories();
    bool good = true;
    Compare(
        state, [&] { good = good && CreateSettingFile(name) && SaveSettingFile(name, {}, memories); },
        [&] { good = good && SaveByEngineAlone(folder.path().toStdString(), rawName, memories); });
    if (!good) {
        state.SkipWithError("a save failed");
    }
}
BENCHMARK(Save)->Iterations(kRuns)->UseManualTime()->Unit(benchmark::kMillisecond);

void Load(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString name = InFolder(folder, "ours.set");
    ArbMemories memories = FullMemories();
    PanelState panel;
    bool good = CreateSettingFile(name) && SaveSettingFile(name, panel, memories);
    Compare(
        state, [&] { good = good && LoadSettingFile(name, panel, memories) == LoadOutcome::Loaded; },
        [&] { good = good && LoadByEngineAlone(name.toStdString(), memories); });
    if (!good) {
        state.SkipWithError("a load failed");
    }
}
BENCHMARK(Load)->Iterations(kRuns)->UseManualTime()->Unit(benchmark::kMillisecond);

// What a redraw reads.
void WalkByAddress(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString name = InFolder(folder, "walk.set");
    bool good = CreateSettingFile(name) && SaveSettingFile(name, {}, FullMemories());
    for ([[maybe_unused]] auto _ : state) {
        int count = 0;
        RecordStore store;
        store.Open(name);
        RecordTable(store, kMemory16k.table).Walk(RecordOrder::Address, [&](qint16 adr, qint16) {
            count += adr == count ? 1 : 0;
        });
        good = good && count == 16384;
    }
    if (!good) {
        state.SkipWithError("the walk failed");
    }
}
BENCHMARK(WalkByAddress)->Iterations(kRuns)->UseRealTime()->Unit(benchmark::kMillisecond);

// A paste over the whole memory: 16384 rows changed and one added and removed again, in one transaction, on the disk.
void PasteOf16385Rows(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString name = InFolder(folder, "paste.set");
    bool good = CreateSettingFile(name) && SaveSettingFile(name, {}, FullMemories());
    qint16 value = 0;
    for ([[maybe_unused]] auto _ : state) {
        ++value;
        RecordStore store;
        store.Open(name);
        RecordTable table(store, kMemory16k.table);
        StoreTransaction paste(store);
        std::vector<Record> records;
        table.Read(RecordOrder::Address, records);
        for (Record& record : records) {
            record.Value = static_cast<qint16>(record.Value + value);
            table.Change(record);
        }
        table.Add(16384, value);
        table.Remove(table.FindFirst(16384)->id);
        good = paste.Commit() && records.size() == 16384 && good;
    }
    if (!good) {
        state.SkipWithError("the paste failed");
    }
}
BENCHMARK(PasteOf16385Rows)->Iterations(kRuns)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
