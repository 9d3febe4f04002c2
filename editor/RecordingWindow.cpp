#include "editor/RecordingWindow.h"

#include <QPointer>
#include <algorithm>
#include <limits>

#include "core/FrequencyDisplay.h"
#include "editor/RecordingTexts.h"
#include "waveform/Choices.h"

RecordingWindow::RecordingWindow(const EditorContext& context, EditMode& mode, StoreFaults& faults,
                                 const QString& fileName, QWidget* editor)
    : QDialog(editor),
      context_(context),
      mode_(mode),
      faults_(faults),
      state_(context.program.editor),
      recordingName_(fileName),
      settingName_(context.tables.FileOf(EditTarget::Memory)),
      target_(state_.Target),
      size_(*state_.Size) {
    setObjectName(QStringLiteral("recording"));
    setWindowTitle(QStringLiteral("Open recording"));
    setAttribute(Qt::WA_DeleteOnClose);
    MakeControls();
    MakeChoices();
    MakeResult();
    Arrange();
    ConnectControls();
    channels->setFocus();
    ReadFile();
}

void RecordingWindow::ConnectControls() {
    for (QComboBox* const choice : {separator, decimal}) {
        connect(choice, &QComboBox::activated, this, &RecordingWindow::ReadFile);
    }
    connect(&reader_, &RecordingReader::Advanced, progress, &QProgressBar::setValue);
    connect(&reader_, &RecordingReader::Advanced, progress, &QWidget::show);
    connect(&reader_, &RecordingReader::Done, this, &RecordingWindow::ShowOutcome);
    connect(asrecording, &QCheckBox::clicked, this, &RecordingWindow::ShowBlock);
    connect(block, &QComboBox::currentIndexChanged, this, &RecordingWindow::ShowBlock);
    connect(channels, &ChannelList::ChosenChanged, this, &RecordingWindow::ShowColumn);
    connect(preview, &RecordingPreview::Chosen, this, [this](std::size_t from, std::size_t to) {
        const auto begin = static_cast<std::size_t>(std::min(first->value(), last->value()) - 1);
        ChooseRows(begin + from, begin + to);
    });
    connect(whole, &QPushButton::clicked, this,
            [this] { ChooseRows(0, static_cast<std::size_t>(last->maximum()) - 1); });
    for (QSpinBox* const number : {first, last, addresses}) {
        connect(number, &QSpinBox::valueChanged, this, &RecordingWindow::Follow);
    }
    use->SetClick([this](int) {
        useIsChosen_ = true;
        Follow();
    });
    scale->SetClick([this](int index) {
        state_.RecordingScale = static_cast<RecordedScale>(index);
        Follow();
    });
    connect(cbok, &QPushButton::clicked, this, &RecordingWindow::recording_cbok_Click);
    connect(cbcancel, &QPushButton::clicked, this, &QDialog::reject);
}

bool RecordingWindow::IsOutdated() const {
    return !state_.EditorOpen || state_.Target != target_ || state_.Size != &size_ ||
           context_.tables.FileOf(EditTarget::Memory) != settingName_;
}

void RecordingWindow::FollowEditor() {
    if (isVisible() && IsOutdated()) {
        reject();
    }
}

// What is shown belongs to the recording that goes.
void RecordingWindow::ReadFile() {
    preview->Show({}, {});
    channels->Show(nullptr);
    const auto chosen = [](const QComboBox* choice) -> std::optional<char> {
        const QVariant value = choice->currentData();
        return value.isValid() ? std::optional(value.toChar().toLatin1()) : std::nullopt;
    };
    reader_.Read(recordingName_, {.separator = chosen(separator), .decimalMark = chosen(decimal)});
    asrecording->hide();
    ShowOutcome();
}

const recording::Recording* RecordingWindow::Read() const {
    return reader_.Outcome().recording ? &*reader_.Outcome().recording : nullptr;
}

bool RecordingWindow::TakesAsItStands() const { return !asrecording->isHidden() && !asrecording->isChecked(); }

const recording::Block* RecordingWindow::ChosenBlock() const {
    const recording::Recording* const read = Read();
    const int index = block->currentIndex();
    const bool any = read != nullptr && index >= 0 && static_cast<std::size_t>(index) < read->blocks.size();
    return any && !TakesAsItStands() ? &read->blocks[static_cast<std::size_t>(index)] : nullptr;
}

