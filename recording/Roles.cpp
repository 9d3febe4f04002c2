#include "recording/Roles.h"

#include <algorithm>
#include <cmath>

namespace recording {
namespace {

bool RisesOrRestarts(const Candidate& candidate) {
    return candidate.course.rises || !candidate.course.restarts.empty();
}

bool IsConstant(const Candidate& candidate) { return candidate.course.lowest == candidate.course.highest; }

bool IsPossibleChannel(const Candidate& candidate) {
    return candidate.meaning == Meaning::Channel || candidate.meaning == Meaning::Unknown;
}

// A column in seconds. A title that names a channel tells more than the unit.
Meaning MeaningOfSeconds(const Candidate& candidate) {
    const Meaning byTitle = candidate.title.Means();
    const bool hasName = !candidate.title.name.isEmpty() && candidate.title.name != candidate.title.unit;
    if (!hasName || (byTitle == Meaning::MaybeTime && RisesOrRestarts(candidate))) {
        return Meaning::Time;
    }
    const bool mayBeTime = byTitle != Meaning::Channel && byTitle != Meaning::WhichChannel;
    return mayBeTime && RisesOrRestarts(candidate) ? Meaning::MaybeTime : Meaning::Channel;
}

// By its own title and unit.
Meaning MeaningOf(const Candidate& candidate) {
    const Meaning meaning = candidate.title.Means();
    const bool rises = RisesOrRestarts(candidate);
    if (candidate.place->hasStamps || meaning == Meaning::Time) {
        return Meaning::Time;
    }
    if (candidate.unit && IsSeconds(*candidate.unit)) {
        return MeaningOfSeconds(candidate);
    }
    if (candidate.unit && candidate.unit->base != 0) {
        const bool isSpectrum = IsHertz(*candidate.unit) && rises && meaning != Meaning::Channel;
        return isSpectrum ? Meaning::Axis : meaning == Meaning::Extra ? Meaning::Extra : Meaning::Channel;
    }
    if (meaning == Meaning::Index || Title{candidate.title.unit, {}}.Means() == Meaning::Index) {  // "Sequence"
        return rises || IsConstant(candidate) ? Meaning::Index : Meaning::Channel;
    }
    if (meaning == Meaning::Axis || meaning == Meaning::MaybeTime) {
        return rises ? meaning : Meaning::Channel;
    }
    const bool isSorted = std::ranges::is_sorted(candidate.values);
    return meaning == Meaning::Segment && !isSorted ? Meaning::Channel : meaning;
}

class Roles {
  public:
    explicit Roles(std::vector<Candidate>& candidates) : candidates_(candidates) {}

    void Find() {
        for (Candidate& candidate : candidates_) {
            candidate.meaning = candidate.isSetting ? Meaning::Extra : MeaningOf(candidate);
        }
        GuessRestarts();
        ChooseTimes();
        ChooseIndex();
        FindMeasuredFrequency();
        LeaveOutLines();
        LeaveOutNumbersOfChannels();
        GuessTime();
        LeaveOutWhatRunsWithTime();
        for (Candidate& candidate : candidates_) {
            candidate.meaning = candidate.meaning == Meaning::Unknown ? Meaning::Channel : candidate.meaning;
        }
    }

  private:
    // An untitled first column that begins again is a time. ColumnReader leaves it those restarts alone in front of
    // which lines without a cell stand.
    void GuessRestarts() {
        Candidate& first = candidates_.front();
        if (first.meaning == Meaning::Unknown && first.title.name.isEmpty() && !first.course.restarts.empty()) {
            first.meaning = Meaning::Time;
            first.isGuess = true;
        }
    }

    // How sure a title that may mean a time is, the surest first.
    static int RankOf(const Candidate& candidate) {
        if (candidate.meaning == Meaning::Time) {
            return 0;
        }
        const QString& name = candidate.title.name;  // one letter, perhaps with another word behind it
        const QChar letter = name.size() == 1 || (name.size() > 1 && !name[1].isLetter()) ? name[0].toLower() : QChar();
        return letter == u'x' ? 2 : letter == u's' ? 3 : 1;
    }

    // Of the titles that may mean a time the surest do; the others are channels.
    void ChooseTimes() {
        int best = 4;
        for (const Candidate& candidate : candidates_) {
            const bool mayBe = candidate.meaning == Meaning::MaybeTime || candidate.meaning == Meaning::Time;
            best = mayBe ? std::min(best, RankOf(candidate)) : best;
        }
        for (Candidate& candidate : candidates_) {
            if (candidate.meaning == Meaning::MaybeTime) {
                const int rank = RankOf(candidate);
                candidate.meaning = rank == best ? Meaning::Time : rank == 1 ? Meaning::Unknown : Meaning::Channel;
            }
        }
    }

