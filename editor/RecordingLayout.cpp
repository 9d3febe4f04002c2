// The controls of the window `recording`, and how they stand.

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QScreen>
#include <QVBoxLayout>

#include "editor/RecordingWindow.h"
#include "widgets/Controls.h"
#include "widgets/FollowFont.h"
#include "widgets/Grid.h"

namespace {

constexpr QSize kOpeningSize(860, 480);

QComboBox* MakeChoice(const QString& name, const QString& accessible,
                      std::initializer_list<std::pair<const char*, char>> values, QWidget* parent) {
    auto* const choice = Named(new QComboBox(parent), name, accessible);
    choice->addItem(QStringLiteral("automatic"));
    for (const auto& [caption, value] : values) {
        choice->addItem(QString::fromLatin1(caption), QChar::fromLatin1(value));
    }
    return choice;
}

QLineEdit* MakeCopied(const char* name, const char* accessible, QWidget* parent) {
    auto* const field = Named(new QLineEdit(parent), QString::fromLatin1(name), QString::fromLatin1(accessible));
    field->setReadOnly(true);
    return field;
}

}  // namespace

void RecordingWindow::MakeControls() {
    file = MakeCopied("file", "File", this);
    file->setText(recordingName_);
    separator =
        MakeChoice(QStringLiteral("separator"), QStringLiteral("Separator of the columns"),
                   {{"tab", '\t'}, {"semicolon ;", ';'}, {"comma ,", ','}, {"bar |", '|'}, {"blanks", ' '}}, this);
    decimal = MakeChoice(QStringLiteral("decimal"), QStringLiteral("Decimal mark of the numbers"),
                         {{"point .", '.'}, {"comma ,", ','}}, this);
    block = Named(new QComboBox(this), QStringLiteral("block"), QStringLiteral("Block of rows in the file"));
    block->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    blockTitle = MakeLabel(QStringLiteral("blockTitle"), QStringLiteral("&Block"), this, block);
    asrecording = Named(new QCheckBox(QStringLiteral("Ta&ke it as a recording all the same"), this),
                        QStringLiteral("asrecording"), QStringLiteral("Take it as a recording all the same"));
    found = MakeLabel(QStringLiteral("found"), QString(), this);
    progress = Named(new QProgressBar(this), QStringLiteral("progress"), QStringLiteral("Reading the file"));
    progress->hide();
    channels = Named(new ChannelList(context_.program.numbers, this), QStringLiteral("channels"),
                     QStringLiteral("Channels of the recording"));
    preview = Named(new RecordingPreview(this), QStringLiteral("preview"),
                    QStringLiteral("The chosen rows of the channel; a drag chooses a part of them"));
    preview->setToolTip(QStringLiteral("Drag to take a part"));
    first = Named(new QSpinBox(this), QStringLiteral("first"), QStringLiteral("From row"));
    last = Named(new QSpinBox(this), QStringLiteral("last"), QStringLiteral("To row"));
    whole = Named(new QPushButton(QStringLiteral("&Whole"), this), QStringLiteral("whole"),
                  QStringLiteral("Take the whole recording"));
    whole->setAutoDefault(false);
    cbok = Named(new QPushButton(QStringLiteral("OK"), this), QStringLiteral("cbok"));
    cbok->setDefault(true);
    cbcancel = Named(new QPushButton(QStringLiteral("Cancel"), this), QStringLiteral("cbcancel"));
}

void RecordingWindow::MakeChoices() {
    use = std::make_unique<OptionGroup>(
        QStringLiteral("use"),
        QStringList{QStringLiteral("Ready to paste"), QStringLiteral("Over the whole memory"),
                    QStringLiteral("As points of the signal")},
        this);
    use->SetAccessibleName(QStringLiteral("What becomes of it"));
    use->Show(static_cast<int>(target_ == EditTarget::Memory ? RecordingUse::Memory : RecordingUse::Signal));
    addresses = Named(new QSpinBox(this), QStringLiteral("addresses"), QStringLiteral("Number of addresses to paste"));
    addresses->setRange(2, size_.lastTableAddress + 1);
    addresses->setValue(addresses->maximum());
    scale = std::make_unique<OptionGroup>(QStringLiteral("scale"),
                                          QStringList{QStringLiteral("Lowest to highest over the full range"),
                                                      QStringLiteral("Lowest to highest over \u00b11500, as a trace"),
                                                      QStringLiteral("By volts: 0 V is 0")},
                                          this);
    scale->SetAccessibleName(QStringLiteral("Scale"));
    scale->Show(static_cast<int>(state_.RecordingScale));
}

void RecordingWindow::MakeResult() {
    frequency = MakeCopied("frequency", "Frequency that reproduces the recording", this);
    level = MakeCopied("level", "Level that reproduces the recording, Vpp", this);
    offset = MakeCopied("offset", "Offset that reproduces the recording, V", this);
    for (QLineEdit* const field : {frequency, level, offset}) {
        KeepRoomFor(field, QStringLiteral("000.0000000000"), kGap);  // the longest of them, in MHz
    }
    frequencyUnit = MakeLabel(QStringLiteral("frequencyUnit"), QString(), this);
    KeepRoomFor(frequencyUnit, QStringLiteral("MHz "));
    remark = MakeLabel(QStringLiteral("remark"), QString(), this);
}

