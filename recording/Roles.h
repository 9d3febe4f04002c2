#pragma once

#include <optional>
#include <span>
#include <vector>

#include "recording/Course.h"
#include "recording/Titles.h"
#include "recording/Units.h"

namespace recording {

// A column while its meaning is sought.
struct Candidate {
    const BlockColumn* place = nullptr;
    Title title;
    std::optional<Unit> unit = {};  // of its title or its cells, if it is known
    std::span<double> values = {};  // empty if they are not one for each row
    Course course = {};
    Meaning meaning = Meaning::Unknown;
    bool isSetting = false;  // beside the samples
    bool isGuess = false;    // nothing but its rise tells that it is a time

    bool IsAxis() const { return meaning == Meaning::Time || meaning == Meaning::Index || meaning == Meaning::Axis; }
};

// Decides which columns are times, which are channels and which are neither, by title, unit and course: all of them
// together, as "x" is a time beside "y", and a channel beside "t". What is left is Time, Index, Axis, Channel, Segment
// or Extra.
void FindRoles(std::vector<Candidate>* candidates);

}  // namespace recording
