#pragma once

#include <QAction>
#include <QMenuBar>

// The menu of Main: every item with its name and caption. What an item does is connected by Main.
struct MainMenu {
    explicit MainMenu(QMenuBar* bar);

    QAction *mnulset, *mnusset, *mnucom, *mnuexit;
    QAction *mnuRdArb4, *mnuStArb4, *mnuRdArb16, *mnuStArb16, *mnueditor;
    QAction *mnuCmpArb4, *mnuCmpArb16, *mnuverify;
    QMenu* mnuab;
    QAction *mnuhilfe, *mnuhelp, *mnuguide, *mnuabout;
};
