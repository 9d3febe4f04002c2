#pragma once

#include <vector>

#include "editor/EditMode.h"
#include "editor/EditorContext.h"
#include "platform/DdeLink.h"

// A trace of the sibling program QD204, from either of its two channels, and the ways in which the editor uses it. Its
// 2048 samples stand in the copy buffer at 1 to 2048.
class Import {
  public:
    // `ziel`: the client end of the conversation.
    Import(const EditorContext& context, EditMode& mode, DdeLink& ziel) : context_(context), mode_(mode), ziel_(ziel) {}

    // These read the trace into the copy buffer; a failure is told in one message box, and false. They wait as long as
    // QD204 does.
    bool ReadDdeChannelA() { return ReadDdeChannel(QStringLiteral("getbincha")); }
    bool ReadDdeChannelB() { return ReadDdeChannel(QStringLiteral("getbinchb")); }
    using Channel = bool (Import::*)();

    // Ready for the Paste pen.
    void ReadAndPaste(Channel read);
    // Over and over through the whole memory table.
    void MultipleToMemory(Channel read);
    // As the construction points of the signal.
    void FitToSignal(Channel read);

    // The button opFit: what was copied or read becomes the points of the signal, stretched over the whole axis.
    void opFit_Click();

  private:
    bool ReadDdeChannel(const QString& request);
    bool Converse(const QString& request, QString& reply);
    void ReplacePoints(const std::vector<Record>& points);

    EditorContext context_;
    EditMode& mode_;
    DdeLink& ziel_;
};
