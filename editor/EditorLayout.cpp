// How the form stands: the overview, the strip of controls, the view, the hint. Sizes and places are in pixels.

#include <QGridLayout>
#include <QHBoxLayout>
#include <algorithm>

#include "editor/Editor.h"
#include "platform/Controls.h"

namespace {

constexpr int kLeastWidth = 534;  // of the form
constexpr int kLeastHeight = 400;
constexpr int kEdge = 4;            // Left of both pictures, and Top of the upper one
constexpr int kDetailTop = 116;     // of Picture2; lower where large letters make the strip higher
constexpr int kBelowDetail = 50;    // what the form's height leaves for the menu and the hint
constexpr int kLeastOverview = 40;  // height of Picture1
constexpr int kGap = 2;
constexpr int kColumnGap = 12;

void AddOptions(QGridLayout* grid, int column, const QList<QAbstractButton*>& options, int perRow) {
    for (int i = 0; i < options.size(); ++i) {
        grid->addWidget(options[i], i / perRow, column + i % perRow);
    }
}

void AddDivider(QGridLayout* grid, int column) {
    auto* const divider = new QFrame;
    divider->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    grid->addWidget(divider, 0, column, 2, 1);
    grid->setColumnMinimumWidth(column, kColumnGap);
}

}  // namespace

void Editor::Arrange() {
    // The pictures keep off the edge at the left as far as their width makes them do at the right.
    auto* const around = new QHBoxLayout(centralWidget());
    around->setContentsMargins(kEdge, 0, 0, 0);
    around->addWidget(paper_);
    FillControlStrip();
    setMinimumSize(std::max(kLeastWidth, strip_->sizeHint().width() + 4 * kEdge), kLeastHeight);
    OrderTabs();
}

// The columns of the strip: what is edited, the pens, the entry, the read-outs; below them what belongs to the signal.
void Editor::FillControlStrip() {
    auto* const grid = new QGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(0);
    AddOptions(grid, 0, opEditmode->Options(), 1);
    AddDivider(grid, 1);
    AddOptions(grid, 2, opPenmode->Options(), 2);
    AddDivider(grid, 4);
    AddDivider(grid, 7);
    const std::array<QString, 2> axes{QStringLiteral("X:"), QStringLiteral("Y:")};
    const std::array<QString, 2> names{QStringLiteral("Address"), QStringLiteral("Value, -2047 to 2047")};
    for (int i = 0; i < 2; ++i) {
        const auto at = static_cast<std::size_t>(i);
        EntryField* const field = entry_->Text1[at];
        field->setAccessibleName(names[at]);
        field->setToolTip(names[at] + u". Enter in Y: stores the sample; an address that has a point loses it.");
        field->setFixedWidth(field->fontMetrics().horizontalAdvance(QStringLiteral("-0000000")) + 8);
        field->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
        grid->addWidget(MakeLabel(QStringLiteral("Label1_%1").arg(i), axes[at], strip_, field), i, 5);
        grid->addWidget(field, i, 6);
        pointer_->corint[at]->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("X= 00000 ")));
        pointer_->corper[at]->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("X= 000.0% ")));
        grid->addWidget(pointer_->corint[at], i, 8);
        grid->addWidget(pointer_->corper[at], i, 9);
    }
    grid->setColumnStretch(10, 1);

    auto* const lower = new QHBoxLayout;
    lower->setSpacing(kColumnGap);
    for (QAbstractButton* const option : Opintmode->Options()) {
        lower->addWidget(option);
    }
    lower->addWidget(Marker);
    lower->addWidget(opFit);
    lower->addStretch();
    opFit->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);

    auto* const rows = new QVBoxLayout(strip_);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addLayout(grid);
    rows->addLayout(lower);
}

void Editor::OrderTabs() {
    QList<QWidget*> order;
    for (const OptionGroup* const group : {opEditmode.get(), opPenmode.get()}) {
        for (QAbstractButton* const option : group->Options()) {
            order += option;
        }
    }
    order += entry_->Text1[0];
    order += entry_->Text1[1];
    for (QAbstractButton* const option : Opintmode->Options()) {
        order += option;
    }
    order += Marker;
    order += opFit;
    for (qsizetype i = 1; i < order.size(); ++i) {
        setTabOrder(order[i - 1], order[i]);
    }
}

void Editor::Editor_Form_Resize() {
    view_->TakeOffStrokes();
    const int stripHeight = strip_->sizeHint().height();
    const int detailTop = std::max(kDetailTop, kEdge + kLeastOverview + stripHeight + 2 * kGap);
    const int stripTop = detailTop - stripHeight - kGap;
    const int pictureWidth = width() - 4 * kEdge;
    const int hintHeight = hint_->sizeHint().height();
    const int room = paper_->height() - detailTop - hintHeight - 2 * kGap;
    const int detailHeight = std::min(height() - detailTop - kBelowDetail, room);
    Picture1->setGeometry(kEdge, kEdge, pictureWidth, stripTop - kGap - kEdge);
    strip_->setGeometry(kEdge, stripTop, pictureWidth, stripHeight);
    Picture2->setGeometry(kEdge, detailTop, pictureWidth, std::max(detailHeight, 1));
    hint_->setGeometry(kEdge, detailTop + detailHeight + kGap, pictureWidth, hintHeight);
    ShowHint();
    program_.editor.EditorRedrawPending = true;
}
