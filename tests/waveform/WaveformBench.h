#pragma once

#include <QTemporaryDir>
#include <numeric>

#include "core/ProgramState.h"
#include "storage/ConstructionFile.h"
#include "storage/SettingFile.h"
#include "support/DatabaseHands.h"
#include "support/PrintQt.h"
#include "waveform/Choices.h"
#include "waveform/CopyBuffer.h"
#include "waveform/Entry.h"
#include "waveform/FormulaFill.h"
#include "waveform/Generation.h"
#include "waveform/PenDrags.h"
#include "waveform/Pens.h"
#include "waveform/RecordingFill.h"

// The operations on real files, without a form; what each writes is tested with the form that runs it.
struct WaveformBench : ::testing::Test {
    WaveformBench() {
        program.SettingFileName.Set(set);
        program.ConstructionFileName.Set(con);
        EXPECT_TRUE(SaveSettingFile(CreateSettingFile(set), program.panel, program.memories));
        EXPECT_TRUE(SaveConstructionFile(CreateConstructionFile(con)));
        BeginEditing(editor);
        WorkOn(EditTarget::Memory, editor, tables);
        editor.CopyBuffer.fill(7);
    }

    TableResult Press(Pen pen, float x) {
        TakeUp(pen, editor);
        return PressPen(editor, tables, x, 50);
    }
    TableResult Paste(float at) {
        editor.CopyEnd = 10;
        PasteStep(editor, at);
        return EndPaste(editor, tables);
    }
    TableResult Fit(qint16 length) {
        editor.CopyEnd = length;
        return FitCopied(editor, tables);
    }

    ProgramState program;
    EditorState& editor = program.editor;
    QTemporaryDir folder;
    const QString set = folder.filePath(QStringLiteral("a.set"));
    const QString con = folder.filePath(QStringLiteral("a.con"));
    EditorTables tables{program.SettingFileName, program.ConstructionFileName, program.memories};

    const std::vector<qint16> ramp = [] {
        std::vector<qint16> samples(4096);
        std::iota(samples.begin(), samples.end(), qint16{1});
        return samples;
    }();
    const std::vector<recording::AddressedSample> table = [] {
        std::vector<recording::AddressedSample> samples(4096);
        std::ranges::generate(samples, [i = 0]() mutable { return recording::AddressedSample{i, i++ % 7, 2}; });
        return samples;
    }();

    // Each that works on the address 1503, and whether it does so in the construction file.
    const std::vector<std::pair<std::function<TableResult()>, bool>> all{
        {[this] { return Press(Pen::Draw, 1500).changed ? TableResult() : Press(Pen::Draw, 1510); }, false},
        {[this] { return Press(Pen::Delete, 1503); }, false},
        {[this] { return Paste(1500); }, false},
        {[this] { return EnterPoint(editor, tables, 1503, 9); }, false},
        {[this] { return ClearTable(editor, tables); }, false},
        {[this] { return GenerateMemory(editor, tables, program.memories); }, false},
        {[this] { return RepeatTrace(editor, tables); }, false},
        {[this] {
             return FillMemory(editor, tables, {1502, 1504}, std::vector<qint16>{5, 6, 7});
         },
         false},
        {[this] { return RecordToMemory(editor, tables, ramp); }, false},
        {[this] { return ReplaceByAddressed(editor, tables, EditTarget::Memory, table); }, false},
        {[this] { return FitTrace(editor, tables); }, true},
        {[this] { return RecordToSignal(editor, tables, ramp); }, true},
        {[this] { return ReplaceByAddressed(editor, tables, EditTarget::Signal, table); }, true},
        {[this] { return Fit(4096); }, true}};
};
