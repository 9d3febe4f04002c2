#include "panel/MainMenu.h"

namespace {

QMenu* AddMenu(QMenuBar* bar, const char* name, const char* caption) {
    QMenu* const menu = bar->addMenu(QString::fromLatin1(caption));
    menu->setObjectName(QString::fromLatin1(name));
    menu->setToolTipsVisible(true);
    return menu;
}

QAction* AddItem(QMenu* menu, const char* name, const char* caption) {
    QAction* const action = menu->addAction(QString::fromLatin1(caption));
    action->setObjectName(QString::fromLatin1(name));
    return action;
}

}  // namespace

MainMenu::MainMenu(QMenuBar* bar) {
    QMenu* const mnudata = AddMenu(bar, "mnudata", "&Data");
    mnulset = AddItem(mnudata, "mnulset", "&Load settings");
    mnusset = AddItem(mnudata, "mnusset", "&Save settings");
    mnucom = AddItem(mnudata, "mnucom", "Com. port");
    mnuexit = AddItem(mnudata, "mnuexit", "&Exit");
    QMenu* const mnuArb = AddMenu(bar, "mnuArb", "&Arbitrary");
    mnuRdArb4 = AddItem(mnuArb, "mnuRdArb4", "&Read Arb. 4k ");
    mnuStArb4 = AddItem(mnuArb, "mnuStArb4", "&Send Arb. 4K");
    mnuRdArb16 = AddItem(mnuArb, "mnuRdArb16", "R&ead Arb. 16k ");
    mnuStArb16 = AddItem(mnuArb, "mnuStArb16", "Se&nd Arb. 16K");
    mnueditor = AddItem(mnuArb, "mnueditor", "E&ditor");
    QMenu* const mnuab = AddMenu(bar, "mnuab", "?");
    mnuhilfe = AddItem(mnuab, "mnuhilfe", "Handbuch deutsch (PDF)");
    mnuhelp = AddItem(mnuab, "mnuhelp", "Manual english (PDF)");
    mnuabout = AddItem(mnuab, "mnuabout", "About");
    mnueditor->setEnabled(false);  // the editor isn't there yet
}
