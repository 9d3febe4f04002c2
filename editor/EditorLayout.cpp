// How the form stands: the overview, the strip of controls, the view, the hint. Sizes and places are in pixels.

#include <QHBoxLayout>
#include <algorithm>
#include <array>

#include "editor/Editor.h"
#include "widgets/Controls.h"
#include "widgets/FollowFont.h"

namespace {

constexpr int kLeastWidth = 534;  // of the form
constexpr int kLeastHeight = 400;
constexpr int kEdge = 4;            // Left of both pictures, and Top of the upper one
constexpr int kPicture2Top = 116;   // pixels; lower where large fonts make the strip higher
constexpr int kBelowDetail = 50;    // what the form's height leaves for the menu and the hint
constexpr int kLeastOverview = 40;  // height of Picture1
constexpr int kGap = 2;

void AddOptions(QGridLayout* grid, int column, const QList<QAbstractButton*>& options, int perRow) {
    for (int i = 0; i < options.size(); ++i) {
        grid->addWidget(options[i], i / perRow, column + i % perRow);
    }
}

void AddDivider(QGridLayout* grid, int column) {
    auto* const divider = new QFrame;
    divider->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    grid->addWidget(divider, 0, column, 2, 1);
}

}  // namespace

void Editor::Arrange() {
    // The pictures keep off the edge at the left as far as their width makes them do at the right.
    auto* const around = new QHBoxLayout(centralWidget());
    around->setContentsMargins(kEdge, 0, 0, 0);
    around->addWidget(paper_);
    FillControlStrip();
    FollowFont(strip_, [this] {
        setMinimumSize(std::max(kLeastWidth, strip_->sizeHint().width() + 4 * kEdge), kLeastHeight);
        if (isVisible()) {
            QMetaObject::invokeMethod(this, &Editor::Editor_Form_Resize, Qt::QueuedConnection);
        }
    });
    OrderTabs();
}

void Editor::FillControlStrip() {
    AddOptions(strip_->tools, 0, opEditmode->Options(), 1);
    AddDivider(strip_->tools, 1);
    AddOptions(strip_->tools, 2, opPenmode->Options(), 2);
    AddDivider(strip_->tools, 4);
    const std::array<QString, 2> axes{QStringLiteral("X:"), QStringLiteral("Y:")};
    const std::array<QString, 2> names{QStringLiteral("Address"),
                                       QStringLiteral("Value, -%1 to %1").arg(kHighestSample)};
    for (int i = 0; i < 2; ++i) {
        const auto at = static_cast<std::size_t>(i);
        EntryField* const field = entry_->Text1[at];
        field->setAccessibleName(names[at]);
        field->setToolTip(names[at] + u". Enter in Y: stores the sample; an address that has a point loses it.");
        FollowFont(field, [field] {
            field->setFixedWidth(field->fontMetrics().horizontalAdvance(QStringLiteral("-00000")) + 8);
        });
        field->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
        strip_->tools->addWidget(MakeLabel(QStringLiteral("Label1_%1").arg(i), axes[at], strip_, field), i, 5);
        strip_->tools->addWidget(field, i, 6);
        KeepRoomFor(pointer_->corint[at], QStringLiteral("X= 00000"), kGap);
        KeepRoomFor(pointer_->corper[at], QStringLiteral("X= 000.0%"), kGap);
        strip_->position->addWidget(pointer_->corint[at], i, 0);
        strip_->position->addWidget(pointer_->corper[at], i, 1);
    }
    for (QAbstractButton* const option : Opintmode->Options()) {
        strip_->curve->addWidget(option);
    }
    strip_->points->addWidget(Marker);
    strip_->points->addWidget(opFit);
    opFit->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
}

void Editor::OrderTabs() {
    QList<QWidget*> order{Picture1};
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
    order += {opFit, Picture2};
    for (qsizetype i = 1; i < order.size(); ++i) {
        setTabOrder(order[i - 1], order[i]);
    }
    opEditmode->Option(0)->setFocus();  // else the first picture would have it
}

void Editor::Editor_Form_Resize() {
    view_->TakeOffStrokes();
    program_.editor.CrossFresh = true;
    const int pictureWidth = width() - 4 * kEdge;
    strip_->FitTo(pictureWidth);
    const int stripHeight = strip_->sizeHint().height();
    const int detailTop = std::max(kPicture2Top, kEdge + kLeastOverview + stripHeight + 2 * kGap);
    const int stripTop = detailTop - stripHeight - kGap;
    const int hintHeight = hint_->sizeHint().height();
    const int room = paper_->height() - detailTop - hintHeight - 2 * kGap;
    const int detailHeight = std::min(height() - detailTop - kBelowDetail, room);
    Picture1->setGeometry(kEdge, kEdge, pictureWidth, stripTop - kGap - kEdge);
    strip_->setGeometry(kEdge, stripTop, pictureWidth, stripHeight);
    Picture2->setGeometry(kEdge, detailTop, pictureWidth, std::max(detailHeight, 1));
    hint_->setGeometry(kEdge, detailTop + detailHeight + kGap, pictureWidth, hintHeight);
    program_.editor.EditorRedrawPending = true;
}
