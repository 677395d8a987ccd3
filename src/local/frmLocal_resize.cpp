// Geometry of the local pane.
#include "frame/layout.h"
#include "local/frmLocal.h"

int LocalContentTop() {
    return 700;
}

void FrmLocal::Form_Resize() {
    LayoutLocalPane();
    LayoutServerPane();
    LayoutTransferHistory();
    controls::PlaceTwips(fraLocal, 2, 0, ScaleWidth() - 4, ScaleHeight() - 2);
}
