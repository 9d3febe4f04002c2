#pragma once

#include <span>
#include <vector>

#include "recording/Recording.h"
#include "waveform/EditorTables.h"

// What becomes of an opened recording; each change is one step of the history, "open recording".

enum class RecordingUse { Paste, Memory, Signal };  // use 0 to 2 of the window `recording`

// Puts samples, as many as the buffer holds at most, into the copy buffer, where they count as copied from 0 on.
void TakeSamples(std::span<const qint16> samples, EditorState& editor);

// Writes a sample for each address into the whole memory table.
TableResult RecordToMemory(const EditorState& editor, EditorTables& tables, std::span<const qint16> samples);

// In place of all points of the signal: a point for each sample, from address 0 on.
TableResult RecordToSignal(const EditorState& editor, EditorTables& tables, std::span<const qint16> samples);

// A table that "Save as CSV..." has written, taken as it stands.

// Why these can't be used in this way, a sentence with the first one that is wrong; empty if they can.
QString RefuseAddressed(std::span<const recording::AddressedSample> samples, RecordingUse use, const MemorySize& size);

// How many different addresses they have.
std::size_t AddressesIn(std::span<const recording::AddressedSample> samples);

// In place of all records of a target: the samples in their order. None of them was refused.
TableResult ReplaceByAddressed(const EditorState& editor, EditorTables& tables, EditTarget target,
                               std::span<const recording::AddressedSample> samples);

// The values alone.
std::vector<qint16> ValuesOf(std::span<const recording::AddressedSample> samples);
