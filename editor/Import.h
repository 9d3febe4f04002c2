#pragma once

#include "editor/EditMode.h"
#include "editor/StoreFaults.h"
#include "platform/DdeLink.h"

// A trace of the sibling program QD204, from either of its two channels, and the ways in which the editor uses it. Its
// 2048 samples stand in the copy buffer at 1 to 2048.
class Import {
  public:
    enum class Channel { A, B };

    // `ziel`: the client end of the conversation.
    Import(const EditorContext& context, EditMode& mode, StoreFaults& faults, DdeLink& ziel)
        : context_(context), mode_(mode), faults_(faults), ziel_(ziel) {}

    // True while a menu closes before a read. The form may be closed then, but must live on: the read goes on in it.
    bool Waiting() const { return waiting_; }

    // Ready for the Paste pen.
    void ReadAndPaste(Channel channel);
    // Over and over through the whole memory table.
    void MultipleToMemory(Channel channel);
    // As the construction points of the signal.
    void FitToSignal(Channel channel);

    // The button opFit: what was copied or read becomes the points of the signal, stretched over the whole axis.
    void opFit_Click();

  private:
    // These read the trace into the copy buffer; a failure is told in one message box, and false. They wait as long as
    // QD204 does.
    bool ReadDdeChannelA() { return ReadDdeChannel(QStringLiteral("getbincha")); }
    bool ReadDdeChannelB() { return ReadDdeChannel(QStringLiteral("getbinchb")); }
    bool Read(Channel channel) { return channel == Channel::A ? ReadDdeChannelA() : ReadDdeChannelB(); }
    bool ReadDdeChannel(const QString& request);
    bool Converse(const QString& request, QString& reply);
    void ShowSignal(const TableResult& points);

    EditorContext context_;
    EditMode& mode_;
    StoreFaults& faults_;
    DdeLink& ziel_;
    bool waiting_ = false;
};