    // "i" and "data" count the rows only in front of all others, and where no time stands.
    void ChooseIndex() {
        const bool isKnown = std::ranges::any_of(candidates_, &Candidate::IsAxis);
        for (Candidate& candidate : candidates_) {
            if (candidate.meaning == Meaning::MaybeIndex) {
                const bool counts = &candidate == &candidates_.front() && candidate.course.countsUp;
                candidate.meaning = !isKnown && counts ? Meaning::Index : Meaning::Channel;
            }
        }
    }

    // Behind a time a frequency that rises is a channel, as a counter records it.
    void FindMeasuredFrequency() {
        bool isBehindTime = false;
        for (Candidate& candidate : candidates_) {
            isBehindTime = isBehindTime || (candidate.meaning == Meaning::Time && !candidate.isGuess);
            const bool isMeasured = isBehindTime && candidate.meaning == Meaning::Axis;
            candidate.meaning = isMeasured ? Meaning::Channel : candidate.meaning;
        }
    }

    // Of several lines of one channel, as of a peak detection, the plain one is the channel, else the first.
    void LeaveOutLines() {
        std::vector<QString> known;
        for (const Candidate& candidate : candidates_) {
            if (IsPossibleChannel(candidate) || candidate.meaning == Meaning::WhichChannel) {
                known.push_back(candidate.title.name.toLower().replace(u'_', u' ').simplified());
            }
        }
        const bool hasChannel = !known.empty();
        for (Candidate& candidate : candidates_) {
            const std::optional<QString> line = candidate.title.LineOfChannel();
            if (candidate.isSetting || candidate.meaning != Meaning::Extra || !line) {
                continue;
            }
            if (std::ranges::find(known, *line) == known.end() && !(line->isEmpty() && hasChannel)) {
                candidate.meaning = Meaning::Channel;
                known.push_back(*line);
            }
        }
    }

    // Without a title that tells, the first column is the time if it rises and is not alone.
    void GuessTime() {
        const auto first = std::ranges::find_if(
            candidates_, [](const Candidate& c) { return !c.isSetting && c.meaning != Meaning::Segment; });
        const bool isKnown = std::ranges::any_of(candidates_, &Candidate::IsAxis);
        const auto others = std::ranges::count_if(candidates_, IsPossibleChannel);
        if (!isKnown && others > 1 && first != candidates_.end() && first->meaning == Meaning::Unknown &&
            first->course.rises) {
            first->meaning = Meaning::Time;
            first->isGuess = true;
        }
    }

    // A column that nothing calls a channel and that rises in line with the time is another time or index, as long as
    // a channel is left.
    void LeaveOutWhatRunsWithTime() {
        auto left = std::ranges::count_if(candidates_, IsPossibleChannel);
        for (Candidate& candidate : candidates_) {
            const auto runsWith = [&candidate](const Candidate& axis) {
                return axis.IsAxis() && axis.course.rises && IsInLine(candidate.values, axis.values);
            };
            if (candidate.meaning == Meaning::Unknown && candidate.course.rises && left > 1 &&
                std::ranges::any_of(candidates_, runsWith)) {
                candidate.meaning = Meaning::Time;
                candidate.isGuess = true;
                --left;
            }
        }
    }

    // A number that is the same in all rows, and that nothing calls a sample, tells which channel or segment they
    // belong to: by its title, or in front of the columns that differ from row to row.
    void LeaveOutNumbersOfChannels() {
        const auto varies = [](const Candidate& c) {
            return (IsPossibleChannel(c) || c.meaning == Meaning::WhichChannel) && !IsConstant(c);
        };
        const bool isAnyLeft = std::ranges::any_of(candidates_, varies);
        bool isInFront = true;
        for (Candidate& candidate : candidates_) {
            isInFront = isInFront && (candidate.isSetting || IsConstant(candidate));
            const bool isNumber = isAnyLeft && IsConstant(candidate) && !candidate.values.empty() &&
                                  candidate.course.lowest == std::trunc(candidate.course.lowest);
            if (candidate.meaning == Meaning::WhichChannel) {
                candidate.meaning = isNumber ? Meaning::Segment : Meaning::Channel;
            } else if (candidate.meaning == Meaning::Unknown && isNumber && isInFront) {
                candidate.meaning = Meaning::Segment;
            }
        }
    }

    std::vector<Candidate>& candidates_;
};

}  // namespace

void FindRoles(std::vector<Candidate>* candidates) { Roles(*candidates).Find(); }

}  // namespace recording
