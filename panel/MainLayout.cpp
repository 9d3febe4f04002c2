// How the controls of Main stand: what comes out of the instrument always in view at the left with the link below it,
// the tabs at the right, the hint line and the progress at the bottom.

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "panel/Main.h"

namespace {

constexpr int kSpacing = 10;

// The options of a group side by side, from this column on.
void AddOptions(QGridLayout* grid, int row, int column, const OptionGroup& group) {
    for (QAbstractButton* const option : group.Options()) {
        grid->addWidget(option, row, column++);
    }
}

}  // namespace

void Main::Arrange() {
    auto* const column = new QVBoxLayout(centralWidget());
    column->setSpacing(kSpacing);
    auto* const upper = new QHBoxLayout;
    upper->setSpacing(kSpacing);
    auto* const left = new QVBoxLayout;
    left->setSpacing(kSpacing);
    left->addWidget(ArrangeOutputColumn());
    left->addStretch();
    left->addWidget(ArrangeLinkRow());
    upper->addLayout(left);
    SSTab1->addTab(ArrangeOverviewTab(), QStringLiteral("Overview"));
    SSTab1->addTab(ArrangeModulationTab(), QStringLiteral("Modulation"));
    SSTab1->addTab(ArrangeModeTab(), QStringLiteral("Mode"));
    upper->addWidget(SSTab1, 1);
    column->addLayout(upper, 1);

    // The line keeps its height with or without a text; the bar takes its room from the line while it shows.
    auto* const lower = new QHBoxLayout;
    const int height = hint_->fontMetrics().height() + 10;
    hint_->setFixedHeight(height);
    status->setFixedSize(240, height);
    status->setVisible(false);
    lower->addWidget(hint_, 1);
    lower->addWidget(status);
    column->addLayout(lower);
    OrderTabs();
}

QWidget* Main::ArrangeOutputColumn() {
    auto* const column = new QVBoxLayout(outputColumn_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kSpacing);
    column->addWidget(frequency_->Frame5);

    auto* const frame = new QGroupBox(QStringLiteral("Output"), outputColumn_);
    auto* const grid = new QGridLayout(frame);
    grid->setVerticalSpacing(kSpacing);
    FrequencyField& frequency = frequency_->frequency;
    grid->addWidget(MakeLabel(QStringLiteral("Label1"), QStringLiteral("Frequency"), frame, frequency.field()), 0, 0);
    grid->addWidget(frequency.field(), 0, 1);
    grid->addWidget(frequency.unitLabel(), 0, 2);
    AddOptions(grid, 0, 3, frequency.units());
    grid->addWidget(MakeLabel(QStringLiteral("Label2"), QStringLiteral("Output voltage"), frame, level_->Text2), 1, 0);
    grid->addWidget(level_->Text2, 1, 1);
    grid->addWidget(level_->Label6, 1, 2);
    AddOptions(grid, 1, 3, *level_->vunit);
    grid->addWidget(MakeLabel(QStringLiteral("Label5"), QStringLiteral("Offset voltage"), frame, level_->Text4), 2, 0);
    grid->addWidget(level_->Text4, 2, 1);
    grid->addWidget(MakeLabel(QStringLiteral("Label7"), QStringLiteral("V"), frame), 2, 2);
    grid->addWidget(level_->Check1, 2, 3);
    grid->addWidget(output_->Label3, 3, 0, 1, 2);
    AddOptions(grid, 3, 3, *output_->Opoutput);
    grid->setColumnStretch(6, 1);
    column->addWidget(frame);
    return outputColumn_;
}

QWidget* Main::ArrangeLinkRow() {
    auto* const frame = new QGroupBox(QStringLiteral("Instrument"), centralWidget());
    auto* const row = new QHBoxLayout(frame);
    row->addWidget(cRM);
    row->addStretch();
    row->addWidget(Command3);
    row->addWidget(Command4);
    row->addWidget(Command7);
    return frame;
}

QWidget* Main::ArrangeOverviewTab() {
    auto* const column = new QVBoxLayout(overviewTab_);
    column->setSpacing(kSpacing);
    overview_->Picture1->setMinimumSize(420, 200);
    column->addWidget(overview_->Picture1, 1);
    column->addWidget(overview_->Text3, 1);
    return overviewTab_;
}

QWidget* Main::ArrangeModulationTab() {
    auto* const column = new QVBoxLayout(modulationTab_);
    column->setSpacing(kSpacing);
    column->addWidget(modulation_->Frame1);
    column->addWidget(modulation_->Frame2);
    column->addWidget(modulation_->Frame3);
    column->addWidget(modulation_->Frame4);
    column->addStretch();
    return modulationTab_;
}

QWidget* Main::ArrangeModeTab() {
    auto* const column = new QVBoxLayout(modeTab_);
    column->setSpacing(kSpacing);
    column->addWidget(sweep_->Frame7);
    auto* const row = new QHBoxLayout;
    row->setSpacing(kSpacing);
    row->addWidget(mode_->Frame6, 1);
    row->addWidget(mode_->Frame8, 1);
    column->addLayout(row);
    column->addStretch();
    return modeTab_;
}

// From the signal down to the output, then the link, then the tabs.
void Main::OrderTabs() {
    QList<QWidget*> order;
    const auto addGroup = [&order](const OptionGroup& group) {
        const auto options = group.Options();
        order.append(QList<QWidget*>(options.cbegin(), options.cend()));
    };
    const auto addFrequency = [&order, &addGroup](FrequencyField& field) {
        order += field.field();
        addGroup(field.units());
    };
    addGroup(*frequency_->opsignal);
    addFrequency(frequency_->frequency);
    order += level_->Text2;
    addGroup(*level_->vunit);
    order += {level_->Text4, level_->Check1};
    addGroup(*output_->Opoutput);
    order += {cRM, Command3, Command4, Command7, SSTab1, overview_->Text3};
    addGroup(*modulation_->opmod);
    addGroup(*modulation_->opAmMod);
    order += modulation_->Text5;
    addFrequency(modulation_->carrier);
    addFrequency(modulation_->hop);
    order += {modulation_->Text8, modulation_->Text9};
    addGroup(*sweep_->opwob);
    addFrequency(sweep_->start);
    addFrequency(sweep_->stop);
    order += sweep_->Text12;
    addGroup(*mode_->opmodes);
    addGroup(*mode_->opreference);
    for (qsizetype i = 1; i < order.size(); ++i) {
        setTabOrder(order.at(i - 1), order.at(i));
    }
}
