#include "storage/SettingFile.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <array>
#include <cmath>
#include <limits>
#include <span>
#include <string>
#include <variant>

#include "core/MemorySize.h"
#include "storage/MemoryTable.h"
#include "storage/RecordStore.h"

namespace {

constexpr int kVersion = 100;

constexpr char kDouble[] = "DOUBLE";
constexpr char kByte[] = "TINYINT";
constexpr char kBoolean[] = "BOOLEAN";

using SettingField = std::variant<std::monostate, double PanelState::*, quint8 PanelState::*, Truth PanelState::*>;

struct SettingColumn {
    const char* name;
    const char* type;
    SettingField field;  // none: not of PanelState, or not kept in a file
};

constexpr std::array<SettingColumn, 22> kSettingColumns{{
    {"mAmp", kDouble, &PanelState::mAmp},
    {"bmBereich", kByte, &PanelState::bmBereich},
    {"mFreq", kDouble, &PanelState::mFreq},
    {"mOffset", kDouble, &PanelState::mOffset},
    {"tmOffset", kBoolean, &PanelState::tmOffset},
    {"tmOut", kBoolean, &PanelState::tmOut},
    {"tmIntRef", kBoolean, {}},
    {"bmWobbel", kByte, &PanelState::bmWobbel},
    {"bmSignal", kByte, &PanelState::bmSignal},
    {"bmAmpMod", kByte, &PanelState::bmAmpMod},
    {"bmFMod", kByte, &PanelState::bmFMod},
    {"bmMode", kByte, &PanelState::bmMode},
    {"tmVPP", kBoolean, &PanelState::tmVPP},
    {"bmAmDepth", kByte, &PanelState::bmAmDepth},
    {"mcFreq", kDouble, &PanelState::mcFreq},
    {"mhFreq", kDouble, &PanelState::mhFreq},
    {"mPhasea", kDouble, &PanelState::mPhasea},
    {"mPhaseb", kDouble, &PanelState::mPhaseb},
    {"msWobbel", kDouble, &PanelState::msWobbel},
    {"meWobbel", kDouble, &PanelState::meWobbel},
    {"mtWobbel", kDouble, &PanelState::mtWobbel},
    {"Version", kByte, {}},
}};
constexpr int kVersionColumn = static_cast<int>(kSettingColumns.size()) - 1;

void CreateTables(SQLite::Database& database) {
    for (const char* const table : {"ARB_CON4", "ARB_CON16", kMemory4k.table, kMemory16k.table}) {
        CreateMemoryTable(database, table);
    }
    std::string columns;
    for (const SettingColumn& column : kSettingColumns) {
        columns += (columns.empty() ? "" : ", ") + std::string(column.name) + ' ' + column.type;
    }
    database.exec("CREATE TABLE Settings (" + columns + ")");
}

void WriteSamples(SQLite::Database& database, const MemorySize& size, std::span<const qint16> samples) {
    MemoryWriter writer(database, size.table);
    for (int adr = 0; adr <= size.lastTableAddress; ++adr) {
        writer.Add(adr, samples[static_cast<std::size_t>(adr)]);
    }
}

// Binds what a field holds to parameter index; a column without a field stays empty.
class BindField {
  public:
    BindField(SQLite::Statement& insert, int index, const PanelState& panel)
        : insert_(insert), index_(index), panel_(panel) {}

    void operator()(std::monostate) const {}
    void operator()(double PanelState::*field) const { insert_.bind(index_, panel_.*field); }
    void operator()(quint8 PanelState::*field) const { insert_.bind(index_, int32_t{panel_.*field}); }
    void operator()(Truth PanelState::*field) const { insert_.bind(index_, int32_t{panel_.*field}); }

  private:
    SQLite::Statement& insert_;
    int index_;
    const PanelState& panel_;
};

void WriteSettings(SQLite::Database& database, const PanelState& panel) {
    std::string values = "?";
    for (std::size_t column = 1; column < kSettingColumns.size(); ++column) {
        values += ", ?";
    }
    SQLite::Statement insert(database, "INSERT INTO Settings VALUES (" + values + ")");
    int index = 1;
    for (const SettingColumn& column : kSettingColumns) {
        std::visit(BindField(insert, index++, panel), column.field);
    }
    insert.bind(kVersionColumn + 1, kVersion);
    insert.exec();
}

bool IsNumber(const SQLite::Column& stored) { return stored.isFloat() || stored.isInteger(); }

// Takes one stored value into a field if it fits there.
class TakeField {
  public:
    TakeField(const SQLite::Column& stored, PanelState& panel) : stored_(stored), panel_(panel) {}

