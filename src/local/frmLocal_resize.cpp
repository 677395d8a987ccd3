// Geometry of the local pane: the folder tree above, the file list below,
// the row of tlbDirOptions, cboLocal and tlbLocal between them, each half
// of the pane. Each assignment stands alone; an event turn follows the
// steps that repaint.
#include "local/frmLocal.h"
#include "platform/controls/twips.h"
#include "shared/mPublic.h"

using controls::HeightOf;
using controls::LeftOf;
using controls::TopOf;
using controls::WidthOf;

void FrmLocal::Form_Resize() {
    controls::PlaceTwips(fraLocal, 2, 0, ScaleWidth() - 4, ScaleHeight() - 2);

    tlbdrvDrive->adjustSize();
    controls::SetWidthOf(drvDrive, Width() - WidthOf(tlbdrvDrive) - 353);
    DoEvents();
    controls::SetTopOf(tlbdrvDrive, TopOf(drvDrive));
    controls::SetLeftOf(tlbdrvDrive, LeftOf(drvDrive) + WidthOf(drvDrive) + 60);
    DoEvents();

    tlbLocal->adjustSize();
    tlbDirOptions->adjustSize();
    controls::SetWidthOf(trwPaths, Width() - 350);
    controls::SetHeightOf(trwPaths, (Height() - HeightOf(tlbLocal) - 1080) / 2);
    DoEvents();
    const int rowTop = TopOf(trwPaths) + HeightOf(trwPaths) + 50;
    controls::SetTopOf(tlbLocal, rowTop);
    controls::SetLeftOf(tlbLocal, LeftOf(trwPaths) + WidthOf(trwPaths) - WidthOf(tlbLocal));
    DoEvents();
    // Kept: this toolbar is placed in pixels, three to the right of the
    // tree's left edge; the combo beside it is placed from those pixels.
    tlbDirOptions->move(ToPixels(LeftOf(trwPaths)) + 3, ToPixels(rowTop));
    DoEvents();
    const int comboLeft = LeftOf(tlbDirOptions) + WidthOf(tlbDirOptions) + 5;
    controls::SetLeftOf(cboLocal, comboLeft);
    controls::SetTopOf(cboLocal, rowTop);
    controls::SetWidthOf(cboLocal, Width() - comboLeft - WidthOf(tlbLocal) - 250);
    DoEvents();
    controls::SetTopOf(lsvDirFile, TopOf(trwPaths) + HeightOf(trwPaths) + HeightOf(tlbLocal) + 75);
    controls::SetHeightOf(lsvDirFile, (Height() - HeightOf(tlbLocal) - 1000) / 2 + 100);
    controls::SetWidthOf(lsvDirFile, Width() - 350);
    DoEvents();
}
