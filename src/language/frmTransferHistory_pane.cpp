// Resize and popup of the log pane.
#include "language/frmPopUpfrmTransferHistory.h"
#include "language/frmTransferHistory.h"
#include "platform/controls/twips.h"

void FrmTransferHistory::Form_Resize() {
    // The frame takes the inner size, the control the outer size.
    controls::PlaceTwips(fraTransferHistory, 2, 5, ScaleWidth() - 8, ScaleHeight() - 8);
    controls::PlaceTwips(rtfTransferHistory, 90, 195, Width() - 380, Height() - 450);
}

void FrmTransferHistory::rtfTransferHistory_MouseUp(int button, int, int x, int y) {
    // Kept: every mouse-up, of any button, touches the popup form (which
    // loads it the first time) and hides its menu.
    auto& popup = frmPopUpfrmTransferHistory();
    popup.mnu->setVisible(false);
    if (button != 2) return;
    popup.mnu->setDefaultAction(popup.mnuClipboard);
    popup.mnu->popup(rtfTransferHistory->viewport()->mapToGlobal(QPoint(ToPixels(x), ToPixels(y))));
}
