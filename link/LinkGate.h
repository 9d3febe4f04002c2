#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "platform/Desktop.h"

class LinkGate;

// The right to use the link, as long as the object lives.
class LinkOperation {
  public:
    LinkOperation(LinkOperation&& other) noexcept : gate_(std::exchange(other.gate_, nullptr)) {}
    ~LinkOperation();
    LinkOperation(const LinkOperation&) = delete;
    LinkOperation& operator=(LinkOperation&&) = delete;

  private:
    friend class LinkGate;
    explicit LinkOperation(LinkGate* gate) : gate_(gate) {}
    LinkGate* gate_;  // null: the operation goes on without it
};

// The link has one command and one reply in work, so one operation runs at a time; pacing lets the user's events run
// in the middle of it. Each user command on the link passes this gate.
class LinkGate {
  public:
    explicit LinkGate(Desktop& desktop) : desktop_(desktop) {}
    Q_DISABLE_COPY_MOVE(LinkGate)

    // Begins an operation. Nothing, after a beep, if one runs already.
    [[nodiscard]] std::optional<LinkOperation> Begin() {
        return Refuses() ? std::nullopt : std::optional<LinkOperation>(Join());
    }
    // For what may also be a step of the running operation: joins that, or begins one.
    [[nodiscard]] LinkOperation Join();
    // True, after a beep, if an operation runs: for commands that must not come in its middle.
    [[nodiscard]] bool Refuses();

    bool Running() const { return running_; }
    // The user wants the running operation to end early; long ones look at it between their steps.
    void Abandon() { abandoned_ = running_; }
    bool Abandoned() const { return abandoned_; }
    // Called when an operation has begun (true) and when it has ended (false).
    void SetWhenChanged(std::function<void(bool running)> whenChanged) { whenChanged_ = std::move(whenChanged); }

  private:
    friend class LinkOperation;
    void Set(bool running);

    Desktop& desktop_;
    bool running_ = false;
    bool abandoned_ = false;
    std::function<void(bool)> whenChanged_;
};
