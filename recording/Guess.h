#pragma once

#include <string>
#include <vector>

#include "recording/Rows.h"

namespace recording {

struct Choice;

// What the lines of a text tell about its form.
struct Guess {
    Form form;
    // Nothing but the comma separates cells, and nobody has said that it does: it may be the decimal mark after all.
    bool commaByGuess = false;
    bool commaMayBeDecimal = false;  // it stands between two whole numbers in each line
    // Commas stand between the cells and are decimal marks too: no reading is right.
    bool commasAreBoth = false;
    // A number that shows no more than the others what its comma means; empty if the meaning is clear.
    std::string unclear = {};
};

// Decides by the lines that hold digits and do not begin with a word, as those of a header do; by all if there are no
// others. What the user has chosen stands.
Guess GuessForm(const std::vector<std::string>& lines, const Choice& choice);

}  // namespace recording
