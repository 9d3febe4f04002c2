#include "link/LinkGate.h"

LinkOperation::~LinkOperation() {
    if (gate_ != nullptr) {
        gate_->Set(false);
    }
}

LinkOperation LinkGate::Join() {
    if (running_) {
        return LinkOperation(nullptr);
    }
    Set(true);
    return LinkOperation(this);
}

bool LinkGate::Refuses() {
    if (running_) {
        desktop_.Beep();
    }
    return running_;
}

void LinkGate::Set(bool running) {
    running_ = running;
    abandoned_ = false;
    if (whenChanged_) {
        whenChanged_(running);
    }
}
