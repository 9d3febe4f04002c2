#pragma once

#include <QAction>
#include <functional>

#include "link/MemoryTransfer.h"

// The commands of the menu "Arbitrary" that work on the link: each runs a transfer and tells the user how it ended,
// where the described captions do not. The caller holds the gate.
class TransferMenu {
  public:
    using Flash = std::function<void(const QString& hint)>;
    TransferMenu(MemoryTransfer& memory, const QAction& mnuverify, Desktop& desktop, Flash flash)
        : memory_(memory), mnuverify_(mnuverify), desktop_(desktop), flash_(std::move(flash)) {}

    void Read(const MemorySize& size);
    // Compares behind the send if mnuverify is checked and all of it went out.
    void Send(const MemorySize& size);
    void Compare(const MemorySize& size);

  private:
    void ShowStop(const MemorySize& size, const TransferResult& result, const QString& what);

    MemoryTransfer& memory_;
    const QAction& mnuverify_;
    Desktop& desktop_;
    Flash flash_;
};
