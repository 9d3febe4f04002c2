#pragma once

#include <QAction>
#include <QMenuBar>

// The menu of the editor: every item with its name and caption. What an item does is connected by the form.
struct EditorMenu {
    explicit EditorMenu(QMenuBar* bar);

    QAction *mnu4ksig, *mnu16ksig;  // one of them is checked: the current size
    QAction *mnuformula, *mnusavecsv;
    QAction *mnuncon, *mnulcon, *mnudelete, *mnulinint;
    QAction *mnuundo, *mnuredo;
    QAction *mnurdbincha, *mnuchamulti, *mnuchafit, *mnurdbinchb, *mnuchbmulti, *mnuchbfit;
    QAction* mnuopenrec;
};