    void operator()(std::monostate) const {}
    void operator()(double PanelState::*field) const {
        const double value = stored_.getDouble();
        if (IsNumber(stored_) && std::isfinite(value)) {
            panel_.*field = value;
        }
    }
    void operator()(quint8 PanelState::*field) const {
        const int64_t value = stored_.getInt64();
        if (stored_.isInteger() && value >= 0 && value <= std::numeric_limits<quint8>::max()) {
            panel_.*field = static_cast<quint8>(value);
        }
    }
    // The engine's own true is 1, the panel's is -1: a file made by hand may hold either.
    void operator()(Truth PanelState::*field) const {
        const int64_t value = stored_.getInt64();
        if (stored_.isInteger() && value >= -1 && value <= 1) {
            panel_.*field = ToTruth(value != 0);
        }
    }

  private:
    const SQLite::Column& stored_;
    PanelState& panel_;
};

// Position in the row of the column of this name, in upper or lower case; -1 if there is none.
int FindColumn(const SQLite::Statement& row, const char* name) {
    for (int position = 0; position < row.getColumnCount(); ++position) {
        if (qstricmp(row.getColumnName(position), name) == 0) {
            return position;
        }
    }
    return -1;
}

// Writes panel only if the first row has this version's mark.
void ReadSettings(const SQLite::Database& database, PanelState& panel) {
    SQLite::Statement row(database, "select * from settings");
    const int mark = FindColumn(row, kSettingColumns[kVersionColumn].name);
    if (mark < 0 || !row.executeStep() || !IsNumber(row.getColumn(mark)) ||
        row.getColumn(mark).getDouble() != kVersion) {
        return;
    }
    for (const SettingColumn& column : kSettingColumns) {
        const int position = FindColumn(row, column.name);
        if (position >= 0) {
            std::visit(TakeField(row.getColumn(position), panel), column.field);
        }
    }
}

void ReadSamples(RecordTable& table, std::span<qint16> samples) {
    table.Walk(RecordOrder::Insertion, [&](qint16 adr, qint16 value) {
        if (adr >= 0 && static_cast<std::size_t>(adr) < samples.size()) {
            samples[static_cast<std::size_t>(adr)] = value;
        }
    });
}

LoadOutcome OutcomeOfRefusal(StoreOutcome refusal) {
    return refusal == StoreOutcome::NotADatabase ? LoadOutcome::NotASettingFile : LoadOutcome::Failed;
}

}  // namespace

NewFile CreateSettingFile(const QString& fileName) { return {fileName, CreateTables}; }

bool SaveSettingFile(NewFile file, const PanelState& panel, const ArbMemories& memories) {
    return file.Finish([&](SQLite::Database& database) {
        WriteSamples(database, kMemory4k, memories.ArbMemory4);
        WriteSamples(database, kMemory16k, memories.ArbMemory16);
        WriteSettings(database, panel);
    });
}

LoadOutcome LoadSettingFile(const QString& fileName, PanelState& panel, ArbMemories& memories) {
    RecordStore store;
    if (store.Open(fileName) != StoreOutcome::Done) {
        return OutcomeOfRefusal(store.Outcome());
    }
    const StoreTransaction picture(store, StoreTransaction::Kind::Read);
    if (!picture.Begun()) {
        return OutcomeOfRefusal(store.Outcome());
    }
    RecordTable memory4(store, kMemory4k.table);
    RecordTable memory16(store, kMemory16k.table);
    const bool hasSettings = store.Engine()->tryExec("select 1 from settings limit 0") == SQLite::OK;
    const bool hasMemory4 = memory4.Usable();
    const bool hasMemory16 = memory16.Usable();
    // A file of this kind that has lost one memory still gives the rest.
    if (!hasSettings || (!hasMemory4 && !hasMemory16)) {
        return LoadOutcome::NotASettingFile;
    }
    store.Attempt([&] { ReadSettings(*store.Engine(), panel); });
    ReadSamples(memory4, kMemory4k.samples(memories));
    ReadSamples(memory16, kMemory16k.samples(memories));
    return store.Outcome() == StoreOutcome::Done ? LoadOutcome::Loaded : LoadOutcome::Failed;
}
