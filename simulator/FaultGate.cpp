#include "simulator/FaultGate.h"

#include <algorithm>

namespace sim {

void FaultGate::Set(const Faults& faults, TimePoint now) {
    faults_ = faults;
    setAt_ = now;
    queries_ = 0;
    lines_ = 0;
}

bool FaultGate::VanishesAtLine() { return faults_.vanishAfterLines && lines_++ >= *faults_.vanishAfterLines; }

ShapedReply FaultGate::Shape(const std::string& query, const std::string& reply) {
    const bool muted = faults_.muteAfterQueries && queries_ >= *faults_.muteAfterQueries;
    ++queries_;
    if (muted || faults_.silentOn.contains(query)) {
        return {};
    }
    if (faults_.loneCr || faults_.loneCrOn.contains(query)) {
        return {"\r", false};
    }
    const std::string words = WordsOf(query, reply);
    if (faults_.endlessReply) {
        return {words, true};
    }
    if (faults_.cutReplyBytes) {
        return {words.substr(0, *faults_.cutReplyBytes), false};
    }
    return {words + '\r', false};
}

std::string FaultGate::WordsOf(const std::string& query, const std::string& reply) const {
    std::string words = reply;
    if (query == "sta?" && faults_.lowerCaseStatus) {
        std::ranges::transform(words, words.begin(),
                               [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    }
    const bool isNumber = query != "sta?" && query != "ID?" && query != "VER?";
    if (isNumber && faults_.garbledNumbers) {
        const std::size_t equals = words.find('=');  // the number of a memory point stands behind it
        words.insert(equals == std::string::npos ? 0 : equals + 1, "VALUE ");
    }
    return words;
}

std::optional<FaultGate::TimePoint> FaultGate::StallEnd(TimePoint now) const {
    if (faults_.stall.count() <= 0) {
        return std::nullopt;
    }
    TimePoint start = setAt_;
    if (faults_.stallEvery.count() > 0) {
        const auto interval = (now - setAt_) / faults_.stallEvery;
        if (interval < 1) {
            return std::nullopt;
        }
        start += interval * faults_.stallEvery;
    }
    const TimePoint end = start + faults_.stall;
    return now < end ? std::optional(end) : std::nullopt;
}

}  // namespace sim
