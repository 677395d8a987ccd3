// The log pane: colours of its lines, its popup, the clipboard, clearing.
#include "support/frame_fixture.h"

#include "frame/mdiMain.h"
#include "language/frmPopUpfrmTransferHistory.h"
#include "language/frmTransferHistory.h"
#include "language/mDataBase.h"
#include "shared/mPublic.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTest>
#include <QWindow>

namespace {

class LogPane : public StartedFrameTest {
protected:
    controls::RichLog& log() { return *frmTransferHistory().rtfTransferHistory; }
};

TEST_F(LogPane, EachKindOfLineKeepsItsColourAndTheRestingColourIsBlack) {
    log().SetText(QString());
    MoveLogCaretToEnd();
    log().SetSelText("start\r\n");
    AppendLogLine(kGreen, "good");
    AppendLogLine(kRed, "bad");
    AppendLogLine(kBlue, "notice");
    MoveLogCaretToEnd();
    log().SetSelText("neutral again\r\n");
    const auto lines = LogLines();
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines[0].colour, kBlack);
    EXPECT_EQ(lines[1].colour, kGreen);
    EXPECT_EQ(lines[2].colour, kRed);
    EXPECT_EQ(lines[3].colour, kBlue);
    EXPECT_EQ(lines[4].colour, kBlack);
    EXPECT_EQ(log().SelColor(), kBlack);
}

TEST_F(LogPane, FrameCaptionAndFontAreSet) {
    EXPECT_EQ(frmTransferHistory().fraTransferHistory->title(), GetLanguageText("FRMTH_FRACAPTION"));
    EXPECT_EQ(log().font().family(), "Arial");
    EXPECT_DOUBLE_EQ(log().font().pointSizeF(), 8.25);
    EXPECT_EQ(log().verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
}

TEST_F(LogPane, ARightClickOpensThePopupWithCopyAsDefaultAndALeftClickDoesNot) {
    // Clicks through the window, as the desktop delivers them: a right press
    // there also asks for a context menu.
    QWindow* window = mdiMain().windowHandle();
    ASSERT_NE(window, nullptr);
    const QPoint inLog(40, 20);
    const QPoint at = log().viewport()->mapTo(&mdiMain(), inLog);
    QTest::mouseClick(window, Qt::LeftButton, {}, at);
    ASSERT_TRUE(frmPopUpfrmTransferHistory.Exists());  // any mouse-up loads it
    auto& popup = frmPopUpfrmTransferHistory();
    EXPECT_FALSE(popup.mnu->isVisible());
    EXPECT_EQ(popup.mnuClipboard->text(), GetLanguageText("FRMPU_TRANS_CLIP"));
    EXPECT_EQ(popup.mnuLoeschen->text(), GetLanguageText("FRMPU_TRANS_DELETE"));

    log().SetText(QString());  // also on an empty log
    QTest::mouseClick(window, Qt::RightButton, {}, at);
    EXPECT_TRUE(popup.mnu->isVisible());
    EXPECT_EQ(QApplication::activePopupWidget(), popup.mnu) << "no other menu in front of it";
    EXPECT_EQ(popup.mnu->defaultAction(), popup.mnuClipboard);
    popup.mnu->hide();
}

TEST_F(LogPane, CopyPutsThePlainTextUnderTheRichTextFormat) {
    AppendLogLine(kRed, "Grüße & <b>names</b>");
    frmPopUpfrmTransferHistory().mnuClipboard->trigger();
    const QMimeData* data = QApplication::clipboard()->mimeData();
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(QString::fromUtf8(data->data("text/rtf")), log().Text());
    EXPECT_TRUE(log().Text().contains("Grüße & <b>names</b>"));

    log().SetText(QString());
    frmPopUpfrmTransferHistory().mnuClipboard->trigger();
    data = QApplication::clipboard()->mimeData();
    ASSERT_NE(data, nullptr);
    EXPECT_TRUE(data->data("text/rtf").isEmpty());
}

TEST_F(LogPane, ClearingMidwayLetsTheNextLineStartAtTheTopInItsColour) {
    AppendLogLine(kBlack, "first file");
    frmPopUpfrmTransferHistory().mnuLoeschen->trigger();
    EXPECT_EQ(log().Text(), "");
    AppendLogLine(kRed, "failed");
    const auto lines = LogLines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].text, "failed");
    EXPECT_EQ(lines[0].colour, kRed);
    EXPECT_EQ(log().SelColor(), kBlack);
}

}  // namespace
