#pragma once

#include "link/Link.h"
#include "link/SilentFront.h"
#include "stand_ins/FakeDesktop.h"
#include "stand_ins/ScriptedLine.h"
#include "support/PrintQt.h"

// The link with a scripted line, clock and desktop.
struct LinkBench : ::testing::Test {
    ProgramState program;
    ScriptedClock clock;
    ScriptedLine line{clock};
    FakeDesktop desktop;
    struct : SilentFront {
        bool holds = false;  // the user's input
        void HoldInput(bool hold) override { holds = hold; }
    } front;
    Link link{program, line, clock, desktop, front};

    LinkState& state = program.link;
    PanelState& panel = program.panel;

    void ConnectSilently() {
        link.connection.OpenComPort();
        line.wire.clear();
    }
};

inline const QString kReadError = QStringLiteral("Serial - Error| Data read error ( %1\r )");