void RecordingWindow::ShowOutcome() {
    progress->hide();
    progress->setValue(0);
    const recording::Recording* const read = Read();
    const bool hasAddresses = read != nullptr && (!read->addressed.empty() || !read->addressedFault.isEmpty());
    asrecording->setVisible(hasAddresses);
    asrecording->setEnabled(hasAddresses && !read->blocks.empty());
    TakeAddresses(hasAddresses ? read->addressed : std::vector<recording::AddressedSample>());
    {
        const QSignalBlocker silent(block);
        block->clear();
        if (read != nullptr) {
            block->addItems(TextsOfBlocks(*read));
            block->setCurrentIndex(static_cast<int>(read->longest));
        }
    }
    block->setVisible(block->count() > 1);
    blockTitle->setVisible(block->count() > 1);
    ShowBlock();
}

// In the order of the addresses, as the preview shows them.
void RecordingWindow::TakeAddresses(std::vector<recording::AddressedSample> samples) {
    std::ranges::stable_sort(samples, {}, &recording::AddressedSample::address);
    const auto take = [&samples](int recording::AddressedSample::*member) {
        std::vector<double> values(samples.size());
        std::ranges::transform(samples, values.begin(),
                               [member](const auto& sample) { return static_cast<double>(sample.*member); });
        return values;
    };
    addressedValues_ = take(&recording::AddressedSample::value);
    addressedPlaces_ = take(&recording::AddressedSample::address);
}

bool RecordingWindow::LacksAddresses() const {
    const auto all = static_cast<std::size_t>(size_.lastTableAddress) + 1;
    return TakesAsItStands() && Read()->addressedFault.isEmpty() && AddressesIn(Read()->addressed) < all;
}

// As long as the user has not chosen: the target of the editor, but points where a memory would lose addresses.
void RecordingWindow::ChooseUse() {
    if (!useIsChosen_) {
        const bool isMemory = target_ == EditTarget::Memory && !LacksAddresses();
        use->Show(static_cast<int>(isMemory ? RecordingUse::Memory : RecordingUse::Signal));
    }
}

void RecordingWindow::ShowBlock() {
    ChooseUse();
    preview->Show({}, {});
    channels->Show(ChosenBlock());
    ShowColumn();
}

void RecordingWindow::ShowColumn() {
    const recording::Column* const column = channels->Chosen();
    const std::size_t rows = column == nullptr ? 1 : std::max<std::size_t>(column->values.size(), 1);
    showing_ = true;
    for (QSpinBox* const row : {first, last}) {
        row->setRange(1, static_cast<int>(std::min<std::size_t>(rows, std::numeric_limits<int>::max())));
    }
    showing_ = false;
    ChooseRows(0, rows - 1);
}

void RecordingWindow::ChooseRows(std::size_t from, std::size_t to) {
    showing_ = true;
    first->setValue(static_cast<int>(from + 1));
    last->setValue(static_cast<int>(to + 1));
    showing_ = false;
    Follow();
}

std::size_t RecordingWindow::AddressesWanted() const {
    return static_cast<std::size_t>(Use() == RecordingUse::Paste ? addresses->value() : addresses->maximum());
}

void RecordingWindow::Follow() {
    if (showing_) {
        return;
    }
    samples_.clear();
    const bool asItStands = TakesAsItStands();
    const bool any = channels->Chosen() != nullptr && channels->Chosen()->fault.isEmpty();
    if (asItStands && focusWidget() == channels) {
        use->Option(use->Selected())->setFocus();  // else the preview would get it, whose keys are others
    }
    channels->setEnabled(!asItStands);
    stretch->setEnabled(any);
    for (QAbstractButton* const option : scale->Options()) {
        option->setEnabled(!asItStands);
    }
    addresses->setEnabled(!asItStands && Use() == RecordingUse::Paste);
    if (asItStands) {
        FollowAddressed();
    } else {
        FollowRecording();
    }
}

void RecordingWindow::FollowAddressed() {
    const recording::Recording& read = *Read();
    preview->Show(addressedValues_, addressedPlaces_);
    const QString fault =
        read.addressedFault.isEmpty() ? RefuseAddressed(read.addressed, Use(), size_) : read.addressedFault;
    ShowFound(fault);
    QString text = fault.isEmpty() ? QStringLiteral("The samples go to their addresses as they stand.") : QString();
    if (fault.isEmpty() && Use() == RecordingUse::Memory && LacksAddresses()) {
        text = QStringLiteral("The file has %1 of the %2 addresses; the others are removed.")
                   .arg(AddressesIn(read.addressed))
                   .arg(size_.lastTableAddress + 1);
    }
    ShowNoReproduction(text);
}

