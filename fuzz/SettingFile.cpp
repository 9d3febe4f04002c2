#include "storage/SettingFile.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>
#include <cmath>
#include <span>

#include "DescribedFile.h"
#include "Fuzz.h"

namespace {

struct Content {
    PanelState panel;
    ArbMemories memories;

    bool operator==(const Content&) const = default;
};

// Calls visit with the name and the field of each setting that a file keeps.
template <typename Visit>
void ForEachSetting(PanelState& p, Visit visit) {
    visit("mAmp", p.mAmp), visit("bmBereich", p.bmBereich), visit("mFreq", p.mFreq), visit("mOffset", p.mOffset);
    visit("tmOffset", p.tmOffset), visit("tmOut", p.tmOut), visit("bmWobbel", p.bmWobbel);
    visit("bmSignal", p.bmSignal), visit("bmAmpMod", p.bmAmpMod), visit("bmFMod", p.bmFMod);
    visit("bmMode", p.bmMode), visit("tmVPP", p.tmVPP), visit("bmAmDepth", p.bmAmDepth), visit("mcFreq", p.mcFreq);
    visit("mhFreq", p.mhFreq), visit("mPhasea", p.mPhasea), visit("mPhaseb", p.mPhaseb);
    visit("msWobbel", p.msWobbel), visit("meWobbel", p.meWobbel), visit("mtWobbel", p.mtWobbel);
}

void TakeIfItFits(double value, bool, double& field) { field = std::isfinite(value) ? value : field; }
void TakeIfItFits(double value, bool whole, quint8& field) {
    field = whole && value >= 0.0 && value <= 255.0 ? static_cast<quint8>(value) : field;
}
void TakeIfItFits(double value, bool whole, Truth& field) {
    field = whole && std::fabs(value) <= 1.0 ? ToTruth(value != 0.0) : field;
}

void SetBefore(double& field) { field = 77.5; }
void SetBefore(quint8& field) { field = 77; }
void SetBefore(Truth& field) { field = kFalse; }

// What the engine itself says that the file holds. A statement on a table or column that is not there throws.
class Expectation {
  public:
    explicit Expectation(const QString& name) : database_(name.toStdString()) {}

    bool HasSettings() { return Works("SELECT 1 FROM Settings"); }
    bool HasMemory(const char* table) { return Works(std::string("SELECT rowid, Adr, Value FROM ") + table); }

    bool IsCurrent() {
        return Works("SELECT Version FROM Settings") &&
               database_
                       .execAndGet(
                           "SELECT count(*) FROM (SELECT Version FROM Settings LIMIT 1) WHERE Version = 100 "
                           "AND typeof(Version) IN ('integer', 'real')")
                       .getInt() == 1;
    }

    void TakeSettings(PanelState& panel) {
        ForEachSetting(panel, [this](const char* name, auto& field) {
            const std::string query = "SELECT typeof(" + std::string(name) + "), " + name + " FROM Settings LIMIT 1";
            if (Works(query)) {
                SQLite::Statement row(database_, query);
                row.executeStep();
                const std::string type = row.getColumn(0);
                if (type == "integer" || type == "real") {
                    TakeIfItFits(row.getColumn(1).getDouble(), type == "integer", field);
                }
            }
        });
    }

    void TakeMemory(const char* table, std::span<qint16> memory) {
        SQLite::Statement row(database_, std::string("SELECT Adr, Value FROM ") + table +
                                             " WHERE typeof(Adr) = 'integer' AND typeof(Value) = 'integer' AND Adr "
                                             ">= 0 AND Adr < ? AND Value BETWEEN -32768 AND 32767 ORDER BY rowid");
        row.bind(1, static_cast<int64_t>(memory.size()));
        while (row.executeStep()) {
            memory[row.getColumn(0).getUInt()] = static_cast<qint16>(row.getColumn(1).getInt());
        }
    }

  private:
    bool Works(const std::string& query) { return database_.tryExec(query) == SQLite::OK; }

    SQLite::Database database_;
};

void RequireAsStored(const QString& name, LoadOutcome outcome, const Content& before, const Content& loaded) {
    Expectation file(name);
    const bool has4 = file.HasMemory("ARB4");
    const bool has16 = file.HasMemory("ARB16");
    Content expected = before;
    LoadOutcome judged = LoadOutcome::NotASettingFile;
    if (file.HasSettings() && (has4 || has16)) {
        judged = has4 && has16 ? LoadOutcome::Loaded : LoadOutcome::Failed;
        if (file.IsCurrent()) {
            file.TakeSettings(expected.panel);
        }
        if (has4) {
            file.TakeMemory("ARB4", expected.memories.ArbMemory4);
        }
        if (has16) {
            file.TakeMemory("ARB16", expected.memories.ArbMemory16);
        }
    }
    Require(outcome == judged, "the outcome tells what the file is");
    Require(loaded == expected, "what fits is loaded, all else stays");
}

// Of what was loaded, once more in a file.
void RequireRoundTrip(Content loaded) {
    static const QTemporaryDir kFolder;
    const QString name = kFolder.filePath(QStringLiteral("saved.set"));
    Require(SaveSettingFile(CreateSettingFile(name), loaded.panel, loaded.memories), "it can be saved");
    Content again;
    again.panel.tmIntRef = loaded.panel.tmIntRef;
    again.memories.ArbMemory4.back() = loaded.memories.ArbMemory4.back();
    again.memories.ArbMemory16.back() = loaded.memories.ArbMemory16.back();
    Require(LoadSettingFile(name, again.panel, again.memories) == LoadOutcome::Loaded, "what was saved can be loaded");
    Require(again == loaded, "and it is what was saved");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static DescribedFile file("f.set");
    file.Make(BytesOf(data, size));
    Content before;
    // Far from anything that a value could be cut down to.
    ForEachSetting(before.panel, [](const char*, auto& field) { SetBefore(field); });
    before.panel.tmIntRef = kFalse;
    before.memories.ArbMemory4.fill(77);
    before.memories.ArbMemory16.fill(-77);
    Content loaded = before;
    const LoadOutcome outcome = LoadSettingFile(file.Name(), loaded.panel, loaded.memories);
    file.RequireUntouched();
    Require(loaded.panel.tmIntRef == kFalse, "the reference is no part of a file");
    ForEachSetting(loaded.panel,
                   [](const char*, double setting) { Require(std::isfinite(setting), "settings are finite"); });
    const bool refused = outcome == LoadOutcome::NotASettingFile;
    Require(!refused || loaded == before, "a refused file changes nothing");
    if (!file.IsRaw()) {
        RequireAsStored(file.Name(), outcome, before, loaded);
    }
    // A save writes twenty thousand rows, so only some texts ask for it.
    if (!refused && BytesOf(data, size).trimmed().endsWith("save")) {
        RequireRoundTrip(loaded);
    }
    return 0;
}
