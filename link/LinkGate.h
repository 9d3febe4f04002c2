#pragma once

#include <functional>
#include <utility>

// The link has one command and one reply in work, so one operation runs at a time; pacing lets the user's events run
// in the middle of it. Each user command on the link passes this gate.
class LinkGate {
  public:
    bool Running() const { return running_; }
    // The user wants the running operation to end early; long ones look at it between their steps.
    void Abandon() { abandoned_ = running_; }
    bool Abandoned() const { return abandoned_; }
    // Called when an operation has begun (true) and when it has ended (false).
    void SetWhenChanged(std::function<void(bool running)> whenChanged) { whenChanged_ = std::move(whenChanged); }

  private:
    friend class LinkOperation;
    void Set(bool running) {
        running_ = running;
        abandoned_ = false;
        if (whenChanged_) {
            whenChanged_(running);
        }
    }
    bool running_ = false;
    bool abandoned_ = false;
    std::function<void(bool)> whenChanged_;
};

// One operation, from construction to destruction; false if another one is running already.
class LinkOperation {
  public:
    explicit LinkOperation(LinkGate& gate) : gate_(gate), entered_(!gate.Running()) {
        if (entered_) {
            gate_.Set(true);
        }
    }
    ~LinkOperation() {
        if (entered_) {
            gate_.Set(false);
        }
    }
    LinkOperation(const LinkOperation&) = delete;
    LinkOperation& operator=(const LinkOperation&) = delete;

    explicit operator bool() const { return entered_; }

  private:
    LinkGate& gate_;
    bool entered_;
};
