#include "editor/ControlStrip.h"

namespace {

constexpr int kBlockGap = 12;
// Beside each other there is room to spare.
constexpr int kWideBlockGap = 20;
constexpr int kWideRowGap = 4;
constexpr int kColumnGap = 4;

QGridLayout* MakeGrid(QWidget* of) {
    auto* const grid = new QGridLayout(of);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(kColumnGap);
    return grid;
}

}  // namespace

ControlStrip::ControlStrip(QWidget* parent)
    : QWidget(parent),
      tools(MakeGrid(new QWidget(this))),
      position(MakeGrid(new QWidget(this))),
      curve(new QBoxLayout(QBoxLayout::LeftToRight)),
      points(new QBoxLayout(QBoxLayout::LeftToRight)),
      signal_(new QWidget(this)),
      blocks_(MakeGrid(this)) {
    auto* const signal = new QHBoxLayout(signal_);
    signal->setContentsMargins(0, 0, 0, 0);
    signal->setSpacing(kBlockGap);
    signal->addLayout(curve);
    signal->addLayout(points);
    blocks_->setVerticalSpacing(0);
    blocks_->setColumnStretch(3, 1);
    Place(false);
}

void ControlStrip::FitTo(int width) {
    Place(true);
    if (blocks_->sizeHint().width() > width) {
        Place(false);
    }
}

void ControlStrip::Place(bool besideTheOthers) {
    blocks_->addWidget(tools->parentWidget(), 0, 0);
    blocks_->addWidget(position->parentWidget(), 0, besideTheOthers ? 2 : 1);
    if (besideTheOthers) {
        blocks_->addWidget(signal_, 0, 1);
    } else {
        blocks_->addWidget(signal_, 1, 0, 1, 2, Qt::AlignLeft);
    }
    blocks_->setHorizontalSpacing(besideTheOthers ? kWideBlockGap : kBlockGap);
    for (QBoxLayout* const column : {curve, points}) {
        column->setDirection(besideTheOthers ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
        column->setSpacing(besideTheOthers ? kWideRowGap : kBlockGap);
    }
    for (QGridLayout* const grid : {tools, position}) {
        grid->setVerticalSpacing(besideTheOthers ? kWideRowGap : 0);
    }
    for (QWidget* const block : {tools->parentWidget(), position->parentWidget(), signal_}) {
        block->layout()->invalidate();  // the strip's size hints count at once
        block->updateGeometry();
    }
}
