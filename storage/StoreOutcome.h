#pragma once

#include <exception>

// How long a lock that another connection holds on a file is waited for.
inline constexpr int kLockWaitMs = 2000;

enum class StoreOutcome {
    Done,
    Missing,       // no file of that name, or a folder or a device
    NotADatabase,  // a file of another kind, or a damaged one
    Locked,        // another connection kept its lock for longer than kLockWaitMs
    ChangedSince,  // another connection has changed what was to be taken back or made again
    Failed,        // no permission, no such table, full disk, fault of the disk
};

// What an exception of the engine means; anything else that was thrown is Failed.
StoreOutcome OutcomeOf(const std::exception& fault);
