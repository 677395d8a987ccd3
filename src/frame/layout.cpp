#include "frame/layout.h"

#include "frame/frmUploadDownload.h"
#include "frame/mdiMain.h"
#include "language/frmTransferHistory.h"
#include "local/frmLocal.h"
#include "platform/controls/twips.h"
#include "server/frmServer.h"
#include "shared/mPublic.h"

#include <cmath>

namespace {
constexpr int kStripWidth = 400;      // frmUploadDownload, the gap between the panes
constexpr int kHalfStrip = 200;       // taken off half the frame's width for each pane
constexpr int kFrameAllowance = 1570;  // what of the frame's height is neither pane nor log
constexpr int kLogGap = 10;           // above the log
constexpr int kLogStartHeight = 2000;

int PaneHeight() {
    return mdiMain().Height() - frmTransferHistory().Height() - kFrameAllowance;
}

int PaneWidth() {
    return VbRound(mdiMain().Width() / 2.0) - kHalfStrip;
}

// A resize of the local pane lays out the others before its own controls,
// one of the server pane after its own, with its list level with the local
// folder tree.
void LayOutOthersBeforeLocal() {
    frmLocal().beforeResize = [] {
        LayoutLocalPane();
        LayoutServerPane();
        LayoutTransferHistory();
    };
}

void LayOutOthersAfterServer() {
    frmServer().afterResize = [] {
        if (frmLocal.Exists()) controls::SetTopOf(frmServer().lsvServer, controls::TopOf(frmLocal().trwPaths));
        LayoutLocalPane();
        LayoutServerPane();
        LayoutTransferHistory();
    };
}
}  // namespace

int VbRound(double value) {
    return int(std::nearbyint(value));
}

// Every assignment stands alone: a negative result is refused by the form
// and leaves the old value.

void LayoutLocalPane() {
    frmLocal().SetHeight(PaneHeight());
    frmLocal().SetWidth(PaneWidth());
}

void LayoutServerPane() {
    frmServer().SetLeft(frmLocal().Width() + kStripWidth);
    frmServer().SetHeight(PaneHeight());
    frmServer().SetWidth(PaneWidth());
}

void LayoutArrowBar() {
    auto& bar = frmUploadDownload();
    bar.SetHeight(PaneHeight());
    bar.SetWidth(kStripWidth);
    bar.SetLeft(PaneWidth());
    bar.SetTop(0);
    bar.PlaceArrows();
}

void LayoutTransferHistory() {
    frmTransferHistory().SetTop(mdiMain().ScaleHeight() - frmTransferHistory().Height() - kLogGap);
    frmTransferHistory().SetWidth(mdiMain().Width());
}

void LoadPanes() {
    auto& frame = mdiMain();
    frame.AttachChild(&frmLocal());
    LayOutOthersBeforeLocal();
    frmLocal().SetLeft(0);
    frmLocal().SetTop(0);
    frmLocal().SetWidth(PaneWidth());
    frmLocal().show();

    frame.AttachChild(&frmUploadDownload());
    frmUploadDownload().SetLeft(frmLocal().Left() + frmLocal().Width());
    frmUploadDownload().SetTop(0);
    frmUploadDownload().SetWidth(kStripWidth);
    frmUploadDownload().show();

    frame.AttachChild(&frmServer());
    LayOutOthersAfterServer();
    frmServer().SetLeft(frmLocal().Width() + kStripWidth);
    frmServer().SetTop(0);
    frmServer().SetWidth(PaneWidth());
    frmServer().show();

    LayoutTransferHistory();
    LayoutLocalPane();
    LayoutArrowBar();
    LayoutServerPane();

    frame.AttachChild(&frmTransferHistory());
    frmTransferHistory().SetHeight(kLogStartHeight);
    frmTransferHistory().SetTop(frame.Height() - frmLocal().Top() - frmLocal().Height() - kLogGap);
    frmTransferHistory().SetLeft(0);
    frmTransferHistory().SetWidth(frame.Width());
    frmTransferHistory().SetHeight(frmTransferHistory().Height() + kLogGap);
    frmTransferHistory().show();
}

void MdiMain::MDIForm_Resize() {
    controls::SetWidthOf(fraTop, Width() - 130);
    LayoutLocalPane();
    LayoutArrowBar();
    LayoutServerPane();
    LayoutTransferHistory();
    DoEvents();
}
