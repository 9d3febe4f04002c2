#include "ctl/MemoryFile.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "recording/Recording.h"
#include "storage/SettingFile.h"
#include "storage/TableText.h"
#include "waveform/Samples.h"

namespace {

bool IsTableName(const QString& fileName) { return fileName.endsWith(u".csv", Qt::CaseInsensitive); }

// Both kinds are told by what they hold, not by their names.
bool IsDatabase(QFile& file) { return file.peek(15) == "SQLite format 3"; }

QString WhyNot(const recording::AddressedSample& sample, const MemorySize& size) {
    const QString place = QStringLiteral("line %1 has the %2 %3, and they go from %4 to %5").arg(sample.line);
    if (sample.address < 0 || sample.address > size.LastAdr) {
        return place.arg(u"address").arg(sample.address).arg(0).arg(size.LastAdr);
    }
    // The editor's pens write as far as its band reaches; the instrument holds such samples.
    return std::abs(sample.value) > kHighestClick
               ? place.arg(u"value").arg(sample.value).arg(-kHighestClick).arg(kHighestClick)
               : QString();
}

// A table for this memory has every address; the last sample of one counts.
bool TakeTable(const recording::Recording& table, const MemorySize& size, ArbMemories& memories, bool& hasLast,
               QString& fault) {
    std::vector<bool> found(static_cast<std::size_t>(size.LastAdr) + 1);
    for (const recording::AddressedSample& sample : table.addressed) {
        fault = WhyNot(sample, size);
        if (!fault.isEmpty()) {
            return false;
        }
        const auto address = static_cast<std::size_t>(sample.address);
        found[address] = true;
        size.samples(memories)[address] = static_cast<qint16>(sample.value);
    }
    hasLast = found.back();
    const auto inTable = found.begin() + size.lastTableAddress + 1;
    const auto missing = std::find(found.begin(), inTable, false);
    if (missing != inTable) {
        fault = QStringLiteral("it has no sample for the address %1: a memory needs 0 to %2")
                    .arg(missing - found.begin())
                    .arg(size.lastTableAddress);
    }
    return missing == inTable;
}

bool ReadTable(QFile& file, const MemorySize& size, ArbMemories& memories, bool& hasLast, QString& fault) {
    const recording::Outcome outcome = recording::Read(file);
    const bool isTable =
        outcome.recording && (!outcome.recording->addressed.empty() || !outcome.recording->addressedFault.isEmpty());
    if (!isTable) {
        fault = QStringLiteral(
            "it is neither a setting file nor a table with the title \"address,value\": make one of a recording with "
            "\"kl5276ctl wave --recording\"");
        return false;
    }
    fault = outcome.recording->addressedFault;
    return fault.isEmpty() && TakeTable(*outcome.recording, size, memories, hasLast, fault);
}

bool LoadWhole(const QString& fileName, PanelState& panel, ArbMemories& memories, QString& fault) {
    const LoadOutcome outcome = LoadSettingFile(fileName, panel, memories);
    fault = outcome == LoadOutcome::NotASettingFile ? QStringLiteral("it is not a setting file: name another one")
            : outcome == LoadOutcome::Failed
                ? QStringLiteral("it can't be read: check its permissions, or take an older copy")
                : QString();
    return outcome == LoadOutcome::Loaded;
}

QString NotWritten(const QString& fileName) {
    return QStringLiteral("%1 can't be written: check the folder, the permissions and the room on the disk")
        .arg(fileName);
}

}  // namespace

bool ReadMemoryFile(const QString& fileName, const MemorySize& size, ArbMemories& memories, bool& hasLast,
                    QString& fault) {
    QFile file(fileName);
    bool read = false;
    hasLast = false;
    if (!file.open(QIODevice::ReadOnly)) {
        fault = file.errorString();
    } else if (IsDatabase(file)) {
        PanelState panel;
        read = LoadWhole(fileName, panel, memories, fault);
        hasLast = size.LastAdr <= size.lastTableAddress;
    } else {
        read = ReadTable(file, size, memories, hasLast, fault);
    }
    fault = fileName + u": " + fault;
    return read;
}

bool ReadKept(const QString& fileName, PanelState& panel, ArbMemories& memories, QString& fault) {
    const bool kept = !QFileInfo::exists(fileName) || LoadWhole(fileName, panel, memories, fault);
    fault = fileName + u": " + fault;
    return kept;
}

bool CheckMemoryFile(const QString& fileName, QString& fault) {
    if (fileName.endsWith(u".set", Qt::CaseInsensitive)) {
        PanelState panel;
        ArbMemories memories;
        return ReadKept(fileName, panel, memories, fault);
    }
    fault = QStringLiteral("%1: a memory is written to a file that ends in .set or .csv").arg(fileName);
    return IsTableName(fileName);
}

bool CanWrite(const QString& fileName, QString& fault) {
    const QFileInfo named(fileName);
    const QFileInfo target(named.exists() ? named.canonicalFilePath() : named.absoluteFilePath());
    fault = NotWritten(fileName);
    return QFileInfo(target.absolutePath()).isWritable() &&
           (!target.exists() || (target.isFile() && target.isWritable()));
}

bool WriteMemoryFile(const QString& fileName, const MemorySize& size, const ArbMemories& memories, int points,
                     const PanelState& settings, QString& fault) {
    ArbMemories source = memories;
    const std::span<const qint16> samples = size.samples(source);
    bool written = false;
    if (IsTableName(fileName)) {
        std::vector<Record> records;
        records.reserve(static_cast<std::size_t>(points));
        for (int address = 0; address < points; ++address) {
            records.push_back({0, static_cast<qint16>(address), samples[static_cast<std::size_t>(address)]});
        }
        written = SaveTableText(fileName, records);
    } else {
        PanelState panel = settings;
        ArbMemories kept;
        if (!ReadKept(fileName, panel, kept, fault)) {
            return false;
        }
        std::ranges::copy(samples, size.samples(kept).begin());
        written = SaveSettingFile(CreateSettingFile(fileName), panel, kept);
    }
    fault = NotWritten(fileName);
    return written;
}
