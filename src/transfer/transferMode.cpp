#include "transfer/transferMode.h"

#include "language/frmTransferHistory.h"
#include "platform/wintypes.h"
#include "shared/mPublic.h"
#include "transfer/upload.h"

namespace {
void Tick(const TransferModeControls& c, const QAction* chosen) {
    for (QAction* entry : {c.ascii, c.binary, c.automatic})
        if (entry) entry->setChecked(entry == chosen);
}
}  // namespace

void TransferModeComboClick(const TransferModeControls& c) {
    // The menu ticks stay as designed on this path, AUTO ticked.
    if (TrimBlanks(frmTransferHistory().rtfTransferHistory->Text()).isEmpty()) {
        lTransferMode = FTP_TRANSFER_TYPE_BINARY;
        return;
    }
    switch (c.combo ? c.combo->ListIndex() : -1) {
    case 0: TransferModeASCII(c); break;
    case 1: TransferModeBINARY(c); break;
    case 2: TransferModeAUTO(c); break;
    default: break;
    }
}

void TransferModeASCII(const TransferModeControls& c) {
    lTransferMode = FTP_TRANSFER_TYPE_ASCII;
    // Kept: only this entry moves the log's caret; the others don't.
    MoveLogCaretToEnd();
    Tick(c, c.ascii);
    if (c.combo) c.combo->SetListIndex(0);
}

void TransferModeBINARY(const TransferModeControls& c) {
    lTransferMode = FTP_TRANSFER_TYPE_BINARY;
    Tick(c, c.binary);
    if (c.combo) c.combo->SetListIndex(1);
}

void TransferModeAUTO(const TransferModeControls& c) {
    lTransferMode = FTP_TRANSFER_TYPE_BINARY;
    Tick(c, c.automatic);
    if (c.combo) c.combo->SetListIndex(2);
}
