// Geometry of the server pane. Toolbars are placed in pixels, the rest in
// twips, as the pane always has.
#include "frame/layout.h"
#include "frame/mPublic.h"
#include "local/frmLocal.h"
#include "platform/controls/twips.h"
#include "server/frmServer.h"

namespace {
int TwipsWidth(const QWidget* w) { return ToTwips(w->width()); }
}  // namespace

void FrmServer::Form_Resize() {
    controls::PlaceTwips(fraServer, 2, 0, ScaleWidth() - 10, ScaleHeight() - 1);
    tlbServerRechts->adjustSize();
    tlbServerLinks->adjustSize();
    tlbServerLinks->move(8, ToPixels(270));
    tlbServerRechts->move(ToPixels(Width() - TwipsWidth(tlbServerRechts) - 300), ToPixels(270));
    const int comboLeft = tlbServerLinks->x() * 15 + tlbServerLinks->width() * 15 + 1;
    cboServer->move(ToPixels(comboLeft), ToPixels(270));
    DoEvents();
    const int comboWidth = Width() - comboLeft - TwipsWidth(tlbServerRechts) - 350;
    if (comboWidth >= 0) cboServer->resize(ToPixels(comboWidth), cboServer->sizeHint().height());
    // The tops of both panes' contents stand level.
    controls::PlaceTwips(lsvServer, 120, LocalContentTop(), Width() - 375, Height() - 850);
    LayoutLocalPane();
    LayoutServerPane();
    LayoutTransferHistory();
}
