#pragma once

#include <QString>

// What a rule makes of an entry.
struct Held {
    double value;  // to store, in the unit of the setting
    QString hint;  // for the hint line; empty if the rule has nothing to say
};