void RecordingWindow::FollowRecording() {
    const recording::Column* const column = channels->Chosen();
    if (column == nullptr || !column->fault.isEmpty()) {
        preview->Show({}, {});
        ShowFound(column != nullptr ? column->fault : reader_.Outcome().fault);
        ShowNoReproduction({});
        return;
    }
    const auto [from, to] = std::minmax({first->value(), last->value()});
    const RecordedPart part = PartOf(*column, static_cast<std::size_t>(from) - 1, static_cast<std::size_t>(to) - 1);
    preview->Show(part.values, part.times);
    const RecordedWave wave = MakeWave(part, AddressesWanted(), state_.RecordingScale);
    samples_ = wave.samples;
    ShowFound({});
    ShowReproduction(ReproductionOf(wave, column->unit, size_));
}

void RecordingWindow::ShowFound(const QString& fault) {
    QString text = fault;
    if (reader_.IsReading()) {
        text = QStringLiteral("Reading the file. Cancel ends it.");
    } else if (fault.isEmpty() && Read() != nullptr) {
        text = TakesAsItStands() ? TextOfAddressed(*Read())
                                 : TextOfFound(*Read(), *channels->Chosen(), context_.program.numbers);
    }
    found->setText(text);
    cbok->setEnabled(!reader_.IsReading() && Read() != nullptr && fault.isEmpty());
    channels->setAccessibleDescription(text);
}

void RecordingWindow::ShowReproduction(const Reproduction& reproduction) {
    const UserNumbers& numbers = context_.program.numbers;
    const QString unknown = QStringLiteral("unknown");
    QString shown = unknown;
    QString unit;
    if (reproduction.frequency) {
        const FrequencyUnit& by = kFrequencyUnits.at(std::size_t(FrequencyUnitIndex(*reproduction.frequency)));
        shown = numbers.Picture(*reproduction.frequency / by.hertz, by.picture);
        unit = QString::fromLatin1(by.name);
    }
    frequency->setText(shown);
    frequencyUnit->setText(unit);
    constexpr char kVolts[] = "0.0000";
    level->setText(reproduction.level ? numbers.Picture(*reproduction.level, kVolts) : unknown);
    offset->setText(reproduction.offset ? numbers.Picture(*reproduction.offset, kVolts) : unknown);
    remark->setText(reproduction.remarks.join(u' '));
    scale->Option(static_cast<int>(RecordedScale::Zero))
        ->setText(reproduction.offset ? QStringLiteral("By volts: 0 V is 0") : QStringLiteral("By values: 0 is 0"));
    for (QLineEdit* const field : {frequency, level, offset}) {
        field->setAccessibleDescription(field == frequency ? QString(unit + u' ' + remark->text()) : remark->text());
        field->setCursorPosition(0);
    }
}

void RecordingWindow::ShowNoReproduction(const QString& text) {
    for (QLineEdit* const field : {frequency, level, offset}) {
        field->clear();
    }
    frequencyUnit->clear();
    remark->setText(text);
}

void RecordingWindow::recording_cbok_Click() {
    FollowEditor();
    if (!isVisible() || !cbok->isEnabled()) {
        return;
    }
    // A question for the construction file lets events run, which may close this window for good.
    const QPointer<RecordingWindow> still(this);
    Desktop& desktop = context_.desktop;
    const bool ready = Use() != RecordingUse::Signal || mode_.EnsureConstruction();
    desktop.BusyOff();
    if (!still) {
        return;
    }
    FollowEditor();
    if (ready && isVisible() && Apply()) {
        accept();
    }
}

// False, after a message box, if it failed.
bool RecordingWindow::Apply() {
    const recording::Recording& read = *Read();
    const bool asItStands = TakesAsItStands();
    if (Use() == RecordingUse::Paste) {
        TakeSamples(asItStands ? ValuesOf(read.addressed) : samples_, state_);
        TakeUp(Pen::Paste, state_);
        return true;
    }
    const EditTarget target = Use() == RecordingUse::Memory ? EditTarget::Memory : EditTarget::Signal;
    const auto write = target == EditTarget::Memory ? RecordToMemory : RecordToSignal;
    context_.desktop.BusyOn();
    const TableResult result = asItStands ? ReplaceByAddressed(state_, context_.tables, target, read.addressed)
                                          : write(state_, context_.tables, samples_);
    context_.desktop.BusyOff();
    if (!faults_.Tell(result, Telling::Box)) {
        return false;
    }
    WorkOn(target, state_, context_.tables);
    return true;
}
