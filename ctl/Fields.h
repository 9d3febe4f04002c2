#pragma once

#include <QList>
#include <algorithm>
#include <span>

#include "core/PanelState.h"
#include "ctl/Values.h"
#include "rules/Held.h"

// One setting as the shell names it. What reads, writes, checks, lists or documents settings goes by this table.
struct Field {
    const char* name;
    const char* limits;                  // of a number: "0.0001Hz to 15MHz"
    const char* about;                   // what it is
    std::span<const char* const> words;  // of a choice: its value is the place in the list. Empty for a number
    Quantity quantity;                   // of a number

    double (*get)(const PanelState& panel);  // Of gives it
    void (*put)(PanelState& panel, double value);

    // A number only.
    Held (*hold)(const PanelState& panel, double entry);  // what the panel makes of it, whatever else is set
    std::span<const char* const> commands;                // the words ahead of it on the line
    const char* sentWhile;                                // when it is sent, for a sentence

    bool IsNumber() const { return words.empty(); }
    // A byte beyond the list, which a file may hold, means the last choice.
    double Of(const PanelState& panel) const {
        return IsNumber() ? get(panel) : std::min(get(panel), static_cast<double>(words.size() - 1));
    }
};

// Choices ahead of numbers, which depend on them. The unit of the level is a choice; put of another unit converts the
// level as the panel does.
std::span<const Field> Fields();
// Null if there is none.
const Field* FindField(const QString& name);

// "2.5MHz", "square".
QString TextOf(const Field& field, double value, const PanelState& panel);

// A value that is to be put into a field.
struct Assignment {
    const Field* field = nullptr;
    double value = 0.0;
};

// What "level=1.2Vpp" means: the level and its unit. Nothing, with a sentence in `fault`, if that is no field or no
// value of it.
std::optional<QList<Assignment>> ReadAssignment(const QString& text, QString& fault);
