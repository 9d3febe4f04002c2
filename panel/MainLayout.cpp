// How the controls of Main stand: what comes out of the instrument always in view at the left with the link below it,
// the tabs at the right, the hint line and the progress at the bottom.

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "panel/FrequencyGroup.h"
#include "panel/LevelGroup.h"
#include "panel/LinkView.h"
#include "panel/Main.h"
#include "panel/ModeGroup.h"
#include "panel/ModulationGroup.h"
#include "panel/OutputGroup.h"
#include "panel/OverviewGroup.h"
#include "panel/SweepGroup.h"
#include "panel/TransferBar.h"

namespace {

QVBoxLayout* NewColumn(QWidget* page = nullptr) {
    auto* const column = new QVBoxLayout(page);
    column->setSpacing(kFrameSpacing);
    return column;
}

}  // namespace

void Main::Arrange() {
    QVBoxLayout* const column = NewColumn(centralWidget());
    auto* const upper = new QHBoxLayout;
    upper->setSpacing(kFrameSpacing);
    QVBoxLayout* const left = NewColumn();
    ArrangeOutputColumn();
    left->addWidget(outputColumn_);
    left->addStretch();
    left->addWidget(ArrangeLinkRow());
    upper->addLayout(left);
    ArrangeTabs();
    upper->addWidget(SSTab1, 1);
    column->addLayout(upper, 1);

    // The line keeps its height with or without a text; the bar takes its room from the line while it shows.
    auto* const lower = new QHBoxLayout;
    const int height = hint_->fontMetrics().height() + 10;
    hint_->setFixedHeight(height);
    status->setFixedSize(status->minimumWidth(), height);
    status->setVisible(false);
    lower->addWidget(hint_, 1);
    lower->addWidget(status);
    column->addLayout(lower);
    OrderTabs();
}

void Main::ArrangeOutputColumn() {
    QVBoxLayout* const column = NewColumn(outputColumn_);
    column->setContentsMargins(0, 0, 0, 0);
    frequency_->AddSignalTo(*column);
    auto* const frame = new QGroupBox(QStringLiteral("Output"), outputColumn_);
    auto* const output = new QGridLayout(frame);
    output->setVerticalSpacing(kFrameSpacing);
    output->setColumnStretch(6, 1);
    frequency_->AddFrequencyTo(*output, 0);
    level_->AddTo(*output, 1);
    output_->AddTo(*output, 3);
    column->addWidget(frame);
}

QWidget* Main::ArrangeLinkRow() {
    auto* const frame = new QGroupBox(QStringLiteral("Instrument"), centralWidget());
    auto* const column = new QVBoxLayout(frame);
    auto* const row = new QHBoxLayout;
    row->addWidget(cRM);
    row->addStretch();
    row->addWidget(Command3);
    row->addWidget(Command4);
    row->addWidget(Command7);
    column->addLayout(row);
    column->addWidget(linkView_->linkstate());
    return frame;
}

void Main::ArrangeTabs() {
    overview_->AddTo(*NewColumn(overviewTab_));
    SSTab1->addTab(overviewTab_, QStringLiteral("Overview"));

    QVBoxLayout* const modulation = NewColumn(modulationTab_);
    modulation_->AddTo(*modulation);
    modulation->addStretch();
    SSTab1->addTab(modulationTab_, QStringLiteral("Modulation"));

    QVBoxLayout* const mode = NewColumn(modeTab_);
    sweep_->AddTo(*mode);
    mode_->AddTo(*mode);
    mode->addStretch();
    SSTab1->addTab(modeTab_, QStringLiteral("Mode"));
}

// From the signal down to the output, then the link, then the tabs.
void Main::OrderTabs() {
    const QList<QWidget*> link{cRM, Command3, Command4, Command7, SSTab1};
    const QList<QWidget*> order = frequency_->TabStops() + level_->TabStops() + output_->TabStops() + link +
                                  overview_->TabStops() + modulation_->TabStops() + sweep_->TabStops() +
                                  mode_->TabStops();
    for (qsizetype i = 1; i < order.size(); ++i) {
        setTabOrder(order.at(i - 1), order.at(i));
    }
}
