#include "frame/layout.h"

#include "frame/frmUploadDownload.h"
#include "frame/mdiMain.h"
#include "language/frmTransferHistory.h"
#include "local/frmLocal.h"
#include "server/frmServer.h"
#include "frame/mPublic.h"
#include "platform/controls/Form.h"

#include <cmath>

int VbRound(double value) {
    return int(std::nearbyint(value));
}

// Every assignment stands alone: a negative result is refused by the form
// and leaves the old value.

void LayoutLocalPane() {
    frmLocal().SetHeight(mdiMain().Height() - frmTransferHistory().Height() - 1570);
    frmLocal().SetWidth(VbRound(mdiMain().Width() / 2.0) - 200);
}

void LayoutServerPane() {
    frmServer().SetLeft(frmLocal().Width() + 400);
    frmServer().SetHeight(mdiMain().Height() - frmTransferHistory().Height() - 1570);
    frmServer().SetWidth(VbRound(mdiMain().Width() / 2.0) - 200);
}

void LayoutArrowBar() {
    auto& bar = frmUploadDownload();
    bar.SetHeight(mdiMain().Height() - frmTransferHistory().Height() - 1570);
    bar.SetWidth(400);
    bar.SetLeft(VbRound(mdiMain().Width() / 2.0) - 200);
    bar.SetTop(0);
    bar.PlaceArrows();
}

void LayoutTransferHistory() {
    frmTransferHistory().SetTop(mdiMain().ScaleHeight() - frmTransferHistory().Height() - 10);
    frmTransferHistory().SetWidth(mdiMain().Width());
}

void MdiMain::MDIForm_Resize() {
    controls::PlaceTwips(fraTop, 45, 15, Width() - 130, 585);
    LayoutLocalPane();
    LayoutArrowBar();
    LayoutServerPane();
    LayoutTransferHistory();
    DoEvents();
}