void RecordingWindow::Arrange() {
    for (QLabel* const text : {found, remark}) {
        LetWrap(text);
        text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    auto* const buttons = new QDialogButtonBox(this);
    buttons->addButton(cbok, QDialogButtonBox::AcceptRole);
    buttons->addButton(cbcancel, QDialogButtonBox::RejectRole);
    auto* const below = new QHBoxLayout;
    below->addWidget(remark, 1);
    below->addWidget(buttons, 0, Qt::AlignBottom);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(ArrangeFile());
    column->addWidget(found);
    column->addWidget(progress);
    column->addWidget(asrecording);
    column->addLayout(ArrangeChannels(), 1);
    column->addLayout(ArrangeChoices());
    column->addLayout(below);
    OrderTabs();
    resize(kOpeningSize.boundedTo(screen()->availableSize() * 0.9));  // with its frame on a small screen too
}

QLayout* RecordingWindow::ArrangeFile() {
    auto* const line = new QHBoxLayout;
    line->addWidget(MakeLabel(QStringLiteral("fileTitle"), QStringLiteral("F&ile"), this, file));
    line->addWidget(file, 1);
    line->addWidget(MakeLabel(QStringLiteral("separatorTitle"), QStringLiteral("Se&parator"), this, separator));
    line->addWidget(separator);
    line->addWidget(MakeLabel(QStringLiteral("decimalTitle"), QStringLiteral("&Decimal mark"), this, decimal));
    line->addWidget(decimal);
    return line;
}

// What the file holds at the left, what of it is taken at the right.
QLayout* RecordingWindow::ArrangeChannels() {
    auto* const blockLine = new QHBoxLayout;
    blockLine->addWidget(blockTitle);
    blockLine->addWidget(block, 1);
    auto* const left = new QVBoxLayout;
    left->addLayout(blockLine);
    left->addWidget(MakeLabel(QStringLiteral("channelsTitle"), QStringLiteral("&Channels"), this, channels));
    left->addWidget(channels, 1);
    auto* const right = new QVBoxLayout;
    right->addWidget(preview, 1);
    right->addLayout(ArrangeStretch());
    auto* const line = new QHBoxLayout;
    line->addLayout(left, 1);
    line->addLayout(right, 1);
    return line;
}

QLayout* RecordingWindow::ArrangeStretch() {
    stretch = new QWidget(this);
    auto* const line = new QHBoxLayout(stretch);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(MakeLabel(QStringLiteral("firstTitle"), QStringLiteral("&From row"), stretch, first));
    line->addWidget(first);
    line->addWidget(MakeLabel(QStringLiteral("lastTitle"), QStringLiteral("&to"), stretch, last));
    line->addWidget(last);
    line->addWidget(whole);
    line->addStretch(1);
    auto* const around = new QVBoxLayout;
    around->addWidget(stretch);
    return around;
}

QLayout* RecordingWindow::ArrangeChoices() {
    auto* const uses = new QGroupBox(QStringLiteral("What beco&mes of it"), this);
    auto* const usesColumn = new QVBoxLayout(uses);
    for (QAbstractButton* const option : use->Options()) {
        usesColumn->addWidget(option);
    }
    auto* const part = new QHBoxLayout;
    part->addWidget(
        MakeLabel(QStringLiteral("addressesTitle"), QStringLiteral("Addresses to p&aste"), uses, addresses));
    part->addWidget(addresses, 1);
    usesColumn->insertLayout(1, part);
    auto* const scales = new QGroupBox(QStringLiteral("&Scale"), this);
    scale->AddTo(new QVBoxLayout(scales));
    auto* const result = new QGroupBox(QStringLiteral("To reproduce it, set"), this);
    auto* const grid = new QGridLayout(result);
    const std::tuple<const char*, QLineEdit*, QLabel*> rows[] = {
        {"Fre&quency", frequency, frequencyUnit},
        {"Le&vel", level, MakeLabel(QStringLiteral("levelUnit"), QStringLiteral("Vpp"), this)},
        {"&Offset", offset, MakeLabel(QStringLiteral("offsetUnit"), QStringLiteral("V"), this)}};
    for (int row = 0; const auto& [caption, field, unit] : rows) {
        grid->addWidget(MakeLabel(field->objectName() + u"Title", QString::fromLatin1(caption), this, field), row, 0);
        grid->addWidget(field, row, 1);
        grid->addWidget(unit, row++, 2);
    }
    auto* const line = new QHBoxLayout;
    line->addWidget(uses, 2);
    line->addWidget(scales, 3);
    line->addWidget(result, 2);
    return line;
}

void RecordingWindow::OrderTabs() {
    QWidget* former = file;
    const auto follow = [&former](QWidget* next) {
        setTabOrder(former, next);
        former = next;
    };
    for (QWidget* const next :
         std::initializer_list<QWidget*>{separator, decimal, asrecording, block, channels, preview, first, last, whole,
                                         use->Option(0), addresses, use->Option(1), use->Option(2)}) {
        follow(next);
    }
    for (QAbstractButton* const option : scale->Options()) {
        follow(option);
    }
    for (QWidget* const next : std::initializer_list<QWidget*>{frequency, level, offset, cbok, cbcancel}) {
        follow(next);
    }
}
