#include "panel/MainMenu.h"

#include "widgets/Controls.h"

MainMenu::MainMenu(QMenuBar* bar) {
    QMenu* const mnudata = AddMenu(bar, "mnudata", "&Data");
    mnulset = AddItem(mnudata, "mnulset", "&Load settings");
    mnulset->setShortcut(Qt::CTRL | Qt::Key_O);
    mnusset = AddItem(mnudata, "mnusset", "&Save settings");
    mnusset->setShortcut(Qt::CTRL | Qt::Key_S);
    mnucom = AddItem(mnudata, "mnucom", "Com. port");
    mnucom->setShortcut(Qt::CTRL | Qt::Key_P);
    mnuexit = AddItem(mnudata, "mnuexit", "&Exit");
    QMenu* const mnuArb = AddMenu(bar, "mnuArb", "&Arbitrary");
    mnuRdArb4 = AddItem(mnuArb, "mnuRdArb4", "&Read Arb. 4k ");
    mnuStArb4 = AddItem(mnuArb, "mnuStArb4", "&Send Arb. 4K");
    mnuRdArb16 = AddItem(mnuArb, "mnuRdArb16", "R&ead Arb. 16k ");
    mnuStArb16 = AddItem(mnuArb, "mnuStArb16", "Se&nd Arb. 16K");
    mnueditor = AddItem(mnuArb, "mnueditor", "E&ditor");
    mnueditor->setShortcut(Qt::CTRL | Qt::Key_E);
    mnuArb->addSeparator();
    mnuCmpArb4 = AddItem(mnuArb, "mnuCmpArb4", "&Compare Arb. 4k");
    mnuCmpArb16 = AddItem(mnuArb, "mnuCmpArb16", "C&ompare Arb. 16k");
    for (QAction* const compare : {mnuCmpArb4, mnuCmpArb16}) {
        compare->setToolTip(QStringLiteral("Read the memory back and compare it with the one in the PC, which stays"));
    }
    mnuverify = AddItem(mnuArb, "mnuverify", "&Verify after send");
    mnuverify->setToolTip(QStringLiteral("Compare by itself behind each memory that was sent"));
    mnuverify->setCheckable(true);
    mnuab = AddMenu(bar, "mnuab", "?");
    mnuhilfe = AddItem(mnuab, "mnuhilfe", "Handbuch deutsch (PDF)");
    mnuhelp = AddItem(mnuab, "mnuhelp", "Manual english (PDF)");
    mnuabout = AddItem(mnuab, "mnuabout", "About");
    mnuab->addSeparator();
    mnuguide = AddItem(mnuab, "mnuguide", "&Guide");
    // These captions have no mnemonic, so the items get shortcuts.
    mnuhilfe->setShortcut(Qt::SHIFT | Qt::Key_F1);
    mnuhelp->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_F1);
    mnuabout->setShortcut(Qt::CTRL | Qt::Key_F1);
    mnuguide->setShortcut(Qt::Key_F1);
}
