#include "editor/Import.h"

#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <cstdlib>

#include "waveform/Samples.h"
#include "waveform/TraceReply.h"

namespace {

constexpr int kRepaintMs = 50;

// Lets the menu close and the hourglass show: the conversation that follows serves no events.
void ShowTheWait() {
    QEventLoop loop;
    QTimer::singleShot(kRepaintMs, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace

bool Import::Converse(const QString& request, QString& reply) {
    ziel_.SetLinkTopic(QStringLiteral("qd204e|dde"));
    ziel_.SetLinkItem(QStringLiteral("data"));
    const bool answered = ziel_.SetLinkMode(2) && ziel_.LinkExecute(request) && ziel_.LinkRequest();
    ziel_.SetLinkMode(0);
    reply = ziel_.Text();
    return answered;
}

bool Import::ReadDdeChannel(const QString& request) {
    EditorState& editor = context_.program.editor;
    context_.desktop.BusyOn();
    ShowTheWait();
    if (!editor.EditorOpen) {
        context_.desktop.BusyOff();
        return false;  // its window was closed meanwhile
    }
    QString reply;
    const bool DdeFailed = !Converse(request, reply) || !ReadTrace(reply, editor.CopyBuffer);
    context_.desktop.BusyOff();
    if (DdeFailed) {
        context_.desktop.MessageBox(QStringLiteral("DDE-Error (Is QD204 running?)"),
                                    QStringLiteral("DDE comunication"));
        return false;
    }
    editor.CopyEnd = kTraceSamples;
    editor.CopyStart = 0;
    return true;
}

void Import::ReadAndPaste(Channel read) {
    if ((this->*read)()) {
        context_.front.Select(Pen::Paste);
    }
}

void Import::MultipleToMemory(Channel read) {
    if (!(this->*read)()) {
        return;
    }
    const auto& buffer = context_.program.editor.CopyBuffer;
    const auto repeat = [&buffer](RecordTable& table) {
        std::vector<Record> records;
        table.Read(RecordOrder::Insertion, records);
        for (std::size_t counter = 0; counter < records.size(); ++counter) {
            table.Change({records[counter].id, records[counter].Adr, buffer[counter % kTraceSamples + 1]});
        }
    };
    context_.desktop.BusyOn();
    if (context_.tables.Change(context_.program.SettingFileName.Name(), context_.front.Size(), repeat, Telling::Box)) {
        mode_.EditMemory();
        context_.program.editor.EditorRedrawPending = true;
    }
    context_.desktop.BusyOff();
}

// In place of all points of the current size. A failure is silent and changes nothing.
void Import::ReplacePoints(const std::vector<Record>& points) {
    const bool replaced = context_.tables.Change(
        context_.program.ConstructionFileName.Name(), context_.front.Size(),
        [&points](RecordTable& table) { EditorTables::Replace(table, points); }, Telling::Silent);
    if (replaced) {
        mode_.EditSignal();
        context_.program.editor.EditorRedrawPending = true;
    }
    context_.desktop.BusyOff();
}

void Import::FitToSignal(Channel read) {
    if (!(this->*read)() || !mode_.EnsureConstruction()) {
        context_.desktop.BusyOff();
        return;
    }
    const auto& buffer = context_.program.editor.CopyBuffer;
    const int last = context_.front.Size().lastTableAddress;
    const int step = (last + 1) / kTraceSamples;
    std::vector<Record> points;
    for (int i = 1; i <= kTraceSamples; ++i) {
        points.push_back({0, static_cast<qint16>((i - 1) * step), buffer[static_cast<std::size_t>(i)]});
    }
    points.push_back({0, static_cast<qint16>(last), buffer[kTraceSamples]});
    ReplacePoints(points);
}

void Import::opFit_Click() {
    const EditorState& editor = context_.program.editor;
    const int span = std::min(std::abs(editor.CopyEnd - editor.CopyStart), kMemory16k.LastAdr);
    if (span != 0 && mode_.EnsureConstruction()) {
        const double top = context_.front.Size().LastAdr;
        std::vector<Record> points;
        for (int i = 0; i <= span; ++i) {
            points.push_back({0, Nearest(top / span * i), editor.CopyBuffer[static_cast<std::size_t>(i)]});
        }
        ReplacePoints(points);
    }
    context_.desktop.BusyOff();
    context_.front.Select(Pen::Copy);
}
