#include "panel/LevelGroup.h"

#include "panel/LargeReading.h"
#include "rules/LevelCoupling.h"
#include "rules/LevelRules.h"

LevelGroup::LevelGroup(const PanelContext& context, QWidget* parent) : context_(context), panel_(context.panel) {
    MakeLevel(parent);
    MakeOffset(parent);
}

void LevelGroup::MakeLevel(QWidget* parent) {
    Text2 =
        MakeEntryField(context_, QStringLiteral("Text2"), KeyClass::Plain, QStringLiteral("Output voltage"), parent);
    Text2->SetCommit([this] { Text2_Commit(); });
    Label2 = MakeLabel(QStringLiteral("Label2"), QStringLiteral("Output voltage"), parent, Text2);
    Label6 = MakeLabel(QStringLiteral("Label6"), QStringLiteral("VPP"), parent, Text2);
    vunit = new OptionGroup(QStringLiteral("vunit"), {QStringLiteral("VPP"), QStringLiteral("RMS")}, parent);
    vunit->SetAccessibleName(QStringLiteral("Output voltage, unit"));
    vunit->Select(panel_.tmVPP ? 0 : 1);
    vunit->SetClick([this](int index) { vunit_Click(index); });
}

void LevelGroup::MakeOffset(QWidget* parent) {
    Text4 = MakeEntryField(context_, QStringLiteral("Text4"), KeyClass::Signed, QStringLiteral("Offset voltage, in V"),
                           parent);
    Text4->SetCommit([this] { Text4_Commit(); });
    Label5 = MakeLabel(QStringLiteral("Label5"), QStringLiteral("Offset voltage"), parent, Text4);
    Label7 = MakeLabel(QStringLiteral("Label7"), QStringLiteral("V"), parent);
    Check1 = Named(new QCheckBox(QStringLiteral("On"), parent), QStringLiteral("Check1"),
                   QStringLiteral("Offset voltage on"));
    QObject::connect(Check1, &QCheckBox::clicked, Check1, [this] { Check1_Click(); });
}

void LevelGroup::AddTo(QGridLayout& output, int row) const {
    AddReading(output, row, {Label2, Text2, Label6});
    AddOptions(output, row + 1, *vunit);
    AddReading(output, row + 2, {Label5, Text4, Label7});
    output.addWidget(Check1, row + 3, kOptionsColumn, Qt::AlignVCenter);
}

QList<QWidget*> LevelGroup::TabStops() const {
    return QList<QWidget*>{Text2} + TabStopsOf(*vunit) + QList<QWidget*>{Text4, Check1};
}

// The unit is part of the level: its options follow from it.
QList<ShownField> LevelGroup::ShownFields() const {
    return {
        {&PanelState::mAmp, [this] { return Text2; },
         [this](const PanelState& state) -> QString { return LevelText(state) + u' ' + UnitOf(state); }},
        {&PanelState::mOffset, [this] { return Text4; },
         [this](const PanelState& state) -> QString { return OffsetText(state) + QStringLiteral(" V"); }},
        {&PanelState::tmOffset, [this] { return Check1; },
         // The box may stay ticked where a read-back reports no offset.
         [this](const PanelState& state) {
             const bool on = &state == &panel_ ? Check1->isChecked() : state.tmOffset != kFalse;
             return on ? QStringLiteral("an offset") : QStringLiteral("no offset");
         }},
    };
}

QString LevelGroup::UnitOf(const PanelState& state) {
    return state.tmVPP ? QStringLiteral("VPP") : QStringLiteral("RMS");
}

QString LevelGroup::LevelText(const PanelState& state) const { return context_.numbers.Picture(state.mAmp, "0.00000"); }

QString LevelGroup::OffsetText(const PanelState& state) const {
    return context_.numbers.Picture(state.mOffset, "0.0000");
}

void LevelGroup::Text2_Commit() { StoreLevel(context_.EntryOf(*Text2)); }

void LevelGroup::StoreLevel(double level) {
    context_.Store(HoldLevel(level, panel_.tmVPP, AmOn(panel_), context_.numbers), panel_.mAmp);
    RefreshLevel();
}

// What is in force is tmVPP, not what the options show: a read-back changes the unit and leaves the options alone.
void LevelGroup::vunit_Click(int index) {
    const bool toVpp = index == 0;
    if (toVpp != (panel_.tmVPP != kFalse)) {
        panel_.tmVPP = ToTruth(toVpp);
        StoreLevel(ConvertLevel(context_.EntryOf(*Text2), toVpp));
    }
    TakeFocus(Text2);
}

void LevelGroup::Text4_Commit() {
    panel_.mOffset = context_.EntryOf(*Text4);
    RefreshOffset();
}

void LevelGroup::Check1_Click() {
    panel_.tmOffset = ToTruth(Check1->isChecked());
    RefreshOffset();
}

// A change from code runs the click routine, as a user's click does.
void LevelGroup::SelectCheck1(bool checked) {
    if (Check1->isChecked() != checked) {
        Check1->setChecked(checked);
        Check1_Click();
    }
}

void LevelGroup::RefreshLevel() {
    const UserNumbers& numbers = context_.numbers;
    Label6->setText(UnitOf(panel_));
    Text2->setAccessibleName(QStringLiteral("Output voltage, in ") + Label6->text());
    Label6->setAccessibleName(Text2->accessibleName());
    Text2->setToolTip(LevelToolTip(panel_.tmVPP, numbers));
    CoupleLevel(panel_, numbers, [this](const QString& hint) { context_.hint.FlashMessage(hint); });
    Text4->setToolTip(OffsetToolTip(panel_.bmBereich, panel_.tmVPP, numbers));
    Text2->setText(LevelText(panel_));
    RefreshOffset();
}

void LevelGroup::RefreshOffset() {
    const bool switchedOn = panel_.tmOffset != kFalse;
    QStringList hints;
    CoupleOffset(panel_, context_.numbers, [&hints](const QString& hint) { hints += hint; });
    // Where the offset was off already the box is left alone.
    if (switchedOn) {
        SelectCheck1(panel_.tmOffset != kFalse);
    }
    // Behind what the click routine may have said: the last hint is the one that stands.
    for (const QString& hint : std::as_const(hints)) {
        context_.hint.FlashMessage(hint);
    }
    Text4->setText(OffsetText(panel_));
}
