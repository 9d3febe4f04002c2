#pragma once

#include <string>
#include <string_view>

#include "simulator/TraceOptions.h"

namespace sim {

struct TraceAnswer {
    std::string bytes = {};  // with the line feed at its end; nothing is sent if empty
    bool hangUp = false;
};

// One client's conversation with the trace source, message by message. Has no socket and no clock.
class TraceConversation {
  public:
    // The options must outlive the conversation.
    explicit TraceConversation(const TraceOptions& options) : options_(options) {}

    // Takes a message without its line feed.
    TraceAnswer Take(std::string_view message);

  private:
    std::string Answer(std::string_view step, std::string_view rest);
    std::string Item() const;

    const TraceOptions& options_;
    bool initiated_ = false;
    const Trace* item_ = nullptr;  // the trace of the channel that was asked for last
};

}  // namespace sim
