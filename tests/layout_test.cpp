// The arithmetic that places the panes and the log at every resize.
#include "support/frame_fixture.h"

#include "frame/frmUploadDownload.h"
#include "frame/mdiMain.h"
#include "language/frmTransferHistory.h"
#include "local/frmLocal.h"
#include "platform/controls/twips.h"
#include "server/frmServer.h"

#include <utility>

namespace {

class Layout : public StartedFrameTest {
protected:
    static void ResizeFrame(int widthTwips, int heightTwips) {
        mdiMain().SetWidth(widthTwips);
        mdiMain().SetHeight(heightTwips - MdiMain::kTitleAllowance);
        Pump();
    }
};

TEST_F(Layout, StartLayoutSplitsTheFrameIntoTwoEqualPanesAndAFixedStrip) {
    const int w = mdiMain().Width();
    EXPECT_EQ(frmLocal().Left(), 0);
    EXPECT_EQ(frmLocal().Width(), frmServer().Width());
    EXPECT_EQ(frmUploadDownload().Width(), 400);
    EXPECT_EQ(frmUploadDownload().Left(), frmLocal().Width());
    EXPECT_EQ(frmServer().Left(), frmLocal().Width() + 400);
    EXPECT_NEAR(frmLocal().Width() * 2 + 400, w, 1);
    EXPECT_EQ(frmTransferHistory().Height(), 2010);
    EXPECT_EQ(frmTransferHistory().Width(), w);
    EXPECT_EQ(frmLocal().Height(), mdiMain().Height() - 2010 - 1570);
}

TEST_F(Layout, WideningByTwoHundredWidensEachPaneByAHundredAndKeepsTheStripCentred) {
    ResizeFrame(12000, 9000);
    const int local = frmLocal().Width(), server = frmServer().Width();
    ResizeFrame(12200, 9000);
    EXPECT_EQ(frmLocal().Width(), local + 100);
    EXPECT_EQ(frmServer().Width(), server + 100);
    EXPECT_EQ(frmUploadDownload().Width(), 400);
    EXPECT_EQ(frmUploadDownload().Left() + 200, 12200 / 2);
    EXPECT_EQ(frmServer().Left(), frmLocal().Width() + 400);
}

TEST_F(Layout, GrowingTheHeightGrowsThePanesAndMovesTheLogDown) {
    ResizeFrame(12000, 9000);
    const int paneHeight = frmLocal().Height();
    const int logTop = frmTransferHistory().Top();
    ResizeFrame(12000, 9300);
    EXPECT_EQ(frmLocal().Height(), paneHeight + 300);
    EXPECT_EQ(frmServer().Height(), paneHeight + 300);
    EXPECT_EQ(frmUploadDownload().Height(), paneHeight + 300);
    EXPECT_EQ(frmTransferHistory().Height(), 2010);
    EXPECT_EQ(frmTransferHistory().Top(), logTop + 300);
}

TEST_F(Layout, AFrameNarrowerThanTheStripKeepsTheOldPaneWidths) {
    ResizeFrame(12000, 9000);
    const int local = frmLocal().Width();
    ResizeFrame(300, 9000);
    EXPECT_EQ(frmLocal().Width(), local);
    EXPECT_EQ(frmServer().Width(), local);
    EXPECT_EQ(frmUploadDownload().Width(), 400);
}

TEST_F(Layout, ArrowsStandAroundTheMiddleOfTheStripWithOneToolbarHeightBetween) {
    auto& bar = frmUploadDownload();
    ASSERT_EQ(bar.tlbUpload->ButtonCount(), 1);
    ASSERT_EQ(bar.tlbDownload->ButtonCount(), 1);
    EXPECT_EQ(bar.tlbUpload->Button(1)->key, "upload");
    EXPECT_EQ(bar.tlbDownload->Button(1)->key, "del");
    const int middle = bar.height() / 2;
    EXPECT_LE(bar.tlbUpload->geometry().bottom(), middle);
    EXPECT_GE(bar.tlbDownload->geometry().top(), middle + bar.tlbDownload->height() - 1);
    // Two twips from the left: less than a pixel.
    EXPECT_EQ(bar.tlbUpload->x(), 0);
    EXPECT_EQ(bar.tlbDownload->x(), 0);
}

TEST_F(Layout, ATooSmallHeightIsRefusedAndTheWidthStillFollows) {
    ResizeFrame(14000, 9000);
    const int paneHeight = frmLocal().Height();
    const int treeHeight = controls::HeightOf(frmLocal().trwPaths);
    // The panes keep their height; inside the local pane the tree is too
    // low for its share and keeps its height too, while every width
    // follows the frame.
    ResizeFrame(17000, 4500);
    EXPECT_EQ(frmLocal().Height(), 4500 - 2010 - 1570);
    EXPECT_EQ(frmLocal().Width(), 17000 / 2 - 200);
    EXPECT_EQ(controls::HeightOf(frmLocal().trwPaths), treeHeight);
    EXPECT_NEAR(controls::WidthOf(frmLocal().trwPaths), frmLocal().Width() - 350, 14);
    ResizeFrame(17000, 3000);
    EXPECT_EQ(frmLocal().Height(), 4500 - 2010 - 1570);
    EXPECT_NE(frmLocal().Height(), paneHeight);
}

// Read back from whole pixels, a place in twips is within a pixel of the
// arithmetic.
#define EXPECT_TWIPS(actual, expected) EXPECT_NEAR(actual, expected, 14)

TEST_F(Layout, TheLocalPaneHasTheTreeAboveTheListAndTheRowOfControlsBetween) {
    using namespace controls;
    for (const auto& [w, h] : {std::pair{14000, 9000}, std::pair{19000, 12000}}) {
        ResizeFrame(w, h);
        const auto& p = frmLocal();
        EXPECT_TWIPS(WidthOf(p.drvDrive), p.Width() - WidthOf(p.tlbdrvDrive) - 353);
        EXPECT_EQ(TopOf(p.tlbdrvDrive), TopOf(p.drvDrive));
        EXPECT_TWIPS(LeftOf(p.tlbdrvDrive), LeftOf(p.drvDrive) + WidthOf(p.drvDrive) + 60);
        EXPECT_TWIPS(WidthOf(p.trwPaths), p.Width() - 350);
        EXPECT_TWIPS(HeightOf(p.trwPaths), (p.Height() - HeightOf(p.tlbLocal) - 1080) / 2);
        const int rowTop = TopOf(p.trwPaths) + HeightOf(p.trwPaths) + 50;
        EXPECT_TWIPS(TopOf(p.tlbLocal), rowTop);
        EXPECT_TWIPS(LeftOf(p.tlbLocal), LeftOf(p.trwPaths) + WidthOf(p.trwPaths) - WidthOf(p.tlbLocal));
        EXPECT_EQ(p.tlbDirOptions->x(), p.trwPaths->x() + 3);  // placed in pixels
        EXPECT_TWIPS(TopOf(p.tlbDirOptions), rowTop);
        const int comboLeft = LeftOf(p.tlbDirOptions) + WidthOf(p.tlbDirOptions) + 5;
        EXPECT_TWIPS(LeftOf(p.cboLocal), comboLeft);
        EXPECT_TWIPS(TopOf(p.cboLocal), rowTop);
        EXPECT_TWIPS(WidthOf(p.cboLocal), p.Width() - comboLeft - WidthOf(p.tlbLocal) - 250);
        EXPECT_TWIPS(TopOf(p.lsvDirFile), TopOf(p.trwPaths) + HeightOf(p.trwPaths) + HeightOf(p.tlbLocal) + 75);
        EXPECT_TWIPS(HeightOf(p.lsvDirFile), (p.Height() - HeightOf(p.tlbLocal) - 1000) / 2 + 100);
        EXPECT_TWIPS(WidthOf(p.lsvDirFile), p.Width() - 350);
    }
}

TEST_F(Layout, TheServerPaneHasItsRowOfControlsAboveTheListLevelWithTheLocalTree) {
    using namespace controls;
    for (const auto& [w, h] : {std::pair{14000, 9000}, std::pair{19000, 12000}}) {
        ResizeFrame(w, h);
        const auto& s = frmServer();
        EXPECT_TWIPS(WidthOf(s.fraServer), s.ScaleWidth() - 10);
        EXPECT_TWIPS(HeightOf(s.fraServer), s.ScaleHeight() - 1);
        EXPECT_TWIPS(LeftOf(s.tlbServerRechts), s.Width() - WidthOf(s.tlbServerRechts) - 300);
        EXPECT_TWIPS(TopOf(s.tlbServerRechts), 270);
        const int comboLeft = LeftOf(s.tlbServerLinks) + WidthOf(s.tlbServerLinks) + 1;
        EXPECT_TWIPS(LeftOf(s.cboServer), comboLeft);
        EXPECT_TWIPS(WidthOf(s.cboServer), s.Width() - comboLeft - WidthOf(s.tlbServerRechts) - 350);
        EXPECT_EQ(TopOf(s.lsvServer), TopOf(frmLocal().trwPaths));
        EXPECT_TWIPS(WidthOf(s.lsvServer), s.Width() - 375);
        EXPECT_TWIPS(HeightOf(s.lsvServer), s.Height() - 850);
    }
}

}  // namespace
