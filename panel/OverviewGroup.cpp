#include "panel/OverviewGroup.h"

#include "overview/OverviewPicture.h"
#include "overview/OverviewText.h"
#include "widgets/Controls.h"

OverviewGroup::OverviewGroup(const ProgramState& program, Desktop& desktop, QWidget* parent)
    : program_(program),
      desktop_(desktop),
      Picture1(Named(new PictureBox(parent), QStringLiteral("Picture1"), QStringLiteral("Picture of the signal form"))),
      Text3(Named(new QPlainTextEdit(parent), QStringLiteral("Text3"), QStringLiteral("Overview of the modes"))) {
    Picture1->setMinimumSize(420, 200);
    Text3->setReadOnly(true);
    Text3->setTabChangesFocus(true);
    QObject::connect(Picture1, &PictureBox::RedrawNeeded, Picture1,
                     [this] { DrawSignalForm(*Picture1, program_.panel.bmSignal, program_.memories); });
}

void OverviewGroup::AddTo(QBoxLayout& column) const {
    column.addWidget(Picture1, 1);
    column.addWidget(Text3, 1);
}

void OverviewGroup::RefreshOverview() {
    Text3->setPlainText(OverviewText(program_.panel, program_.numbers));
    DrawOverviewSignal();
}

void OverviewGroup::DrawOverviewSignal() {
    if (!Picture1->RedrawIsDue()) {
        desktop_.BusyOn();
        DrawSignalForm(*Picture1, program_.panel.bmSignal, program_.memories);
        desktop_.BusyOff();
    }
}
