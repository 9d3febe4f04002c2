#include "editor/EditorMenu.h"

#include <QActionGroup>

#include "widgets/Controls.h"

EditorMenu::EditorMenu(QMenuBar* bar) {
    QMenu* const mnumode = AddMenu(bar, "mnumode", "&Memory");
    mnu4ksig = AddItem(mnumode, "mnu4ksig", "&4K Signal");
    mnu16ksig = AddItem(mnumode, "mnu16ksig", "&16K Signal ");
    auto* const sizes = new QActionGroup(bar);
    for (QAction* const size : {mnu4ksig, mnu16ksig}) {
        size->setCheckable(true);
        sizes->addAction(size);
    }
    mnumode->addSeparator();
    mnuformula = AddItem(mnumode, "mnuformula", "Fill by &formula...");
    mnusavecsv = AddItem(mnumode, "mnusavecsv", "Save as &CSV...");
    QMenu* const mnusignal = AddMenu(bar, "mnusignal", "&Signal");
    mnuncon = AddItem(mnusignal, "mnuncon", "&New construction data");
    mnulcon = AddItem(mnusignal, "mnulcon", "&Load construction data");
    mnusignal->addSeparator();
    mnudelete = AddItem(mnusignal, "mnudelete", "&Delete signal / memory");
    mnusignal->addSeparator();
    mnulinint = AddItem(mnusignal, "mnulinint", "&Generate memory data");
    QMenu* const mnuimport = AddMenu(bar, "mnuimport", "&Import from QD204");
    mnurdbincha = AddItem(mnuimport, "mnurdbincha", "Read Ch&A  and paste(over DDE)");
    mnuchamulti = AddItem(mnuimport, "mnuchamulti", "Read ChA  &multiple to the memory(over DDE)");
    mnuchafit = AddItem(mnuimport, "mnuchafit", "Read ChA  &fit to signal (over DDE)");
    mnuimport->addSeparator();
    mnurdbinchb = AddItem(mnuimport, "mnurdbinchb", "Read Ch&B and paste(over DDE)");
    mnuchbmulti = AddItem(mnuimport, "mnuchbmulti", "Read ChB  m&ultiple to the memory(over DDE)");
    mnuchbfit = AddItem(mnuimport, "mnuchbfit", "Read ChB  f&it to signal (over DDE)");
    mnuimport->addSeparator();
    mnuopenrec = AddItem(mnuimport, "mnuopenrec", "&Open recording...");
    QMenu* const mnuedit = AddMenu(bar, "mnuedit", "&Edit");
    mnuundo = AddItem(mnuedit, "mnuundo", "&Undo");
    mnuundo->setShortcut(Qt::CTRL | Qt::Key_Z);
    mnuredo = AddItem(mnuedit, "mnuredo", "&Redo");
    mnuredo->setShortcuts({Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y});
}
