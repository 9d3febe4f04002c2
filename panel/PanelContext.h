#pragma once

#include <QGridLayout>
#include <functional>

#include "core/Numbers.h"
#include "core/PanelState.h"
#include "panel/FieldSteps.h"
#include "panel/HintLine.h"
#include "panel/ShownField.h"
#include "rules/Held.h"
#include "rules/KeyFilter.h"
#include "widgets/Controls.h"
#include "widgets/EntryField.h"
#include "widgets/Grid.h"
#include "widgets/OptionGroup.h"

// What every rule group of the panel works on.
struct PanelContext {
    PanelState& panel;
    const UserNumbers& numbers;
    HintLine& hint;
    // False while the whole panel is being rebuilt: a field that loses its focus then still shows the old state.
    std::function<bool()> mayCommit;

    // Stores what a rule made of an entry, and shows its hint.
    template <typename Field>
    void Store(const Held& held, Field& field) const {
        field = static_cast<Field>(held.value);
        if (!held.hint.isEmpty()) {
            hint.FlashMessage(held.hint);
        }
    }
    double EntryOf(const EntryField& field) const { return numbers.ReadEntry(field.text()); }
};

// An entry field with its key filter, its steps and a name for a screen reader.
EntryField* MakeEntryField(const PanelContext& context, const QString& name, KeyClass keys, const QString& accessible,
                           QWidget* parent, FieldSteps::UnitPower unitPower = {});

// The columns of the frame "Output": field, unit, then the options, one in each column.
inline constexpr int kOptionsColumn = 2;
void AddOptions(QGridLayout& output, int row, const OptionGroup& group);

// The options of a group in the order of the Tab key.
QList<QWidget*> TabStopsOf(const OptionGroup& group);

// A setting that a group of options shows: its mark stands at the selected one. `index` gives the option for a state.
ShownField ShownOption(PanelField field, const OptionGroup& group, std::function<int(const PanelState&)> index);

// The captions of an enumeration's table, in order of value.
template <typename Table>
QStringList CaptionsOf(const Table& table) {
    QStringList captions;
    for (const auto& row : table) {
        captions += QString::fromLatin1(row.caption);
    }
    return captions;
}
