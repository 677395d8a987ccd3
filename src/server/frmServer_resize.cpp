// Geometry of the server pane.
#include "server/frmServer.h"

void FrmServer::Form_Resize() {
    controls::PlaceTwips(fraServer, 2, 0, ScaleWidth() - 10, ScaleHeight() - 1);
    controls::PlaceTwips(lsvServer, 120, 700, Width() - 375, Height() - 850);
}
