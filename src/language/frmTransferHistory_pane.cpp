// Resize and popup of the log pane.
#include "language/frmTransferHistory.h"

void FrmTransferHistory::Form_Resize() {
    controls::PlaceTwips(fraTransferHistory, 2, 5, ScaleWidth() - 8, ScaleHeight() - 8);
    controls::PlaceTwips(rtfTransferHistory, 90, 195, Width() - 380, Height() - 450);
}

void FrmTransferHistory::rtfTransferHistory_MouseUp(int, int, int, int) {}
