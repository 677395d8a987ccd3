// Geometry of the server pane: the command toolbar, the path combo and the
// view toolbar in a row, the list below. Each assignment stands alone.
#include "platform/controls/twips.h"
#include "server/frmServer.h"
#include "shared/mPublic.h"

using controls::LeftOf;
using controls::WidthOf;

void FrmServer::Form_Resize() {
    controls::PlaceTwips(fraServer, 2, 0, ScaleWidth() - 10, ScaleHeight() - 1);
    tlbServerRechts->adjustSize();
    tlbServerLinks->adjustSize();
    controls::SetLeftOf(tlbServerLinks, kCommandsLeft);
    controls::SetTopOf(tlbServerLinks, kRowTop);
    controls::SetLeftOf(tlbServerRechts, Width() - WidthOf(tlbServerRechts) - 300);
    controls::SetTopOf(tlbServerRechts, kRowTop);
    const int comboLeft = LeftOf(tlbServerLinks) + WidthOf(tlbServerLinks) + 1;
    controls::SetLeftOf(cboServer, comboLeft);
    controls::SetTopOf(cboServer, kRowTop);
    DoEvents();
    controls::SetWidthOf(cboServer, Width() - comboLeft - WidthOf(tlbServerRechts) - 350);
    // The list's top stands level with the local pane's tree; the frame's
    // layout sets it after this.
    controls::SetWidthOf(lsvServer, Width() - 375);
    controls::SetHeightOf(lsvServer, Height() - 850);
}
