// Geometry of the local pane: the folder tree above, the file list below,
// the row of tlbDirOptions, cboLocal and tlbLocal between them. Toolbars
// are placed in pixels where the pane always placed them so.
#include "frame/layout.h"
#include "frame/mPublic.h"
#include "local/frmLocal.h"
#include "platform/controls/twips.h"

namespace {
int TwipsOf(int pixels) { return ToTwips(pixels); }

// Each assignment stands alone; negative sizes are refused.
void SetWidthTwips(QWidget* w, int twips) {
    if (twips >= 0) w->resize(ToPixels(twips), w->height());
}
void SetHeightTwips(QWidget* w, int twips) {
    if (twips >= 0) w->resize(w->width(), ToPixels(twips));
}
void MoveTwips(QWidget* w, int left, int top) { w->move(ToPixels(left), ToPixels(top)); }
}  // namespace

int LocalContentTop() {
    return frmLocal.Exists() ? TwipsOf(frmLocal().trwPaths->y()) : 0;
}

void FrmLocal::Form_Resize() {
    LayoutLocalPane();
    LayoutServerPane();
    LayoutTransferHistory();
    controls::PlaceTwips(fraLocal, 2, 0, ScaleWidth() - 4, ScaleHeight() - 2);

    tlbdrvDrive->adjustSize();
    SetWidthTwips(drvDrive, Width() - TwipsOf(tlbdrvDrive->width()) - 353);
    DoEvents();
    MoveTwips(tlbdrvDrive, TwipsOf(drvDrive->x()) + TwipsOf(drvDrive->width()) + 60, TwipsOf(drvDrive->y()));
    DoEvents();

    tlbLocal->adjustSize();
    tlbDirOptions->adjustSize();
    const int localBarHeight = TwipsOf(tlbLocal->height());
    SetWidthTwips(trwPaths, Width() - 350);
    SetHeightTwips(trwPaths, (Height() - localBarHeight - 1080) / 2);
    DoEvents();
    const int treeLeft = TwipsOf(trwPaths->x());
    const int rowTop = TwipsOf(trwPaths->y()) + TwipsOf(trwPaths->height()) + 50;
    MoveTwips(tlbLocal, treeLeft + TwipsOf(trwPaths->width()) - TwipsOf(tlbLocal->width()), rowTop);
    DoEvents();
    tlbDirOptions->move(treeLeft / 15 + 3, rowTop / 15);
    DoEvents();
    const int comboLeft = tlbDirOptions->x() * 15 + tlbDirOptions->width() * 15 + 5;
    MoveTwips(cboLocal, comboLeft, rowTop);
    SetWidthTwips(cboLocal, Width() - comboLeft - TwipsOf(tlbLocal->width()) - 250);
    DoEvents();
    MoveTwips(lsvDirFile, TwipsOf(lsvDirFile->x()), TwipsOf(trwPaths->y()) + TwipsOf(trwPaths->height()) + localBarHeight + 75);
    SetHeightTwips(lsvDirFile, (Height() - localBarHeight - 1000) / 2 + 100);
    SetWidthTwips(lsvDirFile, Width() - 350);
    DoEvents();
}
