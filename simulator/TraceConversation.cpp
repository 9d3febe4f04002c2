#include "simulator/TraceConversation.h"

#include <algorithm>

namespace sim {
namespace {

using std::string_view;

constexpr string_view kTopic = "qd204e|dde";
constexpr string_view kItem = "data";
constexpr std::array<string_view, 2> kChannelCommands{"getbincha", "getbinchb"};
constexpr std::size_t kEndlessBytes = 4'000'000;

}  // namespace

TraceAnswer TraceConversation::Take(string_view message) {
    const std::size_t blank = std::min(message.find(' '), message.size());
    const std::string step(message.substr(0, blank));
    const TraceFaults& faults = options_.faults;
    if (step == "terminate" || faults.hangUpOn.contains(step)) {
        return {.hangUp = true};
    }
    if (faults.silentOn.contains(step)) {
        return {};
    }
    if (faults.nonsenseOn.contains(step)) {
        return {.bytes = "What do you mean?\n"};
    }
    return {.bytes = Answer(step, message.substr(std::min(blank + 1, message.size()))) + '\n'};
}

std::string TraceConversation::Answer(string_view step, string_view rest) {
    if (step == "initiate") {
        initiated_ = rest == kTopic;
        return initiated_ ? "ok" : "error no such application and topic";
    }
    if (!initiated_) {
        return "error no conversation";
    }
    if (step == "execute") {
        const auto* command = std::ranges::find(kChannelCommands, rest);
        if (command == kChannelCommands.end()) {
            return "error no such command";
        }
        item_ = &options_.channels[static_cast<std::size_t>(command - kChannelCommands.begin())];
        return "ok";
    }
    if (step == "request") {
        return rest == kItem && item_ != nullptr ? "ok " + Item() : "error no such item";
    }
    return "error no such message";
}

std::string TraceConversation::Item() const {
    const TraceFaults& faults = options_.faults;
    if (faults.endlessReply) {
        return std::string(kEndlessBytes, '5');
    }
    const std::size_t count =
        faults.emptyReply ? 0 : std::min(faults.shortReply.value_or(kTraceSamples), kTraceSamples);
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        const bool isFaulty = i == count / 2;
        text += i > 0 ? "," : "";
        if (isFaulty && faults.noNumber) {
            text += "overload";
        } else {
            text += std::to_string(isFaulty && faults.beyond16Bits ? 40000 : (*item_)[i]);
        }
    }
    return text;
}

}  // namespace sim
