// Save and load of a full setting file, beside the engine's own calls for the same rows, just as durable.

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <cstdio>
#include <string>

#include "Table.h"
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
    const Figure row = Compare(
        state, [&] { good = good && SaveSettingFile(CreateSettingFile(name), {}, memories); },
        [&] { good = good && SaveByEngineAlone(folder.path().toStdString(), rawName, memories); });
    Put(state, row, good);
}
BENCHMARK(Save)->Name("Save a setting file")->Iterations(kRuns);

void Load(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString name = InFolder(folder, "ours.set");
    ArbMemories memories = FullMemories();
    PanelState panel;
    bool good = SaveSettingFile(CreateSettingFile(name), panel, memories);
    const Figure row = Compare(
        state, [&] { good = good && LoadSettingFile(name, panel, memories) == LoadOutcome::Loaded; },
        [&] { good = good && LoadByEngineAlone(name.toStdString(), memories); });
    Put(state, row, good);
}
BENCHMARK(Load)->Name("Load a setting file")->Iterations(kRuns);

}  // namespace

int main(int argc, char** argv) { return RunTable(argc, argv); }
