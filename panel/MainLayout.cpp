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
#include "widgets/ControlStyle.h"
#include "widgets/FollowFont.h"
#include "widgets/FormScroll.h"
#include "widgets/Grid.h"

namespace {

QVBoxLayout* NewColumn(QWidget* page = nullptr) {
    auto* const column = new QVBoxLayout(page);
    column->setSpacing(kMargin);
    return column;
}

}  // namespace

void Main::Arrange() {
    QVBoxLayout* const column = NewColumn(centralWidget());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* const upper = new QHBoxLayout(panel_);
    upper->setSpacing(kMargin);
    QVBoxLayout* const left = NewColumn();
    ArrangeOutputColumn();
    left->addWidget(outputColumn_, 1);
    left->addWidget(ArrangeLinkRow());
    upper->addLayout(left, 1);
    ArrangeTabs();
    upper->addWidget(SSTab1, 1);
    column->addWidget(new FormScroll(panel_, centralWidget()), 1);

    // In view also where the rest scrolls. The line keeps its height with or without a text; the bar takes its room
    // from the line while it shows.
    auto* const lower = new QHBoxLayout;
    lower->setContentsMargins(kMargin, 0, kMargin, kMargin);
    FollowFont(hint_, [this] {
        const int height = hint_->fontMetrics().height() + kMargin;
        hint_->setFixedHeight(height);
        status->setFixedHeight(height);
    });
    status->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
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
    output->setVerticalSpacing(kGap / 2);
    output->setColumnStretch(0, 1);
    frequency_->AddFrequencyTo(*output, 0);
    level_->AddTo(*output, 2);
    output->setRowMinimumHeight(6, kGap / 2);
    output_->AddTo(*output, 7);
    output->setRowStretch(8, 1);
    column->addWidget(frame, 1);
}

QWidget* Main::ArrangeLinkRow() {
    auto* const frame = new QGroupBox(QStringLiteral("Instrument"), panel_);
    auto* const column = new QVBoxLayout(frame);
    auto* const row = new QHBoxLayout;
    row->addWidget(cRM);
    row->addStretch();
    row->addWidget(Command3);
    row->addWidget(Command4);
    row->addWidget(Command7);
    MakeMainAction(*Command4);
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
