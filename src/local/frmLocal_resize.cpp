// Geometry of the local pane.
#include "local/frmLocal.h"

void FrmLocal::Form_Resize() {
    controls::PlaceTwips(fraLocal, 2, 0, ScaleWidth() - 4, ScaleHeight() - 2);
}
