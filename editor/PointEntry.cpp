#include "editor/PointEntry.h"

#include <algorithm>
#include <limits>

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

PointEntry::PointEntry(const EditorContext& context, QWidget* parent) : Text1{}, context_(context) {
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

void PointEntry::EnterAddress() { HoldField(Text1[0], 0, context_.front.Size().LastAdr); }

void PointEntry::EnterPoint() {
    HoldField(Text1[1], -kHighestSample, kHighestSample);
    using Address = std::numeric_limits<qint16>;
    const double address = ReadHeadNumber(Text1[0]->text());
    // No record has an address that a record can't hold.
    if (address >= Address::min() && address <= Address::max()) {
        const qint16 adr = Nearest(address);
        const qint16 value = Nearest(ReadHeadNumber(Text1[1]->text()));
        const bool memory = context_.front.Target() == EditTarget::Memory;
        const auto enter = [adr, value, memory](RecordTable& table) {
            if (const auto found = table.FindFirst(adr)) {
                memory ? table.Change({found->id, adr, value}) : table.Remove(found->id);
            } else {
                table.Add(adr, value);
            }
        };
        context_.tables.Change(context_.tables.DatabaseName, context_.front.Size(), enter, Telling::Silent);
    }
    context_.front.DrawEditor();
}
