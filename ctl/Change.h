#pragma once

#include <QStringList>

#include "ctl/Fields.h"

// A change of the instrument's setting, worked out before anything is sent.
struct Plan {
    PanelState state;  // to be sent: held by the panel's rules with all their couplings
    // A sentence for each value that is not as it was asked for, or as it stood: it is out of its limits, gives way to
    // another one, is not sent, or loses digits on the line.
    QStringList remarks;
    // By the order of Fields(): what goes out; none for a number that this state does not send. Of a choice: its value.
    std::vector<std::optional<double>> sent;
};

// A sentence for each number that is out of its limits whatever else is set.
QStringList OutOfLimits(const QList<Assignment>& assignments);

// Puts the values into the state and holds the result.
Plan PlanChange(PanelState state, QList<Assignment> assignments);

// The lines that set the instrument to a state, in order. They cut the frequency of a triangular signal in the state.
QStringList SettingLines(PanelState& panel);

// A sentence for each thing that was sent and is reported otherwise.
QStringList Differences(const Plan& plan, const PanelState& reported);
