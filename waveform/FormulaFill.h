#pragma once

#include <optional>
#include <span>

#include "waveform/EditorTables.h"

// Filling a stretch of the memory with samples, as a formula gives them.

// Addresses from first to last.
struct Stretch {
    int first;
    int last;

    int Length() const { return last - first + 1; }
    bool operator==(const Stretch&) const = default;
};

// What a choice comes to in the memory of the current size, held to the addresses of its table: none if nothing of the
// last copied range lies there, or nothing was copied.
std::optional<Stretch> StretchOf(FillStretch which, const EditorState& editor);

// Writes the samples, one for each address of the stretch, into the memory table. Every record of an address takes its
// sample; an address without one gets a record. `step`: the name of the step in the history.
TableResult FillMemory(const EditorState& editor, EditorTables& tables, const Stretch& stretch,
                       std::span<const qint16> samples, const char* step = "fill by formula");
