// The arithmetic that places the panes and the log at every resize.
#include "support/frame_fixture.h"

#include "frame/frmUploadDownload.h"
#include "frame/mdiMain.h"
#include "language/frmTransferHistory.h"
#include "local/frmLocal.h"
#include "server/frmServer.h"

namespace {

class Layout : public FrameTest {
protected:
    void SetUp() override {
        FrameTest::SetUp();
        StartFrame();
    }
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
}

}  // namespace
