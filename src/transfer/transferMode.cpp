// The transfer mode: ASCII, binary or AUTO, in the combo and in the menu.
#include "frame/mPublic.h"
#include "frame/mdiMain.h"
#include "language/frmTransferHistory.h"
#include "transfer/frmASCIIListe.h"
#include "transfer/upload.h"

void MdiMain::cboTransferMode_Click() {
    // While the log is empty (the frame's own load) the choice only resets
    // the mode; the menu ticks stay as designed, AUTO ticked.
    if (TrimBlanks(frmTransferHistory().rtfTransferHistory->Text()).isEmpty()) {
        lTransferMode = 2;
        return;
    }
    switch (cboTransferMode->ListIndex()) {
    case 0: mnuVerbindungTransferASCII_Click(); break;
    case 1: mnuVerbindungTransferBINARY_Click(); break;
    case 2: mnuVerbindungTransferAUTO_Click(); break;
    default: break;
    }
}

// Each entry sets the combo too; the combo's click that this raises runs the
// same entry again, whose own assignment then raises nothing.
void MdiMain::mnuVerbindungTransferASCII_Click() {
    lTransferMode = 1;
    // Only this entry moves the caret; the others never did.
    MoveLogCaretToEnd();
    mnuVerbindungTransferASCII->setChecked(true);
    mnuVerbindungTransferBINARY->setChecked(false);
    mnuVerbindungTransferAUTO->setChecked(false);
    cboTransferMode->SetListIndex(0);
}

void MdiMain::mnuVerbindungTransferBINARY_Click() {
    lTransferMode = 2;
    mnuVerbindungTransferASCII->setChecked(false);
    mnuVerbindungTransferBINARY->setChecked(true);
    mnuVerbindungTransferAUTO->setChecked(false);
    cboTransferMode->SetListIndex(1);
}

void MdiMain::mnuVerbindungTransferAUTO_Click() {
    lTransferMode = 2;
    mnuVerbindungTransferASCII->setChecked(false);
    mnuVerbindungTransferBINARY->setChecked(false);
    mnuVerbindungTransferAUTO->setChecked(true);
    cboTransferMode->SetListIndex(2);
}

void MdiMain::mnuVerbindungASCIIListe_Click() {
    ShowAsciiListModal();
}
