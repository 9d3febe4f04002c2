#include "editor/Import.h"

#include <QEventLoop>
#include <QTimer>

#include "waveform/Choices.h"
#include "waveform/CopyBuffer.h"

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
    waiting_ = true;
    ShowTheWait();
    waiting_ = false;
    if (!editor.EditorOpen) {
        context_.desktop.BusyOff();
        return false;  // its window was closed meanwhile
    }
    QString reply;
    const bool DdeFailed = !Converse(request, reply) || !TakeTrace(reply, editor);
    context_.desktop.BusyOff();
    if (DdeFailed) {
        context_.desktop.MessageBox(QStringLiteral("DDE-Error (Is QD204 running?)"),
                                    QStringLiteral("DDE comunication"));
        return false;
    }
    return true;
}

void Import::ReadAndPaste(Channel channel) {
    if (Read(channel)) {
        TakeUp(Pen::Paste, context_.program.editor);
    }
}

void Import::MultipleToMemory(Channel channel) {
    if (!Read(channel)) {
        return;
    }
    EditorState& editor = context_.program.editor;
    context_.desktop.BusyOn();
    if (faults_.Tell(RepeatTrace(editor, context_.tables), Telling::Box)) {
        WorkOn(EditTarget::Memory, editor, context_.tables);
        editor.EditorRedrawPending = true;
    }
    context_.desktop.BusyOff();
}

// A failure is silent and has changed nothing.
void Import::ShowSignal(const TableResult& points) {
    if (faults_.Tell(points, Telling::Silent)) {
        WorkOn(EditTarget::Signal, context_.program.editor, context_.tables);
        context_.program.editor.EditorRedrawPending = true;
    }
}

void Import::FitToSignal(Channel channel) {
    if (Read(channel) && mode_.EnsureConstruction()) {
        ShowSignal(FitTrace(context_.program.editor, context_.tables));
    }
    context_.desktop.BusyOff();
}

void Import::opFit_Click() {
    EditorState& editor = context_.program.editor;
    if (CopiedDistance(editor) != 0 && mode_.EnsureConstruction()) {
        ShowSignal(FitCopied(editor, context_.tables));
    }
    context_.desktop.BusyOff();
    TakeUp(Pen::Copy, editor);
}
