#include "waveform/EditHistory.h"

#include <algorithm>
#include <numeric>

namespace {

std::size_t Bytes(const EditStep& step) {
    return sizeof step + step.rows.size() * sizeof(RowChange) + step.elements.size() * sizeof(ArrayElement);
}

}  // namespace

void EditHistory::Keep(EditStep step, const FileStamp& before, const FileStamp& after) {
    const auto known = stamps_.find(step.fileName);
    if (known != stamps_.end() && known->second != before) {
        End(step.fileName, Reason::ChangedSince);
    }
    undone_.clear();
    stamps_[step.fileName] = after;
    step.rows.shrink_to_fit();
    done_.push_back(std::move(step));
    Trim();
}

void EditHistory::Trim() {
    std::size_t bytes = std::accumulate(done_.begin(), done_.end(), std::size_t{0},
                                        [](std::size_t sum, const EditStep& step) { return sum + Bytes(step); });
    while (done_.size() > 1 && (done_.size() > kMostSteps || bytes > kMostBytes)) {
        bytes -= Bytes(done_.front());
        done_.pop_front();
    }
}

const EditStep* EditHistory::Next(Replay way) const {
    const std::deque<EditStep>& steps = way == Replay::Undo ? done_ : undone_;
    return steps.empty() ? nullptr : &steps.back();
}

void EditHistory::Passed(Replay way, const FileStamp& stamp) {
    std::deque<EditStep>& from = way == Replay::Undo ? done_ : undone_;
    std::deque<EditStep>& to = way == Replay::Undo ? undone_ : done_;
    stamps_[from.back().fileName] = stamp;
    to.push_back(std::move(from.back()));
    from.pop_back();
}

void EditHistory::End(const QString& fileName, Reason reason) {
    const auto isOfFile = [&fileName](const EditStep& step) { return step.fileName == fileName; };
    if (std::erase_if(done_, isOfFile) + std::erase_if(undone_, isOfFile) > 0) {
        ending_ = {fileName, reason};
    }
    stamps_.erase(fileName);
}

void EditHistory::EndUnless(const IsFileOf& isFileOf) {
    const std::map<QString, FileStamp> files = stamps_;
    for (const auto& [fileName, stamp] : files) {
        const auto ends = [&isFileOf, &name = fileName, &identity = stamp.identity](const EditStep& step) {
            return step.fileName == name && !isFileOf(identity, step.target);
        };
        if (std::any_of(done_.begin(), done_.end(), ends) || std::any_of(undone_.begin(), undone_.end(), ends)) {
            End(fileName, IdentityOf(fileName) == stamp.identity ? Reason::AnotherFile : Reason::ChangedSince);
        }
    }
}
