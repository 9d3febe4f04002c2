#include "panel/OverviewGroup.h"

#include "overview/OverviewPicture.h"
#include "overview/OverviewText.h"

OverviewGroup::OverviewGroup(const ProgramState& program, Desktop& desktop, QWidget* parent)
    : Picture1(new PictureBox(parent)), Text3(new QPlainTextEdit(parent)), program_(program), desktop_(desktop) {
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setAccessibleName(QStringLiteral("Picture of the signal form"));
    Text3->setObjectName(QStringLiteral("Text3"));
    Text3->setAccessibleName(QStringLiteral("Overview of the modes"));
    Text3->setReadOnly(true);
    Text3->setTabChangesFocus(true);
    QObject::connect(Picture1, &PictureBox::RedrawNeeded, Picture1,
                     [this] { ::DrawOverviewSignal(*Picture1, program_.panel.bmSignal, program_.memories); });
}

void OverviewGroup::RefreshOverview() {
    Text3->setPlainText(OverviewText(program_.panel, program_.numbers));
    DrawOverviewSignal();
}

void OverviewGroup::DrawOverviewSignal() {
    desktop_.BusyOn();
    ::DrawOverviewSignal(*Picture1, program_.panel.bmSignal, program_.memories);
    desktop_.BusyOff();
}
