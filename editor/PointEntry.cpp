#include "editor/PointEntry.h"

#include <algorithm>
#include <utility>

#include "waveform/Samples.h"

namespace {

// A number as the fields show it: a blank stands where a minus would.
QString NumberText(int number) { return number < 0 ? QString::number(number) : u' ' + QString::number(number); }

// Corrects a field whose number is out of range, and leaves any other as it was typed.
void HoldField(EntryField* field, int lowest, int highest) {
    const double typed = ReadHeadNumber(field->text());
    const double held = std::clamp<double>(typed, lowest, highest);
    if (held != typed) {
        field->setText(NumberText(static_cast<int>(held)));
    }
}

QChar DigitOrMinus(QChar typed) { return (typed >= u'0' && typed <= u'9') || typed == u'-' ? typed : QChar(); }

}  // namespace

PointEntry::PointEntry(const EditorState& editor, QWidget* parent, Enter enter)
    : Text1{}, editor_(editor), enter_(std::move(enter)) {
    for (std::size_t i = 0; i < Text1.size(); ++i) {
        auto* const field = new EntryField(QStringLiteral("Text1_%1").arg(i), DigitOrMinus, parent);
        field->setText(QStringLiteral("0"));
        field->setAlignment(Qt::AlignRight);
        field->SetCommitGuard([] { return false; });  // only Enter counts
        Text1[i] = field;
    }
    Text1[0]->SetCommit([this] { EnterAddress(); });
    Text1[1]->SetCommit([this] { EnterPoint(); });
    Text1[0]->SetNext(Text1[1]);
    Text1[1]->SetNext(Text1[0]);
}

void PointEntry::EnterAddress() { HoldField(Text1[0], 0, editor_.Size->LastAdr); }

void PointEntry::EnterPoint() {
    HoldField(Text1[1], -kHighestSample, kHighestSample);
    for (EntryField* const field : Text1) {
        field->setText(field->text());  // what is stored is undone as a step of the editor, no longer as typing
    }
    enter_(ReadHeadNumber(Text1[0]->text()), ReadHeadNumber(Text1[1]->text()));
}
