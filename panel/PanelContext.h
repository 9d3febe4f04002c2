#pragma once

#include <functional>

#include "core/Numbers.h"
#include "core/PanelState.h"
#include "panel/HintLine.h"
#include "panel/KeyFilter.h"
#include "platform/Controls.h"
#include "platform/EntryField.h"

// What every rule group of the panel works on.
struct PanelContext {
    PanelState& panel;
    const UserNumbers& numbers;
    HintLine& hint;
    // False while the whole panel is being rebuilt: a field that loses its focus then still shows the old state.
    std::function<bool()> mayCommit;
};

// An entry field with its key filter and a name for a screen reader.
EntryField* MakeEntryField(const PanelContext& context, const QString& name, KeyClass keys, const QString& accessible,
                           QWidget* parent);

// The captions of an enumeration's table, in order of value.
template <typename Table>
QStringList CaptionsOf(const Table& table) {
    QStringList captions;
    for (const auto& row : table) {
        captions += QString::fromLatin1(row.caption);
    }
    return captions;
}
