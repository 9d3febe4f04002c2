#include <QFile>
#include <algorithm>

#include "ctl/Commands.h"
#include "ctl/MemoryFile.h"
#include "ctl/Values.h"
#include "recording/Recording.h"
#include "waveform/Formula.h"
#include "waveform/RecordedWave.h"

namespace {

using Samples = std::vector<qint16>;

int Addresses(const WaveRequest& request) { return request.size->lastTableAddress + 1; }

std::optional<Samples> ByFormula(Session& session, const WaveRequest& request) {
    FormulaValues result = EvaluateFormula(request.formula, Addresses(request), PlainNumbers());
    if (result.fault) {
        const QString place =
            result.fault->at < 0 ? QString() : QStringLiteral(", at character %1").arg(result.fault->at + 1);
        session.console.Error(u"the formula" + place + u": " + result.fault->text);
        return std::nullopt;
    }
    if (request.fullRange) {
        result.values = ScaledToFullRange(std::move(result.values));
    }
    if (const int cut = CountCut(result.values); cut > 0) {
        session.console.Note(
            QStringLiteral("%1 samples lie beyond full scale and are cut; --full-range fits them in").arg(cut));
    }
    return SamplesOf(result.values);
}

QString TitlesOf(const std::vector<const recording::Column*>& columns) {
    QStringList titles;
    for (const recording::Column* const column : columns) {
        titles += recording::NameOfColumn(column->number, column->name);
    }
    return titles.join(u", ");
}

const recording::Column* ChosenChannel(const recording::Recording& recording, const QString& channel, QString& fault) {
    const std::size_t block = recording.longest;
    std::vector<const recording::Column*> columns;
    if (channel.isEmpty() && block < recording.blocks.size()) {
        columns = recording.blocks[block].Channels();
        fault = columns.size() == 1 ? columns.front()->fault
                                    : QString(u"choose one of its channels with --channel: " + TitlesOf(columns));
    } else {
        columns = recording::FindColumns(recording, block, channel, &fault);
        fault = columns.size() > 1 ? QStringLiteral("a memory takes one channel") : fault;
    }
    return columns.size() == 1 && columns.front()->fault.isEmpty() ? columns.front() : nullptr;
}

// In the notation of "set".
void PrintReproduction(Session& session, const Reproduction& reproduction) {
    const auto print = [&session](const char* name, const std::optional<double>& value, Quantity quantity) {
        if (value) {
            PrintResult(session, QLatin1StringView(name) + u'=' + ValueText(*value, quantity, true));
        }
    };
    print("frequency", reproduction.frequency, Quantity::Frequency);
    print("level", reproduction.level, Quantity::Level);
    print("offset", reproduction.offset, Quantity::Voltage);
    for (const QString& remark : reproduction.remarks) {
        session.console.Note(remark);
    }
}

std::optional<Samples> ByRecording(Session& session, const WaveRequest& request) {
    QFile file(request.recording);
    if (!file.open(QIODevice::ReadOnly)) {
        session.console.Error(request.recording + u": " + file.errorString());
        return std::nullopt;
    }
    const bool byNumber =
        std::ranges::all_of(request.channel, [](QChar c) { return c.isDigit(); }) && !request.channel.isEmpty();
    const recording::Outcome outcome =
        recording::Read(file, {.byNumber = byNumber}, [&session](double) { return !session.Stopped(); });
    if (session.Stopped()) {
        return std::nullopt;
    }
    QString fault = outcome.fault;
    const recording::Column* const column =
        outcome.recording ? ChosenChannel(*outcome.recording, request.channel, fault) : nullptr;
    if (column == nullptr) {
        session.console.Error(request.recording + u": " + fault);
        return std::nullopt;
    }
    const RecordedWave wave = MakeWave(PartOf(*column, 0, column->values.size() - 1),
                                       static_cast<std::size_t>(Addresses(request)), request.scale);
    PrintReproduction(session, ReproductionOf(wave, column->unit, *request.size));
    return wave.samples;
}

}  // namespace

int MakeWaveFile(Session& session, const WaveRequest& request) {
    QString fault;
    if (!CheckMemoryFile(request.out, fault)) {
        return Refuse(session, fault);
    }
    const auto samples = request.recording.isEmpty() ? ByFormula(session, request) : ByRecording(session, request);
    if (!samples) {
        return session.Stopped() ? session.Failure() : static_cast<int>(kBadUsage);
    }
    ArbMemories memories;
    std::ranges::copy(*samples, request.size->samples(memories).begin());
    if (session.options().dryRun ||
        WriteMemoryFile(request.out, *request.size, memories, Addresses(request), PanelState{}, fault)) {
        return kDone;
    }
    session.console.Error(fault);
    return kFailed;
}
