#include "editor/Generation.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>

#include "waveform/LinearMemory.h"

void Generation::mnudelete_Click() {
    if (!context_.desktop.Question(QStringLiteral("Are you sure to set all Values to zero?"),
                                   QStringLiteral("Arbitrary Editor"))) {
        return;
    }
    context_.desktop.BusyOn();
    const MemorySize& size = context_.front.Size();
    const bool memory = context_.front.Target() == EditTarget::Memory;
    const auto clear = [&size, memory](RecordTable& table) {
        if (!memory) {
            const std::array<Record, 2> flat{Record{0, 0, 0}, Record{0, static_cast<qint16>(size.LastAdr), 0}};
            EditorTables::Replace(table, flat);
            return;
        }
        std::vector<Record> records;
        table.Read(RecordOrder::Insertion, records);
        for (const Record& record : records) {
            table.Change({record.id, record.Adr, 0});
        }
    };
    context_.tables.Change(mode_.ShownFile().Name(), size, clear, Telling::Box);
    context_.front.DrawEditor();
    context_.desktop.BusyOff();
}

void Generation::mnulinint_Click() {
    context_.desktop.BusyOn();
    // The array takes the new samples only if the file does.
    const std::span<qint16> memory = context_.front.Size().samples(context_.program.memories);
    std::vector<qint16> samples(memory.begin(), memory.end());
    if (Interpolate(samples) && WriteMemoryTable(samples)) {
        std::copy(samples.begin(), samples.end(), memory.begin());
        mode_.EditMemory();
        context_.front.DrawEditor();
        QCoreApplication::processEvents();
    }
    context_.desktop.BusyOff();
}

// False if there is nothing to interpolate.
bool Generation::Interpolate(std::span<qint16> samples) {
    const MemorySize& size = context_.front.Size();
    if (context_.front.SplineSelected()) {
        // As the last redraw left it.
        std::copy_n(context_.program.editor.ArbSignal.begin(), size.LastAdr + 1, samples.begin());
        return true;
    }
    std::vector<Record> points;
    if (!context_.tables.Read(context_.tables.DatabaseName, size, points, Telling::Box)) {
        return false;
    }
    GenerateLinearMemory(points, samples.first(static_cast<std::size_t>(size.LastAdr) + 1));
    return !points.empty();
}

bool Generation::WriteMemoryTable(std::span<const qint16> samples) {
    const MemorySize& size = context_.front.Size();
    std::vector<Record> records;
    for (int a = 0; a <= size.lastTableAddress; ++a) {
        records.push_back({0, static_cast<qint16>(a), samples[static_cast<std::size_t>(a)]});
    }
    return context_.tables.Change(
        context_.program.SettingFileName.Name(), size,
        [&records](RecordTable& table) { EditorTables::Replace(table, records); }, Telling::Box);
}
